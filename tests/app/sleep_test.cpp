#include "app/sleep.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>

namespace velmora {
namespace {

using std::chrono::steady_clock;

constexpr std::int64_t minute = 60'000;

// Whether it ended long before its time, which is more than a busy machine needs.
bool endsEarly() {
    const auto begin = steady_clock::now();
    sleepUnlessEnded(minute);
    return steady_clock::now() - begin < std::chrono::seconds(30);
}

struct SleepTest : testing::Test {
    SleepTest() { prepareSleep(); }
};

// As of a signal that comes just before the wait begins, which nothing interrupts then.
TEST_F(SleepTest, AWishForTheEndThatCameBeforeEndsTheNextSleep) {
    endSleep();
    EXPECT_TRUE(endsEarly());
}

TEST_F(SleepTest, SeveralWishesEndOneSleep) {
    for (int i = 0; i < 3; ++i) endSleep();
    EXPECT_TRUE(endsEarly());
    const auto begin = steady_clock::now();
    sleepUnlessEnded(100);
    // Some systems end a wait a step of their clock early.
    EXPECT_GE(steady_clock::now() - begin, std::chrono::milliseconds(80));
}

TEST_F(SleepTest, NoTimeIsNoSleep) {
    endSleep();
    sleepUnlessEnded(0);
    sleepUnlessEnded(-5);
    EXPECT_TRUE(endsEarly());  // the wish is still there
}

TEST_F(SleepTest, AWishCanComeFromASignalHandler) {
    std::signal(SIGTERM, [](int) { endSleep(); });
    std::raise(SIGTERM);
    std::signal(SIGTERM, SIG_DFL);
    EXPECT_TRUE(endsEarly());
}

}  // namespace
}  // namespace velmora
