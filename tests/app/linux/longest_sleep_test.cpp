#include <gtest/gtest.h>

#include "app/sleep.h"

namespace velmora {
namespace {

TEST(LongestSleep, IsAnHourOnceItCanBeEnded) {
    prepareSleep();
    EXPECT_EQ(longestSleep(), 3'600'000);
}

}  // namespace
}  // namespace velmora
