// What a chart shows, as a copy of its field: a view paints it at any time, and compares two of
// them to know whether anything has changed.
#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <vector>

#include "base/regional.h"
#include "controls/chart.h"
#include "qt/surface/text_table.h"

namespace velmora::qt {

struct ChartData {
    bool isPie = false;  ///< the first row as a pie; otherwise each row as a group of bars
    bool showLegend = false;
    QStringList rows = {};
    QStringList columns = {};
    std::vector<std::vector<double>> values = {};  ///< by row and column, in KB
    std::array<QString, 2> axisTitles = {};        ///< of the rows, of the values

    bool operator==(const ChartData&) const = default;
    /// Whether there is anything to show.
    bool isEmpty() const { return rows.isEmpty() || columns.isEmpty(); }
};

ChartData chartDataOf(const Chart& chart);

/// The values of a chart as a table: a line for each row, or for each part of a pie with its share.
/// Numbers are written in the regional form, with or without a mark between groups of digits.
TextTable tableOf(const ChartData& data, const Regional& regional, bool grouped);
/// Lines of texts with tabs between them, as spreadsheets take them.
QString tabSeparated(const TextTable& table);

/// A number of kilobytes, rounded, with its unit.
QString kilobytes(double value, const Regional& regional);
/// The part of a whole as percent with one decimal.
QString share(double value, double whole, const Regional& regional);
/// The sum of the values of a pie; what is below 0 counts as 0.
double wholeOf(const std::vector<double>& values);

}  // namespace velmora::qt
