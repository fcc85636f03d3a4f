#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "base/date_time.h"
#include "machine_under_test.h"

namespace velmora::contract {
namespace {

class ClockContract : public ContractTest {};
INSTANTIATE_TEST_SUITE_P(Machines, ClockContract, everyMachine(), nameOf);

TEST_P(ClockContract, NowIsATimeThatExists) {
    const DateTime now = platform().clock.Now();
    EXPECT_TRUE(isValid(now));
    EXPECT_GE(now.year, 2024);
}

TEST_P(ClockContract, TheTickCountNeverGoesBack) {
    std::int64_t last = platform().clock.GetTickCount();
    EXPECT_GE(last, 0);
    for (int i = 0; i < 10'000; ++i) {
        const std::int64_t tick = platform().clock.GetTickCount();
        ASSERT_GE(tick, last);
        last = tick;
    }
}

TEST_P(ClockContract, TheFileTimeNeverGoesBack) {
    std::uint64_t last = platform().clock.GetSystemTimeAsFileTime();
    for (int i = 0; i < 10'000; ++i) {
        const std::uint64_t time = platform().clock.GetSystemTimeAsFileTime();
        ASSERT_GE(time, last);
        last = time;
    }
}

TEST_P(ClockContract, TheFileTimeIsNowButForTheTimeZone) {
    const auto ticks = static_cast<std::int64_t>(platform().clock.GetSystemTimeAsFileTime());
    const std::int64_t universal = ticks / 10'000'000 + toSeconds({1601, 1, 1, 0, 0, 0});
    const std::int64_t ahead = toSeconds(platform().clock.Now()) - universal;
    EXPECT_LE(std::abs(ahead), 14 * 3600 + 5);
    // Time zones are whole quarters of an hour apart.
    constexpr std::int64_t quarter = 15 * 60;
    const std::int64_t rest = std::abs(ahead) % quarter;
    EXPECT_LE(std::min(rest, quarter - rest), 5);
}

TEST_P(ClockContract, TheRegionHasADecimalPointAndSeparators) {
    const Regional& regional = platform().regional;
    EXPECT_FALSE(regional.decimalPoint.empty());
    EXPECT_NE(regional.decimalPoint, regional.digitGroup);
    EXPECT_FALSE(regional.dateSeparator.empty());
    EXPECT_FALSE(regional.timeSeparator.empty());
}

TEST_P(ClockContract, NowInTheMachinesOwnFormIsReadBack) {
    const DateTime now = platform().clock.Now();
    const Regional& regional = platform().regional;
    EXPECT_EQ(readDate(dateText(now, regional), regional), now);
}

}  // namespace
}  // namespace velmora::contract
