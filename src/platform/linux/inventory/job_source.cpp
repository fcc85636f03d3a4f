#include <memory>

#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

namespace {

class NoJobs final : public RecordSource {
  public:
    std::optional<Record> next() override { return std::nullopt; }
};

}  // namespace

std::unique_ptr<RecordSource> jobSource(const HostSources& /*host*/) {
    return std::make_unique<NoJobs>();
}

}  // namespace velmora::linuxhost
