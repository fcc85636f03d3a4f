#include "app/end_request.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>

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

}  // namespace
}  // namespace velmora
