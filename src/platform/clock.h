// The only source of time.
#pragma once

#include <cstdint>

#include "base/date_time.h"

namespace velmora {

class Clock {
  public:
    virtual ~Clock() = default;
    /// Local date and time.
    virtual DateTime Now() = 0;
    /// Milliseconds since the system started, a count that never decreases.
    virtual std::int64_t GetTickCount() = 0;
    /// The system's time in units of 100 ns since 1601-01-01 UTC, by the clock that dates files.
    virtual std::uint64_t GetSystemTimeAsFileTime() = 0;
};

}  // namespace velmora
