// Numbers that the system gives in two halves.
#pragma once

#include <windows.h>

#include <cstdint>

namespace velmora::windows {

inline std::uint64_t wholeOf(DWORD high, DWORD low) {
    return std::uint64_t{high} << 32 | low;
}

inline std::uint64_t wholeOf(const FILETIME& time) {
    return wholeOf(time.dwHighDateTime, time.dwLowDateTime);
}

}  // namespace velmora::windows
