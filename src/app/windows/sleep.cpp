#include "app/sleep.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "app/windows/close_wish_name.h"

namespace velmora {

namespace {

// Both last as long as the program. The second is there once the program listens to wishes.
HANDLE ending = nullptr;
HANDLE wish = nullptr;

}  // namespace

void prepareSleep() {
    if (!ending) ending = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    if (!wish) {
        const std::wstring name = windows::closeWishName(GetCurrentProcessId());
        wish = OpenEventW(SYNCHRONIZE, FALSE, name.c_str());
    }
}

void sleepUnlessEnded(std::int64_t milliseconds) {
    if (milliseconds <= 0) return;
    const auto time = static_cast<DWORD>(std::min<std::int64_t>(milliseconds, INFINITE - 1));
    std::array<HANDLE, 2> awaited{};
    DWORD count = 0;
    for (HANDLE each : {ending, wish}) {
        if (each) awaited[count++] = each;
    }
    if (count == 0) return Sleep(time);
    WaitForMultipleObjects(count, awaited.data(), FALSE, time);
}

void endSleep() {
    if (ending) SetEvent(ending);
}

// Waits leave out the time in which the machine sleeps: a check that fell due then comes at most so
// much later.
std::int64_t longestSleep() {
    return ending && wish ? 10'000 : 1000;
}

}  // namespace velmora
