#include "inspect/charts/drive_charts.h"

#include "base/convert.h"
#include "rows/watch_row.h"

namespace velmora {

namespace {

constexpr int legendLocation = 6;
constexpr int drives = 0;  // axes by number
constexpr int sizes = 1;

}  // namespace

std::int32_t totalFreeKB(const ListView& watchList, const Regional& regional) {
    double total = 0;
    for (int i = 1; i <= watchList.Count(); ++i) {
        const ConstWatchRow row(watchList.ListItems(i));
        if (!row.isAvailable()) continue;
        // There are drives of more than 2 TB.
        total = withinLong(total + withinLong(roundTiesToEven(row.freeKB(regional))));
    }
    return static_cast<std::int32_t>(total);
}

std::string distributionCaption(std::int32_t totalKB) {
    constexpr std::int32_t mostKB = 1000;
    const std::string caption = "Total Free Space Distribution ";
    if (totalKB <= mostKB) return caption + "(KB): " + toText(std::int64_t{totalKB});
    return caption + "(MB): " + toText(std::int64_t{toLong(totalKB / 1000.0)});
}

void DriveCharts::show(Chart& chart) {
    constexpr int beside = 2500;  // twips
    constexpr int below = 1800;
    for (Chart& each : form_.MSChart1) each.setVisible(&each == &chart);
    Bounds bounds = chart.bounds();
    bounds.Width = form_.Width() - beside;
    bounds.Height = form_.Height() - below;
    chart.setBounds(bounds);
    chart.setShowLegend(true);
}

void DriveCharts::prcDriveChart() {
    Chart& chart = form_.MSChart1[0];
    show(chart);
    chart.setRowCount(watchList_.Count());
    chart.setColumnCount(2);
    chart.setAxisTitle(sizes, "Free Space MB");
    chart.setAxisTitle(drives, "Drive/Path");
    for (int i = 1; i <= watchList_.Count(); ++i) {
        const ConstWatchRow row(watchList_.ListItems(i));
        chart.setRow(i);
        chart.setRowLabel(row.path());
        chart.setLegendLocation(legendLocation);
        chart.setColumn(1);
        chart.setColumnLabel("Free Space");
        chart.setData(row.isAvailable() ? row.freeKB(regional_) : 0);
        chart.setColumn(2);
        chart.setColumnLabel("Total Space");
        chart.setData(row.isAvailable() ? row.totalKB(regional_) : 0);
    }
    chart.setChartType(chart_type::bars2D);
}

void DriveCharts::prcDistributionChart() {
    Chart& chart = form_.MSChart1[1];
    show(chart);
    chart.setRowCount(1);
    chart.setColumnCount(watchList_.Count());
    chart.setChartType(chart_type::pie2D);
    chart.setRow(1);
    for (int i = 1; i <= watchList_.Count(); ++i) {
        const ConstWatchRow row(watchList_.ListItems(i));
        chart.setColumn(i);
        chart.setColumnLabel(row.path());
        chart.setData(row.isAvailable() ? row.freeKB(regional_) : 0);
    }
    chart.setRowLabel(distributionCaption(totalFreeKB(watchList_, regional_)));
}

}  // namespace velmora
