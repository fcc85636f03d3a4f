// Times in the other system's form.
#pragma once

#include <sys/stat.h>
#include <time.h>

#include <cstdint>

namespace velmora::linuxhost {

/// Units of 100 ns since 1601-01-01 UTC of a time since 1970; 0 for one before 1601.
inline std::uint64_t fileTimeOf(std::int64_t seconds, std::int64_t nanoseconds) {
    constexpr std::int64_t secondsFrom1601To1970 = 11'644'473'600;
    seconds += secondsFrom1601To1970;
    if (seconds < 0) return 0;
    // Unsigned: a time far ahead must not overflow.
    return static_cast<std::uint64_t>(seconds) * 10'000'000 +
           static_cast<std::uint64_t>(nanoseconds / 100);
}

inline std::uint64_t fileTimeOf(const struct statx_timestamp& time) {
    return fileTimeOf(time.tv_sec, time.tv_nsec);
}

/// Now, by the clock that the kernel dates files by, which goes in steps; it can also give them a
/// later time in the same step.
inline std::uint64_t timeOfFiles() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return fileTimeOf(now.tv_sec, now.tv_nsec);
}

}  // namespace velmora::linuxhost
