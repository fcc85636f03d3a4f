// The wish of another program that a console ends, and the sleep of that console.
#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>

#include "app/close_wish.h"
#include "app/end_request.h"
#include "app/sleep.h"
#include "app/windows/close_wish_name.h"

namespace velmora {
namespace {

struct WishedSleep : testing::Test {
    WishedSleep() {
        noteEndRequests();
        takeCloseWish();
    }
    // As another program does it.
    static bool wish() {
        const HANDLE event = OpenEventW(EVENT_MODIFY_STATE, FALSE,
                                        windows::closeWishName(GetCurrentProcessId()).c_str());
        const bool isSet = event && SetEvent(event);
        CloseHandle(event);
        return isSet;
    }
};

TEST_F(WishedSleep, MayTakeTenSeconds) {
    EXPECT_EQ(longestSleep(), 10'000);
}

TEST_F(WishedSleep, IsEndedByAWishWhichIsTakenOnceAfterIt) {
    ASSERT_TRUE(wish());
    const auto begin = std::chrono::steady_clock::now();
    sleepUnlessEnded(60'000);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
    EXPECT_TRUE(takeCloseWish());
    EXPECT_FALSE(takeCloseWish());
}

// What was requested once stays so: this one comes last.
TEST_F(WishedSleep, TheWishIsARequestForTheEnd) {
    ASSERT_FALSE(isEndRequested());
    ASSERT_TRUE(wish());
    EXPECT_TRUE(isEndRequested());
}

}  // namespace
}  // namespace velmora
