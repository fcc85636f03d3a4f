// The machine's clock.
#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace velmora::windows {

class WindowsClock final : public Clock {
  public:
    DateTime Now() override;
    std::int64_t GetTickCount() override;
    std::uint64_t GetSystemTimeAsFileTime() override;
};

}  // namespace velmora::windows
