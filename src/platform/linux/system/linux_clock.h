// This host's clocks.
#pragma once

#include <time.h>

#include <cstdint>

#include "platform/clock.h"
#include "platform/linux/system/listed_times.h"

namespace velmora::linuxhost {

class LinuxClock final : public Clock {
  public:
    /// `listed` must outlive the clock; null where nothing is listed.
    explicit LinuxClock(const ListedTimes* listed = nullptr) : listed_(listed) {}
    DateTime Now() override;
    std::int64_t GetTickCount() override;
    /// The latest time that no later change of a file can have. A file that was listed has none
    /// above it: one that changed in the clock's present step is waited for, some milliseconds at
    /// most.
    std::uint64_t GetSystemTimeAsFileTime() override;

    /// A moment by the time zone of the user, as it is now.
    static DateTime localTime(time_t moment);

  private:
    const ListedTimes* listed_;
    time_t second_ = -1;  // the second of `local_`
    DateTime local_;
    timespec tickTime_{};  // the kernel's tick of `tickCount_`
    std::int64_t tickCount_ = 0;
};

}  // namespace velmora::linuxhost
