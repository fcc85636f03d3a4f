#include "platform/linux/system/linux_clock.h"

#include <time.h>

#include <algorithm>

#include "platform/linux/system/file_time.h"

namespace velmora::linuxhost {

DateTime LinuxClock::Now() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME_COARSE, &now);
    // A check asks for each of its rows; the time zone's rules are worth a look once a second.
    if (now.tv_sec != second_) {
        second_ = now.tv_sec;
        local_ = localTime(now.tv_sec);
    }
    return local_;
}

DateTime LinuxClock::localTime(time_t moment) {
    // The user may have moved to another time zone meanwhile.
    tzset();
    tm local{};
    localtime_r(&moment, &local);
    // A leap second counts as the second before it.
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
            local.tm_hour,        local.tm_min,     std::min(local.tm_sec, 59)};
}

// Each yield of a check asks. The exact time costs three times as much as that of the kernel's last
// tick, and is as old as that in between, by 10 ms at most.
std::int64_t LinuxClock::GetTickCount() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    if (now.tv_sec == tickTime_.tv_sec && now.tv_nsec == tickTime_.tv_nsec) return tickCount_;
    tickTime_ = now;
    // Counts on while the machine sleeps, as Windows' count does.
    clock_gettime(CLOCK_BOOTTIME, &now);
    tickCount_ = static_cast<std::int64_t>(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000;
    return tickCount_;
}

std::uint64_t LinuxClock::GetSystemTimeAsFileTime() {
    constexpr timespec moment{.tv_sec = 0, .tv_nsec = 200'000};
    const std::uint64_t newest = listed_ ? listed_->newest() : 0;
    std::uint64_t now = timeOfFiles();
    // A change after this call and the listed one could have the same time otherwise.
    while (newest >= now && newest - now <= ListedTimes::longestStep) {
        nanosleep(&moment, nullptr);
        now = timeOfFiles();
    }
    return now - 1;
}

}  // namespace velmora::linuxhost
