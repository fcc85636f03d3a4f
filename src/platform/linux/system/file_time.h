// Times in the other system's form.
#pragma once

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

}  // namespace velmora::linuxhost
