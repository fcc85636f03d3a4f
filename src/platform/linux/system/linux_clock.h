// This host's clocks.
#pragma once

#include <time.h>

#include <cstdint>

#include "platform/clock.h"

namespace velmora::linuxhost {

class LinuxClock final : public Clock {
  public:
    DateTime Now() override;
    std::int64_t GetTickCount() override;
    std::uint64_t GetSystemTimeAsFileTime() override;

    /// A moment by the time zone of the user, as it is now.
    static DateTime localTime(time_t moment);

  private:
    time_t second_ = -1;  // the second of `local_`
    DateTime local_;
};

}  // namespace velmora::linuxhost
