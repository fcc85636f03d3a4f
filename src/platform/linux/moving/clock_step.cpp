#include "platform/linux/moving/clock_step.h"

#include <algorithm>
#include <cstdint>

namespace velmora::linuxhost {

namespace {

constexpr std::int64_t second = 1'000'000'000;  // nanoseconds, as all times here
constexpr std::int64_t hundredth = 10'000'000;
// The kernel can date a file later than its own coarse clock, within a step of it.
constexpr std::int64_t longestStep = 100'000'000;

std::int64_t nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * second + time.tv_nsec;
}

std::int64_t now() {
    timespec time{};
    clock_gettime(CLOCK_REALTIME_COARSE, &time);
    return nanoseconds(time);
}

// When the step ends, by the coarsest filesystem that has such times: whole even seconds, whole
// seconds, hundredths.
std::int64_t endOfStep(const timespec& changed) {
    const std::int64_t time = nanoseconds(changed);
    if (changed.tv_nsec == 0) return time + (changed.tv_sec % 2 == 0 ? 2 : 1) * second;
    return changed.tv_nsec % hundredth == 0 ? time + hundredth : time + 1;
}

}  // namespace

void waitForNextStep(const timespec& changed) {
    const std::int64_t end = endOfStep(changed);
    for (std::int64_t time = now(); time < end; time = now()) {
        if (nanoseconds(changed) - time > longestStep) return;
        const std::int64_t rest = std::clamp<std::int64_t>(end - time, 200'000, hundredth);
        const timespec moment{.tv_sec = 0, .tv_nsec = static_cast<long>(rest)};
        nanosleep(&moment, nullptr);
    }
}

}  // namespace velmora::linuxhost
