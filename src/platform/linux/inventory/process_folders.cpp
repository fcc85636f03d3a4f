#include "platform/linux/inventory/process_folders.h"

#include <dirent.h>
#include <fcntl.h>
#include <limits.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>

#include "platform/linux/inventory/host_file.h"
#include "platform/linux/inventory/process_record.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

std::optional<std::int64_t> processIdOf(std::string_view name) {
    if (name.empty() || name.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    return signedNumber(name);
}

class ProcessIdSource final : public RecordSource {
  public:
    explicit ProcessIdSource(const HostSources& host) : ids_(processIds(host.proc)) {}

    std::optional<Record> next() override {
        if (next_ == ids_.size()) return std::nullopt;
        return Record{{"ProcessId", std::to_string(ids_[next_++])}};
    }

  private:
    std::vector<std::int64_t> ids_;
    std::size_t next_ = 0;
};

class ProcessNameSource final : public RecordSource {
  public:
    explicit ProcessNameSource(const HostSources& host)
        : proc_(host.proc), ids_(processIds(host.proc)) {}

    std::optional<Record> next() override {
        while (next_ < ids_.size()) {
            const std::string id = std::to_string(ids_[next_++]);
            const std::string folder = proc_ + '/' + id + '/';
            const auto stat = readHostFile(folder + "stat");
            if (!stat) continue;
            return Record{{"ProcessId", id},
                          {"Name", processName(linkTarget(AT_FDCWD, folder + "exe"), *stat)}};
        }
        return std::nullopt;
    }

  private:
    std::string proc_;
    std::vector<std::int64_t> ids_;
    std::size_t next_ = 0;
};

}  // namespace

std::vector<std::int64_t> processIds(const std::string& proc) {
    std::vector<std::int64_t> ids;
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(proc.c_str()));
    while (const dirent* entry = folder ? readdir(folder.get()) : nullptr) {
        if (const auto id = processIdOf(entry->d_name)) ids.push_back(*id);
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

std::optional<std::string> linkTarget(int folder, const std::string& name) {
    std::array<char, PATH_MAX> target{};
    const auto size = readlinkat(folder, name.c_str(), target.data(), target.size());
    if (size < 0) return std::nullopt;
    return std::string(target.data(), static_cast<std::size_t>(size));
}

std::unique_ptr<RecordSource> processIdSource(const HostSources& host) {
    return std::make_unique<ProcessIdSource>(host);
}

std::unique_ptr<RecordSource> processNameSource(const HostSources& host) {
    return std::make_unique<ProcessNameSource>(host);
}

}  // namespace velmora::linuxhost
