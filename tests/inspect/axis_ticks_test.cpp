#include "inspect/charts/axis_ticks.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora::tests {
namespace {

using Marks = std::vector<double>;

TEST(AxisTicks, StepsAreOneTwoOrFiveTimesAPowerOfTen) {
    EXPECT_EQ(axisTicks(1000, 6), (Marks{0, 200, 400, 600, 800, 1000}));
    EXPECT_EQ(axisTicks(1001, 6), (Marks{0, 500, 1000, 1500}));
    EXPECT_EQ(axisTicks(1953497088, 6), (Marks{0, 5E8, 1E9, 15E8, 2E9}));
    EXPECT_EQ(axisTicks(70, 9), (Marks{0, 10, 20, 30, 40, 50, 60, 70}));
    EXPECT_EQ(axisTicks(95, 3), (Marks{0, 50, 100}));
}

TEST(AxisTicks, TheLastMarkIsTheFirstThatIsNotBelowTheGreatestValue) {
    EXPECT_EQ(axisTicks(40, 5), (Marks{0, 10, 20, 30, 40}));
    EXPECT_EQ(axisTicks(41, 6), (Marks{0, 10, 20, 30, 40, 50}));
    EXPECT_EQ(axisTicks(41, 5), (Marks{0, 20, 40, 60}));
}

TEST(AxisTicks, MarksAreWholeNumbers) {
    EXPECT_EQ(axisTicks(3, 20), (Marks{0, 1, 2, 3}));
    EXPECT_EQ(axisTicks(0.4, 20), (Marks{0, 1}));
}

TEST(AxisTicks, ThereAreAtLeastTwo) {
    EXPECT_EQ(axisTicks(70, 2), (Marks{0, 100}));
    EXPECT_EQ(axisTicks(70, 1), (Marks{0, 100}));
    EXPECT_EQ(axisTicks(70, -5), (Marks{0, 100}));
}

TEST(AxisTicks, AValueWithoutALengthCountsAsOne) {
    for (const double value : {0.0, -7.0, std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(axisTicks(value, 5), (Marks{0, 1})) << value;
    }
}

TEST(AxisTicks, NeverMoreThanWanted) {
    for (double greatest = 1; greatest < 1E16; greatest *= 3.7) {
        for (int most = 2; most < 12; ++most) {
            const Marks marks = axisTicks(greatest, most);
            EXPECT_LE(marks.size(), static_cast<std::size_t>(most)) << greatest;
            EXPECT_GE(marks.back(), greatest);
            EXPECT_LT(marks[marks.size() - 2], greatest);
        }
    }
}

}  // namespace
}  // namespace velmora::tests
