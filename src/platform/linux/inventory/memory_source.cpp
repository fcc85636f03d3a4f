#include <memory>

#include "platform/linux/inventory/host_file.h"
#include "platform/linux/inventory/memory_record.h"
#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

namespace {

class MemorySource final : public RecordSource {
  public:
    explicit MemorySource(const HostSources& host) : host_(host) {}

    std::optional<Record> next() override {
        if (isRead_) return std::nullopt;
        isRead_ = true;
        const auto modules = readHostFile(host_.modules);
        return memoryRecord(readHostFile(host_.proc + "/meminfo").value_or(""),
                            readHostFile(host_.proc + "/vmstat").value_or(""),
                            modules ? std::optional(modulesSize(*modules)) : std::nullopt);
    }

  private:
    HostSources host_;
    bool isRead_ = false;
};

}  // namespace

std::unique_ptr<RecordSource> memorySource(const HostSources& host) {
    return std::make_unique<MemorySource>(host);
}

}  // namespace velmora::linuxhost
