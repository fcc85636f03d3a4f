#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include "platform/linux/inventory/host_file.h"
#include "platform/linux/inventory/host_name.h"
#include "platform/linux/inventory/process_folders.h"
#include "platform/linux/inventory/process_record.h"
#include "platform/linux/inventory/record_source.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

namespace {

ProcessHost processHost(const HostSources& host) {
    const auto numbers = namedNumbers(readHostFile(host.proc + "/stat").value_or(""));
    const auto bootTime = numbers.find("btime");
    ProcessHost known;
    known.name = hostName();
    known.system = systemName(readHostFile(host.release).value_or(""));
    if (bootTime != numbers.end() && bootTime->second < std::uint64_t{1} << 40)
        known.bootTime = static_cast<std::int64_t>(bootTime->second);
    if (const long ticks = sysconf(_SC_CLK_TCK); ticks > 0) known.ticks = ticks;
    if (const long size = sysconf(_SC_PAGESIZE); size > 0) known.pageSize = size;
    return known;
}

std::optional<std::uint64_t> entriesOf(int parent, const char* name) {
    UniqueFd file(openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    DIR* folder = file.isOpen() ? fdopendir(file.get()) : nullptr;
    if (folder == nullptr) return std::nullopt;
    file.release();
    std::uint64_t entries = 0;
    while (const dirent* entry = readdir(folder)) entries += entry->d_name[0] != '.' ? 1 : 0;
    closedir(folder);
    return entries;
}

class ProcessSource final : public RecordSource {
  public:
    explicit ProcessSource(const HostSources& host)
        : proc_(open(host.proc.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)),
          host_(processHost(host)),
          ids_(processIds(host.proc)) {}

    std::optional<Record> next() override {
        while (next_ < ids_.size()) {
            // One that has ended in the meantime isn't listed.
            if (auto record = recordOf(ids_[next_++])) return record;
        }
        return std::nullopt;
    }

  private:
    std::optional<Record> recordOf(std::int64_t id) const {
        const UniqueFd folder(
            openat(proc_.get(), std::to_string(id).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        auto stat = folder.isOpen() ? readHostFile(folder.get(), "stat") : std::nullopt;
        if (!stat) return std::nullopt;
        return processRecord(host_, {.id = id,
                                     .stat = std::move(*stat),
                                     .status = readHostFile(folder.get(), "status"),
                                     .io = readHostFile(folder.get(), "io"),
                                     .exe = linkTarget(folder.get(), "exe"),
                                     .descriptors = entriesOf(folder.get(), "fd")});
    }

    UniqueFd proc_;
    ProcessHost host_;
    std::vector<std::int64_t> ids_;
    std::size_t next_ = 0;
};

}  // namespace

std::unique_ptr<RecordSource> processSource(const HostSources& host) {
    return std::make_unique<ProcessSource>(host);
}

}  // namespace velmora::linuxhost
