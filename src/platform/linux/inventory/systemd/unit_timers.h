// The timers of the service manager.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "platform/linux/inventory/record_source.h"
#include "platform/linux/inventory/systemd/service_bus.h"

namespace velmora::linuxhost {

/// Win32_ScheduledJob: a timer each, asked about when it is read. There are none without a bus, and
/// no more once a question isn't answered within a second and a half.
class UnitTimers final : public RecordSource {
  public:
    std::optional<Record> next() override;

  private:
    /// Microseconds since 1970; nothing when the timer has no time to come.
    std::optional<std::int64_t> nextStart(const Unit& timer);
    Record timerRecord(const Unit& timer);

    ServiceBus bus_;
    std::optional<std::vector<Unit>> timers_;
    std::size_t at_ = 0;
};

}  // namespace velmora::linuxhost
