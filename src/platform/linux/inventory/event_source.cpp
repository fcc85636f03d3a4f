#include <memory>

#include "platform/linux/inventory/record_source.h"

namespace velmora::linuxhost {

namespace {

class NoEvents final : public RecordSource {
  public:
    std::optional<Record> next() override { return std::nullopt; }
};

}  // namespace

std::unique_ptr<RecordSource> eventSource(const HostSources& /*host*/) {
    return std::make_unique<NoEvents>();
}

}  // namespace velmora::linuxhost
