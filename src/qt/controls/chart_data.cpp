#include "qt/controls/chart_data.h"

#include <algorithm>

#include "base/convert.h"
#include "base/format_number.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

QString number(double value, const Regional& regional, bool grouped) {
    return shown(grouped ? FormatNumber(value, 0, Grouping::regional, regional)
                         : toText(value, regional));
}

// A cell is one word between tabs.
QString cellText(QString text) {
    for (const char separator : {'\t', '\r', '\n'}) text.replace(QLatin1Char(separator), ' ');
    return text;
}

TextTable tableOfPie(const ChartData& data, const Regional& regional, bool grouped) {
    const std::vector<double>& values = data.values.front();
    const double whole = wholeOf(values);
    TextTable table{{QStringLiteral("Name"), QStringLiteral("KB"), QStringLiteral("Share")}, {}};
    for (qsizetype i = 0; i < data.columns.size(); ++i) {
        const double value = values[static_cast<std::size_t>(i)];
        table.rows.push_back(
            {data.columns[i], number(value, regional, grouped), share(value, whole, regional)});
    }
    return table;
}

}  // namespace

ChartData chartDataOf(const Chart& chart) {
    ChartData data{.isPie = chart.chartType() == chart_type::pie2D,
                   .showLegend = chart.ShowLegend(),
                   .axisTitles = {{shown(chart.AxisTitle(0)), shown(chart.AxisTitle(1))}}};
    for (int i = 1; i <= chart.ColumnCount(); ++i) data.columns << shown(chart.columnLabel(i));
    for (int row = 1; row <= chart.RowCount(); ++row) {
        data.rows << shown(chart.rowLabel(row));
        std::vector<double>& values = data.values.emplace_back();
        for (int i = 1; i <= chart.ColumnCount(); ++i) values.push_back(chart.data(row, i));
    }
    return data;
}

TextTable tableOf(const ChartData& data, const Regional& regional, bool grouped) {
    if (data.isEmpty()) return {};
    if (data.isPie) return tableOfPie(data, regional, grouped);
    TextTable table;
    table.headings << data.axisTitles[0];
    for (const QString& column : data.columns) table.headings << column + QStringLiteral(" (KB)");
    for (qsizetype i = 0; i < data.rows.size(); ++i) {
        QStringList& cells = table.rows.emplace_back(QStringList{data.rows[i]});
        for (const double value : data.values[static_cast<std::size_t>(i)]) {
            cells << number(value, regional, grouped);
        }
    }
    return table;
}

QString tabSeparated(const TextTable& table) {
    QString text;
    const auto addLine = [&text](const QStringList& cells) {
        QStringList line;
        for (const QString& cell : cells) line << cellText(cell);
        text += line.join(QLatin1Char('\t')) + QLatin1Char('\n');
    };
    if (!table.headings.isEmpty()) addLine(table.headings);
    for (const QStringList& row : table.rows) addLine(row);
    return text;
}

QString kilobytes(double value, const Regional& regional) {
    return number(value, regional, true) + QStringLiteral(" KB");
}

QString share(double value, double whole, const Regional& regional) {
    const double part = whole > 0 ? std::max(value, 0.0) / whole * 100 : 0;
    return shown(FormatNumber(part, 1, Grouping::regional, regional)) + QStringLiteral(" %");
}

double wholeOf(const std::vector<double>& values) {
    double sum = 0;
    for (const double value : values) sum += std::max(value, 0.0);
    return sum;
}

}  // namespace velmora::qt
