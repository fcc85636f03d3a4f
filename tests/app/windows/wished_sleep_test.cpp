#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>

#include "app/sleep.h"
#include "app/windows/close_wish_name.h"

namespace velmora {
namespace {

// The sleep keeps its own handle to the event: with all tests in one process, it is made once.
HANDLE wishes() {
    static const HANDLE made =
        CreateEventW(nullptr, TRUE, FALSE, windows::closeWishName(GetCurrentProcessId()).c_str());
    return made;
}

struct WishedSleep : testing::Test {
    WishedSleep() {
        EXPECT_NE(wishes(), nullptr);
        prepareSleep();
    }
    ~WishedSleep() override { ResetEvent(wishes()); }
};

TEST_F(WishedSleep, AnotherProgramsWishEndsIt) {
    SetEvent(wishes());
    const auto begin = std::chrono::steady_clock::now();
    sleepUnlessEnded(60'000);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
}

TEST_F(WishedSleep, TheWishIsThereAfterTheSleep) {
    SetEvent(wishes());
    sleepUnlessEnded(60'000);
    EXPECT_EQ(WaitForSingleObject(wishes(), 0), WAIT_OBJECT_0);
}

TEST_F(WishedSleep, MayTakeTenSeconds) {
    EXPECT_EQ(longestSleep(), 10'000);
}

}  // namespace
}  // namespace velmora
