#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>

#include "app/sleep.h"

namespace velmora {
namespace {

TEST(LongestSleep, IsAnHourOnceItCanBeEnded) {
    prepareSleep();
    EXPECT_EQ(longestSleep(), 3'600'000);
}

// The standard input for as long as it exists: a pipe that nobody writes to any more.
class ClosedInput {
  public:
    ClosedInput() : before_(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 3)) {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0) return;
        close(ends[1]);
        dup2(ends[0], STDIN_FILENO);
        close(ends[0]);
    }
    ~ClosedInput() {
        if (before_ < 0) {
            close(STDIN_FILENO);
        } else {
            dup2(before_, STDIN_FILENO);
            close(before_);
        }
    }

  private:
    int before_;
};

// Where the tests were started without one, its number is given to what is opened first.
bool hasStandardInput() {
    struct stat status {};
    return fstat(STDIN_FILENO, &status) == 0 && (status.st_mode & S_IFMT) != 0;
}

TEST(LongestSleep, LastsThoughTheInputHasEnded) {
    prepareSleep();
    if (!hasStandardInput()) GTEST_SKIP() << "the tests have no standard input";
    const ClosedInput input;
    const auto begin = std::chrono::steady_clock::now();
    sleepUnlessEnded(100);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(80));
}

// In a process of its own: others of this one have slept.
TEST(LongestSleepDeathTest, NothingEndsTheFirstSleepBeforehand) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto sleepsFirst = [] {
        prepareSleep();
        const auto begin = std::chrono::steady_clock::now();
        sleepUnlessEnded(100);
        const auto time = std::chrono::steady_clock::now() - begin;
        std::exit(time >= std::chrono::milliseconds(80) ? 0 : 1);
    };
    EXPECT_EXIT(sleepsFirst(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace velmora
