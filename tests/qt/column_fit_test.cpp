// Widths of a list's columns.
#include "qt/controls/column_fit.h"

#include <gtest/gtest.h>

namespace velmora::tests {
namespace {

using Widths = std::vector<int>;
using qt::fittedWidths;

TEST(ColumnFit, OneColumnTakesTheRest) {
    EXPECT_EQ(fittedWidths({{50, 20}, {100, 40}, {60, 30}}, 400, 0, 0.35), (Widths{240, 100, 60}));
    EXPECT_EQ(fittedWidths({{50, 20}, {100, 40}, {60, 30}}, 400, 2, 0.35), (Widths{50, 100, 250}));
    EXPECT_EQ(fittedWidths({{50, 20}, {100, 40}}, 400, -1, 0.35), (Widths{50, 100}));
}

TEST(ColumnFit, AnEmptyColumnTakesNone) {
    EXPECT_EQ(fittedWidths({{50, 20}, {100, 40, true}, {60, 30}}, 400, 0, 0.35),
              (Widths{340, 0, 60}));
}

TEST(ColumnFit, TheStretchedOneKeepsItsShareAndTheLastOnesShrinkFirst) {
    // 140 of 400 stay for the first one, which wants more.
    EXPECT_EQ(fittedWidths({{300, 20}, {100, 40}, {100, 40}, {100, 50}}, 400, 0, 0.35),
              (Widths{140, 100, 100, 60}));
    EXPECT_EQ(fittedWidths({{300, 20}, {150, 40}, {100, 40}, {100, 50}}, 400, 0, 0.35),
              (Widths{140, 150, 60, 50}));
}

TEST(ColumnFit, TheShareIsKeptAlsoWhereLessIsWanted) {
    EXPECT_EQ(fittedWidths({{80, 20}, {150, 40}, {150, 40}}, 400, 0, 0.35),
              (Widths{140, 150, 110}));
    EXPECT_EQ(fittedWidths({{80, 20}, {150, 40}, {100, 40}}, 400, 0, 0.35),
              (Widths{150, 150, 100}));
}

TEST(ColumnFit, NoHeadingIsCutHoweverNarrowTheRoom) {
    EXPECT_EQ(fittedWidths({{300, 90}, {100, 60}, {100, 60}}, 100, 0, 0.35), (Widths{90, 60, 60}));
    EXPECT_EQ(fittedWidths({{50, 20}, {100, 40}}, 80, -1, 0.35), (Widths{50, 100}));
    EXPECT_EQ(fittedWidths({{10, 90}, {10, 60}}, 500, -1, 0), (Widths{90, 60}));
}

TEST(ColumnFit, IsTightWhereAColumnHasLessThanItWants) {
    const std::vector<qt::ColumnNeed> needs{{300, 20}, {100, 40}, {60, 30, true}};
    EXPECT_FALSE(qt::isTight(needs, {140, 100, 0}, 240, 0));
    EXPECT_TRUE(qt::isTight(needs, {140, 99, 0}, 240, 0));
    EXPECT_TRUE(qt::isTight(needs, {141, 100, 0}, 240, 0));
    EXPECT_TRUE(qt::isTight(needs, {140, 100, 0}, 240, -1));
    EXPECT_FALSE(qt::isTight({}, {}, 0, -1));
}

}  // namespace
}  // namespace velmora::tests
