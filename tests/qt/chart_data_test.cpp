// The values of a chart as tables and as lines of text.
#include "qt/controls/chart_data.h"

#include <gtest/gtest.h>

namespace velmora::tests {
namespace {

Regional withPoints() {
    return {.digitGroup = ".", .decimalPoint = ","};
}

qt::ChartData twoShares() {
    return {.isPie = true,
            .rows = {"Total"},
            .columns = {"C:\\", "a\tb\r\nc"},
            .values = {{1234.5, 8641.5}}};
}

TEST(ChartTable, NumbersAreWrittenInTheUsersForm) {
    const qt::TextTable table = qt::tableOf(twoShares(), withPoints(), true);
    EXPECT_EQ(table.headings, (QStringList{"Name", "KB", "Share"}));
    ASSERT_EQ(table.rows.size(), 2U);
    // 1234.5 of 9876 is 12.5 percent.
    EXPECT_EQ(table.rows[0], (QStringList{"C:\\", "1.235", "12,5 %"}));
    EXPECT_EQ(table.rows[1].last(), "87,5 %");
}

TEST(ChartTable, LinesHaveNoMarksInNumbersAndNoTabsInWords) {
    EXPECT_EQ(qt::tabSeparated(qt::tableOf(twoShares(), withPoints(), false)).toStdString(),
              "Name\tKB\tShare\nC:\\\t1234,5\t12,5 %\na b  c\t8641,5\t87,5 %\n");
}

TEST(ChartTable, AnEmptyChartIsAnEmptyTable) {
    EXPECT_TRUE(qt::tableOf({}, {}, true).headings.isEmpty());
    EXPECT_EQ(qt::tabSeparated(qt::tableOf({.isPie = true, .rows = {"Total"}}, {}, true)), "");
}

TEST(ChartTable, SharesOfNothingAreNone) {
    EXPECT_EQ(qt::share(0, 0, {}), "0.0 %");
    EXPECT_EQ(qt::share(-5, 10, {}), "0.0 %");
    EXPECT_EQ(qt::wholeOf({3, -5, 4}), 7);
}

}  // namespace
}  // namespace velmora::tests
