#include "platform/linux/inventory/memory_record.h"

#include <limits>

#include "platform/linux/inventory/host_file.h"

namespace velmora::linuxhost {

namespace {

constexpr std::uint64_t kilobyte = 1024;

// Bytes by name. The kernel's "kB" are 1024 bytes.
class MemoryFields {
  public:
    explicit MemoryFields(std::string_view meminfo) : kilobytes_(namedNumbers(meminfo)) {}

    std::optional<std::uint64_t> bytes(std::string_view name) const {
        const auto found = kilobytes_.find(name);
        if (found == kilobytes_.end() || found->second > most) return std::nullopt;
        return found->second * kilobyte;
    }

  private:
    // Two of them can be added.
    static constexpr auto most = std::numeric_limits<std::uint64_t>::max() / kilobyte / 2;
    std::map<std::string, std::uint64_t, std::less<>> kilobytes_;
};

void setCount(Record& record, const char* property, std::optional<std::uint64_t> value) {
    if (value) record[property] = std::to_string(*value);
}

}  // namespace

std::uint64_t modulesSize(std::string_view modules) {
    std::uint64_t size = 0;
    while (!modules.empty()) {
        const auto line = modules.substr(0, modules.find('\n'));
        modules.remove_prefix(std::min(line.size() + 1, modules.size()));
        for (const auto& [name, bytes] : namedNumbers(line)) size += bytes;
    }
    return size;
}

Record memoryRecord(std::string_view meminfo, std::string_view vmstat,
                    std::optional<std::uint64_t> modules) {
    const MemoryFields fields(meminfo);
    const auto cached = fields.bytes("Cached");
    const auto buffers = fields.bytes("Buffers");
    const auto counters = namedNumbers(vmstat);
    Record record;
    if (cached && buffers) setCount(record, "CacheBytes", *cached + *buffers);
    if (const auto faults = counters.find("pgmajfault"); faults != counters.end())
        setCount(record, "CacheFaultsPersec", faults->second);
    setCount(record, "CommitLimit", fields.bytes("CommitLimit"));
    setCount(record, "CommittedBytes", fields.bytes("Committed_AS"));
    setCount(record, "SystemCacheResidentBytes", cached);
    setCount(record, "SystemDriverResidentBytes", modules);
    setCount(record, "SystemDriverTotalBytes", modules);
    return record;
}

}  // namespace velmora::linuxhost
