#include "platform/linux/system/linux_clock.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/syscall.h>
#include <time.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "platform/linux/support/child_process.h"
#include "platform/linux/system/listed_times.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

// Sets the time zone for one test.
class TimeZone {
  public:
    explicit TimeZone(const char* zone) {
        if (const char* before = std::getenv("TZ")) before_ = before;
        setenv("TZ", zone, 1);
    }
    ~TimeZone() {
        if (before_) {
            setenv("TZ", before_->c_str(), 1);
        } else {
            unsetenv("TZ");
        }
        tzset();
    }

  private:
    std::optional<std::string> before_;
};

TEST(LinuxClock, NowIsLocalTime) {
    const TimeZone zone("TST-5:30");
    LinuxClock clock;
    const auto before = static_cast<std::int64_t>(time(nullptr));
    const DateTime now = clock.Now();
    const auto after = static_cast<std::int64_t>(time(nullptr));
    const std::int64_t epoch = toSeconds({1970, 1, 1, 0, 0, 0});
    const std::int64_t seconds = toSeconds(now) - epoch - (5 * 3600 + 30 * 60);
    EXPECT_GE(seconds, before);
    EXPECT_LE(seconds, after);
}

TEST(LinuxClock, AMoveToAnotherTimeZoneIsFollowed) {
    LinuxClock clock;
    const TimeZone west("TST8");
    const auto there = toSeconds(clock.Now());
    const TimeZone east("TST-8");
    // From the next second on.
    std::int64_t moved = 0;
    EXPECT_TRUE(waitUntil([&] {
        moved = toSeconds(clock.Now()) - there;
        return moved >= 16 * 3600;
    }));
    EXPECT_LE(moved, 16 * 3600 + 60);
}

TEST(LinuxClock, TheFileTimeGrowsInStepsOf100Nanoseconds) {
    LinuxClock clock;
    const std::uint64_t before = clock.GetSystemTimeAsFileTime();
    EXPECT_TRUE(waitUntil([&] { return clock.GetSystemTimeAsFileTime() > before; }));
    const auto seconds = static_cast<std::uint64_t>(time(nullptr));
    EXPECT_LE(before / 10'000'000 - 11'644'473'600, seconds);
    EXPECT_GE(before / 10'000'000 - 11'644'473'600 + 60, seconds);
}

TEST(LinuxClock, WhileAListedFileIsDatedAheadItSleeps) {
    const auto waits = callsOf(SYS_clock_nanosleep, [] {
        ListedTimes listed;
        listed.add(timeOfFiles() + ListedTimes::longestStep / 2);  // 50 ms
        LinuxClock(&listed).GetSystemTimeAsFileTime();
        return 0;
    });
    if (!waits) GTEST_SKIP() << "calls can't be counted";
    EXPECT_GT(*waits, 1);
}

}  // namespace
}  // namespace velmora::linuxhost
