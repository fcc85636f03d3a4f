#include "qt/controls/printed_lines.h"

#include <algorithm>

#include "base/format_number.h"
#include "qt/controls/line_chart_widget.h"
#include "qt/print/paper_look.h"
#include "qt/surface/refresher.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

constexpr double leastShape = 0.3;  // height by width
constexpr double bestShape = 0.56;

class PrintedLines final : public PrintedPicture {
  public:
    PrintedLines(LineChart& chart, const Regional& regional) : widget_(chart, regional) {
        qDeleteAll(widget_.findChildren<Refresher*>());
        widget_.setPalette(paperPalette());
        widget_.setFont(paperFont());
    }

    Heights heights(double width) const override {
        return {.least = width * leastShape, .best = width * bestShape};
    }
    std::vector<double> layOut(const QSizeF& room) override {
        widget_.resize(room.toSize());
        return {room.height()};
    }
    void paint(QPainter& painter, std::size_t /*piece*/) const override { widget_.paint(painter); }

  private:
    LineChartWidget widget_;  // never shown
};

using Point = LineChart::Point;

struct Extremes {
    Point least;
    Point greatest;
};

Extremes extremesOf(const LineChart::Line& line) {
    const auto [least, greatest] = std::ranges::minmax_element(line.points, {}, &Point::value);
    return {*least, *greatest};
}

QString number(double value, const Regional& regional) {
    return shown(FormatNumber(value, 0, Grouping::regional, regional));
}

TextTable summaryOfOne(const LineChart::Line& line, const DateTime& now, const Regional& regional) {
    TextTable table{
        .headings = {QStringLiteral("Free Space"), QStringLiteral("Time"), QStringLiteral("KB")},
        .rows = {}};
    const auto add = [&](const char* name, const Point& point) {
        const DateTime time = fromSeconds(toSeconds(now) + point.seconds);
        table.rows.push_back({QString::fromLatin1(name), shown(dateText(time, regional)),
                              number(point.value, regional)});
    };
    const Extremes extremes = extremesOf(line);
    add("First measure", line.points.front());
    add("Greatest", extremes.greatest);
    add("Least", extremes.least);
    add("Last measure", line.points.back());
    if (line.level) {
        table.rows.push_back({QStringLiteral("Trigger"), {}, number(*line.level, regional)});
    }
    return table;
}

TextTable summaryOfSeveral(const std::vector<LineChart::Line>& lines, const Regional& regional) {
    TextTable table{
        .headings = {QStringLiteral("Free Space (KB)"), QStringLiteral("Greatest"),
                     QStringLiteral("Least"), QStringLiteral("Last"), QStringLiteral("Trigger")},
        .rows = {}};
    for (const LineChart::Line& line : lines) {
        const Extremes extremes = extremesOf(line);
        table.rows.push_back({shown(line.name), number(extremes.greatest.value, regional),
                              number(extremes.least.value, regional),
                              number(line.points.back().value, regional),
                              line.level ? number(*line.level, regional) : QString()});
    }
    return table;
}

}  // namespace

std::unique_ptr<PrintedPicture> printedLines(LineChart& chart, const Regional& regional) {
    return std::make_unique<PrintedLines>(chart, regional);
}

TextTable summaryOf(const LineChart& chart, const DateTime& now, const Regional& regional) {
    const std::vector<LineChart::Line>& lines = chart.lines();
    return lines.size() == 1 ? summaryOfOne(lines.front(), now, regional)
                             : summaryOfSeveral(lines, regional);
}

}  // namespace velmora::qt
