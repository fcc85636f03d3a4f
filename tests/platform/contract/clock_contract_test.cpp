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
