#include "app/end_request.h"
#include "app/close_wish.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>

#include "app/sleep.h"

namespace velmora {
namespace {

TEST(EndRequest, ASignalIsNotedAndEndsTheSleep) {
    noteEndRequests();
    EXPECT_FALSE(isEndRequested());
    std::raise(SIGTERM);
    const auto begin = std::chrono::steady_clock::now();
    sleepUnlessEnded(60'000);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
    EXPECT_TRUE(isEndRequested());
    // The next one ends the program.
    EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGHUP, SIG_DFL);
}

// In a process of its own: others of this one have prepared it.
TEST(EndRequestDeathTest, TheSleepIsPreparedForIt) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto sleepsLong = [] {
        noteEndRequests();
        std::exit(longestSleep() == 3'600'000 ? 0 : 1);
    };
    EXPECT_EXIT(sleepsLong(), testing::ExitedWithCode(0), "");
}

TEST(EndRequest, ATerminalsEndThatIsIgnoredStaysIgnored) {
    std::signal(SIGHUP, SIG_IGN);
    noteEndRequests();
    EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
    noteEndRequests();
    EXPECT_NE(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
    std::signal(SIGTERM, SIG_DFL);
    std::signal(SIGINT, SIG_DFL);
}

// Files of a program that runs can be replaced here, so nothing wishes its windows closed.
TEST(EndRequest, NoWishToCloseComes) {
    EXPECT_FALSE(openToCloseWishes());
    EXPECT_FALSE(takeCloseWish());
}

}  // namespace
}  // namespace velmora
