#include "controls/chart.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "controls/control_properties.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

struct ChartTest : testing::Test {
    Form form{"dlgDriveInfo"};
    Chart chart{form, "MSChart1", 0};

    void fill() {
        chart.setRowCount(2);
        chart.setColumnCount(2);
        for (int row = 1; row <= 2; ++row) {
            chart.setRow(row);
            chart.setRowLabel("row " + std::to_string(row));
            for (int column = 1; column <= 2; ++column) {
                chart.setColumn(column);
                chart.setColumnLabel("column " + std::to_string(column));
                chart.setData(row * 10 + column);
            }
        }
    }
};

TEST_F(ChartTest, BeginsEmpty) {
    EXPECT_EQ(chart.RowCount(), 0);
    EXPECT_EQ(chart.ColumnCount(), 0);
    EXPECT_FALSE(chart.ShowLegend());
    EXPECT_EQ(errorOf([this] { chart.setData(1); }), error::invalidPropertyValue);
    EXPECT_EQ(errorOf([this] { chart.setRowLabel("x"); }), error::invalidPropertyValue);
    EXPECT_EQ(errorOf([this] { chart.setRow(1); }), error::invalidPropertyValue);
}

TEST_F(ChartTest, KeepsLabelsAndNumbersByRowAndColumn) {
    fill();
    EXPECT_EQ(chart.rowLabel(2), "row 2");
    EXPECT_EQ(chart.columnLabel(1), "column 1");
    EXPECT_EQ(chart.data(1, 2), 12);
    EXPECT_EQ(chart.data(2, 1), 21);
    EXPECT_EQ(errorOf([this] { chart.data(3, 1); }), error::indexOutOfBounds);
    EXPECT_EQ(errorOf([this] { chart.data(1, 0); }), error::indexOutOfBounds);
    EXPECT_EQ(errorOf([this] { chart.setColumn(3); }), error::invalidPropertyValue);
    EXPECT_EQ(errorOf([this] { chart.setRowCount(-1); }), error::invalidPropertyValue);
}

TEST_F(ChartTest, AnotherSizeKeepsWhatFits) {
    fill();
    chart.setRowCount(1);
    chart.setColumnCount(3);
    chart.setRowCount(2);
    EXPECT_EQ(chart.data(1, 2), 12);
    EXPECT_EQ(chart.data(1, 3), 0);
    EXPECT_EQ(chart.data(2, 1), 0);
    EXPECT_EQ(chart.rowLabel(2), "");
    EXPECT_EQ(chart.columnLabel(3), "");
}

TEST_F(ChartTest, ThePresentCellEndsWithItsRow) {
    fill();
    chart.setRowCount(1);  // the second was the present one
    chart.setData(99);
    EXPECT_EQ(chart.data(1, 2), 99);
}

TEST_F(ChartTest, HasTwoAxes) {
    chart.setAxisTitle(0, "Drive/Path");
    chart.setAxisTitle(1, "Free Space MB");
    EXPECT_EQ(chart.AxisTitle(0), "Drive/Path");
    EXPECT_EQ(chart.AxisTitle(1), "Free Space MB");
    EXPECT_EQ(errorOf([this] { chart.AxisTitle(2); }), error::invalidPropertyValue);
}

TEST_F(ChartTest, EveryChangeIsNoticed) {
    fill();
    const Count changes(chart.Changed);
    chart.setData(5);
    chart.setRowLabel("x");
    chart.setChartType(chart_type::pie2D);
    chart.setShowLegend(true);
    chart.setAxisTitle(0, "y");
    EXPECT_EQ(changes, 5);
}

TEST_F(ChartTest, IsATableOfItsRows) {
    fill();
    EXPECT_EQ(*chart.table(), (Control::Table{{{"RowLabel", std::string("row 1")},
                                               {"column 1", std::string("11")},
                                               {"column 2", std::string("12")},
                                               {"Data", std::string("11 12")}},
                                              {{"RowLabel", std::string("row 2")},
                                               {"column 1", std::string("21")},
                                               {"column 2", std::string("22")},
                                               {"Data", std::string("21 22")}}}));
}

TEST_F(ChartTest, ItsPropertiesCanBeReadByName) {
    fill();
    chart.setAxisTitle(1, "KB");
    chart.setShowLegend(true);
    const auto value = [this](const std::string& name) {
        for (const Property& each : chart.properties()) {
            if (each.name == name) return each.get();
        }
        return PropertyValue{std::string("none")};
    };
    EXPECT_EQ(value("RowCount"), PropertyValue{std::int64_t{2}});
    EXPECT_EQ(value("ColumnCount"), PropertyValue{std::int64_t{2}});
    EXPECT_EQ(value("chartType"), PropertyValue{std::int64_t{1}});
    EXPECT_EQ(value("ShowLegend"), PropertyValue{true});
    EXPECT_EQ(value("AxisTitle(1)"), PropertyValue{std::string("KB")});
    EXPECT_EQ(value("ColumnLabel(2)"), PropertyValue{std::string("column 2")});
    EXPECT_EQ(value("RowLabel(1)"), PropertyValue{std::string("row 1")});
}

}  // namespace
}  // namespace velmora::tests
