// This host's clocks.
#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace velmora::linuxhost {

class LinuxClock final : public Clock {
  public:
    DateTime Now() override;
    std::int64_t GetTickCount() override;
    std::uint64_t GetSystemTimeAsFileTime() override;
};

}  // namespace velmora::linuxhost
