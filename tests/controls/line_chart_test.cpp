#include "controls/line_chart.h"

#include <gtest/gtest.h>

#include "controls/control_properties.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

struct LineChartTest : testing::Test {
    Form form{"frmHistory"};
    LineChart chart{form, "chtHistory"};
};

TEST_F(LineChartTest, BeginsWithoutALine) {
    EXPECT_EQ(get(chart, chart.mainProperty()), "0");
    EXPECT_EQ(get(chart, "PointCount"), "0");
    EXPECT_EQ(get(chart, "Names"), "");
    EXPECT_EQ(get(chart, "Levels"), "");
    EXPECT_TRUE(chart.table()->empty());
}

TEST_F(LineChartTest, TellsItsLinesTheirLevelsAndPoints) {
    Count changes(chart.Changed);
    chart.show({{"C:\\", {{-60, 1000}, {0, 900.5}}, 200}, {"D:\\", {{0, 7}}, {}}});
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(get(chart, chart.mainProperty()), "2");
    EXPECT_EQ(get(chart, "PointCount"), "3");
    EXPECT_EQ(get(chart, "Names"), "C:\\; D:\\");
    EXPECT_EQ(get(chart, "Levels"), "200; none");
    for (const char* name : {"LineCount", "PointCount", "Names", "Levels"}) {
        EXPECT_TRUE(readOnly(chart, name)) << name;
    }
    const Control::Table table = *chart.table();
    ASSERT_EQ(table.size(), 3U);
    const auto row = [&table](std::size_t index) {
        std::string all;
        for (const auto& [name, value] : table[index]) all += name + "=" + textOf(value) + " ";
        return all;
    };
    EXPECT_EQ(row(0), "Line=C:\\ Seconds=-60 Value=1000 ");
    EXPECT_EQ(row(1), "Line=C:\\ Seconds=0 Value=900.5 ");
    EXPECT_EQ(row(2), "Line=D:\\ Seconds=0 Value=7 ");
}

}  // namespace
}  // namespace velmora::tests
