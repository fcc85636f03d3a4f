#include "platform/linux/inventory/cim_time.h"

#include <array>
#include <cstdio>
#include <ctime>

namespace velmora::linuxhost {

namespace {

constexpr std::int64_t microsecondsPerSecond = 1'000'000;
constexpr long secondsPerMinute = 60;

// Before 1970, too, a second contains the microseconds that follow it.
struct SplitTime {
    std::int64_t seconds;
    std::int64_t microseconds;
};

SplitTime splitTime(std::int64_t microseconds) {
    const std::int64_t rest = microseconds % microsecondsPerSecond;
    const std::int64_t seconds = microseconds / microsecondsPerSecond;
    if (rest < 0) return {seconds - 1, rest + microsecondsPerSecond};
    return {seconds, rest};
}

}  // namespace

std::string cimTime(std::int64_t microseconds) {
    const SplitTime time = splitTime(microseconds);
    const std::time_t seconds = time.seconds;
    std::tm local{};
    if (localtime_r(&seconds, &local) == nullptr) return {};
    const int year = local.tm_year + 1900;
    if (year < 1 || year > 9999) return {};
    const long offset = local.tm_gmtoff / secondsPerMinute;
    std::array<char, 128> text{};
    std::snprintf(text.data(), text.size(), "%04d%02d%02d%02d%02d%02d.%06d%+04ld", year,
                  local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
                  static_cast<int>(time.microseconds), offset);
    return text.data();
}

}  // namespace velmora::linuxhost
