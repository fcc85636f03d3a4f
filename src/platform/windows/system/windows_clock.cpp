#include "platform/windows/system/windows_clock.h"

#include <windows.h>

#include "platform/windows/system/halves.h"

namespace velmora::windows {

DateTime WindowsClock::Now() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

// The wide count: the 32-bit one starts again after 49 days, which a watching program lives to see.
std::int64_t WindowsClock::GetTickCount() {
    return static_cast<std::int64_t>(GetTickCount64());
}

std::uint64_t WindowsClock::GetSystemTimeAsFileTime() {
    FILETIME now{};
    ::GetSystemTimeAsFileTime(&now);
    return wholeOf(now);
}

}  // namespace velmora::windows
