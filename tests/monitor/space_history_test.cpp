// The history of free space and the estimate of its end.
#include "monitor/history/space_history.h"

#include <gtest/gtest.h>

#include "monitor/history/full_estimate.h"
#include "monitor/history/history_points.h"

namespace velmora::tests {
namespace {

TEST(SpaceRingTest, KeepsTheLastMeasures) {
    SpaceRing ring;
    EXPECT_EQ(ring.size(), 0U);
    for (int i = 0; i < 10'083; ++i) ring.add({.seconds = i, .freeKB = 2.0 * i});
    ASSERT_EQ(ring.size(), 10'080U);
    EXPECT_EQ(ring.at(0), (SpacePoint{3, 6}));
    EXPECT_EQ(ring.at(10'079), (SpacePoint{10'082, 20'164}));
}

TEST(ThinnedHistory, AFewMeasuresAreAllKept) {
    SpaceRing ring;
    for (int i = 0; i < 6; ++i) ring.add({.seconds = i, .freeKB = 10.0 * i});
    EXPECT_EQ(thinned(ring, 6), pointsOf(ring));
    EXPECT_EQ(pointsOf(ring).size(), 6U);
    EXPECT_EQ(pointsOf(ring)[5], (SpacePoint{5, 50}));
}

TEST(ThinnedHistory, OfEachStretchTheEndsAreKeptInTheirOrder) {
    SpaceRing ring;
    // The first, two stretches of four, the last.
    const double free[] = {50, 40, 90, 10, 60, 70, 70, 70, 70, 20};
    for (int i = 0; i < 10; ++i) ring.add({.seconds = i, .freeKB = free[i]});
    EXPECT_EQ(thinned(ring, 6),
              (std::vector<SpacePoint>{{0, 50}, {2, 90}, {3, 10}, {5, 70}, {8, 70}, {9, 20}}));
    // One stretch.
    EXPECT_EQ(thinned(ring, 4), (std::vector<SpacePoint>{{0, 50}, {2, 90}, {3, 10}, {9, 20}}));
    EXPECT_EQ(thinned(ring, 5), thinned(ring, 4));
}

TEST(SpaceRingTest, HoldsGreatSizes) {
    SpaceRing ring;
    const double petabyte = 1'099'511'627'776;  // KB
    ring.add({.seconds = 4'000'000'000, .freeKB = petabyte});
    ring.add({.seconds = 4'000'000'001, .freeKB = 4'294'967'295});
    ring.add({.seconds = 4'000'000'002, .freeKB = 4'294'967'296});
    ring.add({.seconds = 4'000'000'003, .freeKB = -5});
    EXPECT_EQ(ring.at(0), (SpacePoint{4'000'000'000, petabyte}));
    EXPECT_EQ(ring.at(1).freeKB, 4'294'967'295);
    EXPECT_EQ(ring.at(2).freeKB, 4'294'967'296);
    EXPECT_EQ(ring.at(3).freeKB, 0);
    ring.add({.seconds = 4'000'000'004, .freeKB = 0x1p50});
    EXPECT_EQ(ring.at(4).freeKB, 0x1p48 - 1);
}

TEST(SpaceHistoryTest, KeepsPathsInAnyLetterCase) {
    SpaceHistory history;
    history.add("C:\\", {1, 10});
    history.add("D:\\data", {1, 20});
    history.add("c:\\", {2, 11});
    EXPECT_EQ(history.paths(), (std::vector<std::string>{"C:\\", "D:\\data"}));
    ASSERT_NE(history.of("C:\\"), nullptr);
    EXPECT_EQ(history.of("C:\\")->size(), 2U);
    EXPECT_EQ(history.of("E:\\"), nullptr);
    history.remove("d:\\DATA");
    EXPECT_EQ(history.paths(), std::vector<std::string>{"C:\\"});
    EXPECT_EQ(history.of("D:\\data"), nullptr);
}

TEST(SpaceHistoryTest, KeepsTwoHundredPaths) {
    SpaceHistory history;
    for (int i = 0; i < 250; ++i) history.add("p" + std::to_string(i), {1, 1});
    EXPECT_EQ(history.paths().size(), 200U);
    EXPECT_EQ(history.of("p200"), nullptr);
    history.add("p5", {2, 2});
    EXPECT_EQ(history.of("p5")->size(), 2U);
}

/// The estimate at the moment of the last measure.
std::optional<double> estimateOf(const SpaceRing& ring) {
    return secondsUntilFull(ring, ring.size() == 0 ? 0 : ring.at(ring.size() - 1).seconds);
}

constexpr std::int64_t minutes = 60;
constexpr std::int64_t hours = 3600;

/// A measure each `step` seconds for so long, the free space by a function of the seconds.
template <typename Free>
SpaceRing measured(std::int64_t length, std::int64_t step, Free free) {
    SpaceRing ring;
    for (std::int64_t s = 0; s <= length; s += step) {
        ring.add({.seconds = s, .freeKB = static_cast<double>(free(s))});
    }
    return ring;
}

TEST(FullEstimate, AStraightFallEndsWhereItsLineDoes) {
    // 10 KB a second, 1,000,000 KB at the beginning, 964,000 after an hour.
    const SpaceRing ring =
        measured(1 * hours, 60, [](std::int64_t s) { return 1'000'000 - 10 * s; });
    ASSERT_TRUE(estimateOf(ring));
    EXPECT_NEAR(*estimateOf(ring), 96'400, 1);
}

TEST(FullEstimate, OnlyTheLastDayCounts) {
    // Steady for two days, then falling by 1 KB a second for a day.
    const SpaceRing ring = measured(72 * hours, 10 * minutes, [](std::int64_t s) {
        return 10'000'000 - std::max<std::int64_t>(0, s - 48 * hours);
    });
    ASSERT_TRUE(estimateOf(ring));
    EXPECT_NEAR(*estimateOf(ring), 10'000'000 - 86'400, 100);
}

TEST(FullEstimate, TooLittleMakesNone) {
    const auto falling = [](std::int64_t s) { return 1'000'000 - 10 * s; };
    EXPECT_FALSE(estimateOf({}));
    EXPECT_FALSE(estimateOf(measured(hours - 60, 60, falling)));
    EXPECT_FALSE(estimateOf(measured(10 * hours, hours, falling)));  // eleven measures
    EXPECT_TRUE(estimateOf(measured(11 * hours, hours, falling)));
}

TEST(FullEstimate, WhatDoesNotFallSteadilyMakesNone) {
    const auto none = [](auto free) {
        return !estimateOf(measured(24 * hours, 10 * minutes, free));
    };
    EXPECT_TRUE(none([](std::int64_t) { return 500'000; }));
    EXPECT_TRUE(none([](std::int64_t s) { return 500'000 + s; }));
    // One great fall in the middle of the day.
    EXPECT_TRUE(none([](std::int64_t s) { return s < 12 * hours ? 900'000 : 100'000; }));
    // It falls by day and comes back by night.
    EXPECT_TRUE(none([](std::int64_t s) { return 900'000 - s % (6 * hours) * 10; }));
    // It fell all day and rose in the last hours.
    EXPECT_TRUE(none([](std::int64_t s) {
        return s < 18 * hours ? 900'000 - 10 * s : 252'000 + 15 * (s - 18 * hours);
    }));
    // It lost nothing in the second quarter of the day, though a line fits well.
    EXPECT_TRUE(none([](std::int64_t s) {
        return s < 12 * hours ? 1'900'000 - 10 * (s % (6 * hours))
                              : 1'584'000 - 10 * (s - 12 * hours);
    }));
    // The end is more than a year away.
    EXPECT_TRUE(none([](std::int64_t s) { return 4'000'000'000 - s; }));
}

TEST(FullEstimate, ALittleNoiseDoesNoHarm) {
    const SpaceRing ring = measured(24 * hours, 10 * minutes, [](std::int64_t s) {
        return 1'000'000 - 10 * s + (s / 600 % 2 == 0 ? 20'000 : -20'000);
    });
    ASSERT_TRUE(estimateOf(ring));
    EXPECT_NEAR(*estimateOf(ring), (1'000'000 - 864'000) / 10.0, 3000);
}

TEST(FullEstimate, AFallOfFewKilobytesIsOneToo) {
    // 10, 10, 9, 9 and so on to 4 KB: one in 720 seconds.
    const SpaceRing ring =
        measured(72 * minutes, 6 * minutes, [](std::int64_t s) { return 10 - s / 720; });
    ASSERT_TRUE(estimateOf(ring));
    EXPECT_NEAR(*estimateOf(ring), 4 * 720, 200);
}

TEST(FullEstimate, TheTimeSinceTheLastMeasureCounts) {
    const SpaceRing ring =
        measured(1 * hours, 60, [](std::int64_t s) { return 1'000'000 - 10 * s; });
    EXPECT_NEAR(*secondsUntilFull(ring, 2 * hours), 96'400 - 3600, 1);
    // A day later the measures are too old, and a drive that is full isn't full soon.
    EXPECT_FALSE(secondsUntilFull(ring, 26 * hours));
    const SpaceRing full = measured(1 * hours, 60, [](std::int64_t s) { return 36'000 - 10 * s; });
    EXPECT_FALSE(estimateOf(full));
}

TEST(SpaceHistoryTest, APathThatIsNotMeasuredAnyMoreMakesRoom) {
    SpaceHistory history;
    for (int i = 0; i < 200; ++i) history.add("p" + std::to_string(i), {i == 7 ? 0 : 3000, 1});
    history.add("new", {3599, 1});
    EXPECT_EQ(history.of("new"), nullptr);
    history.add("new", {3600, 1});
    EXPECT_NE(history.of("new"), nullptr);
    EXPECT_EQ(history.of("p7"), nullptr);
    EXPECT_EQ(history.paths().size(), 200U);
}

TEST(SpaceHistoryTest, RoomIsLookedForAgainOnceAPathCanBeForgotten) {
    SpaceHistory history;
    for (int i = 0; i < 200; ++i) history.add("C:\\" + std::to_string(i), {i, 1});
    history.add("D:\\", {3599, 1});
    EXPECT_EQ(history.of("D:\\"), nullptr);
    // The first path was measured once more, the second is an hour old.
    history.add("c:\\0", {3600, 1});
    history.add("D:\\", {3600, 1});
    EXPECT_EQ(history.of("D:\\"), nullptr);
    history.add("D:\\", {3601, 1});
    EXPECT_NE(history.of("D:\\"), nullptr);
    EXPECT_EQ(history.of("C:\\1"), nullptr);
    // Its place was taken: it is a new path.
    history.add("C:\\1", {3601, 1});
    EXPECT_EQ(history.of("C:\\1"), nullptr);
    history.remove("D:\\");
    history.add("C:\\1", {3602, 2});
    ASSERT_NE(history.of("C:\\1"), nullptr);
    EXPECT_EQ(history.of("C:\\1")->size(), 1U);
}

TEST(SpaceHistoryTest, TakesTenBytesAMeasure) {
    SpaceHistory history;
    for (int i = 0; i < 10'080; ++i) history.add("p", {i, 1});
    EXPECT_EQ(history.bytes(), 100'800U);
}

TEST(FullEstimate, IsSaidInTheUnitThatFits) {
    EXPECT_EQ(fullText(std::nullopt), "");
    EXPECT_EQ(fullText(20.4 * 60), "full in about 20 minutes");
    EXPECT_EQ(fullText(62), "full in about 1 minute");
    EXPECT_EQ(fullText(7199), "full in about 120 minutes");
    EXPECT_EQ(fullText(7200), "full in about 2 hours");
    EXPECT_EQ(fullText(47.6 * 3600), "full in about 48 hours");
    EXPECT_EQ(fullText(48 * 3600), "full in about 2 days");
    EXPECT_EQ(fullText(3.2 * 86400), "full in about 3 days");
}

}  // namespace
}  // namespace velmora::tests
