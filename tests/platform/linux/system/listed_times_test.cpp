#include "platform/linux/system/listed_times.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

std::uint64_t clockOfTest = 0;

struct ListedTimesTest : testing::Test {
    ListedTimesTest() { clockOfTest = 5'000'000; }
    ListedTimes times{[] { return clockOfTest; }};
};

TEST_F(ListedTimesTest, TheNewestOfAllListingsCounts) {
    times.begin();
    for (const std::uint64_t time : {3u, 7u, 5u}) times.add(time);
    times.begin();
    times.add(6);
    EXPECT_EQ(times.newest(), 7u);
}

TEST_F(ListedTimesTest, AFileDatedAheadDoesNotHideTheOthers) {
    times.begin();
    times.add(5'000'000 + 1'000'001);
    EXPECT_EQ(times.newest(), 0u);
    times.add(5'000'000 + 1'000'000);
    EXPECT_EQ(times.newest(), 6'000'000u) << "within a step of the clock";
}

TEST_F(ListedTimesTest, WhatChangesDuringALongListingCounts) {
    times.begin();
    clockOfTest += 36'000'000'000;
    times.add(clockOfTest);
    EXPECT_EQ(times.newest(), clockOfTest);
}

TEST_F(ListedTimesTest, AClockThatIsSetBackBeginsAnew) {
    times.begin();
    times.add(5'000'000);
    clockOfTest = 2'000'000;
    times.begin();
    times.add(1'900'000);
    EXPECT_EQ(times.newest(), 1'900'000u);
}

}  // namespace
}  // namespace velmora::linuxhost
