#include "qt/controls/chart_layout.h"

#include <algorithm>
#include <cmath>

#include "qt/controls/chart_data.h"

namespace velmora::qt {

namespace {

constexpr double rowGap = 6;
constexpr double barGap = 2;
constexpr double leastBar = 6;
constexpr double mostLines = 3.2;  // height of a row by lines of its label
constexpr double fullTurn = 360;

double rowHeight(int rows, int columns, const BarRoom& room) {
    const double least =
        std::max(room.lineHeight, columns * leastBar + (columns - 1) * barGap) + rowGap;
    const double most = std::max(least, mostLines * room.lineHeight);
    return std::clamp(std::floor(room.size.height() / rows), std::ceil(least), std::ceil(most));
}

}  // namespace

std::vector<BarRow> layBarRows(int rows, int columns, const BarRoom& room) {
    std::vector<BarRow> all;
    if (rows < 1 || columns < 1) return all;
    const double height = rowHeight(rows, columns, room);
    const double bar = (height - rowGap - (columns - 1) * barGap) / columns;
    const double left = room.labelWidth + barLabelGap;
    const double width = std::max(0.0, room.size.width() - left);
    for (int i = 0; i < rows; ++i) {
        const double top = i * height;
        BarRow& row = all.emplace_back();
        row.all = {0, top, room.size.width(), height};
        row.label = {0, top + rowGap / 2, room.labelWidth, height - rowGap};
        for (int c = 0; c < columns; ++c) {
            row.bars.emplace_back(left, top + rowGap / 2 + c * (bar + barGap), width, bar);
        }
    }
    return all;
}

std::vector<Wedge> layWedges(const std::vector<double>& values) {
    std::vector<Wedge> wedges;
    const double whole = wholeOf(values);
    if (!(whole > 0)) return wedges;
    double before = 0;
    for (const double value : values) {
        const double part = std::max(value, 0.0);
        wedges.push_back({before / whole * fullTurn, part / whole * fullTurn});
        before += part;
    }
    return wedges;
}

int wedgeAt(const std::vector<Wedge>& wedges, const QPointF& place, double radius) {
    if (std::hypot(place.x(), place.y()) > radius) return -1;
    constexpr double pi = 3.14159265358979323846;
    double angle = std::atan2(place.x(), -place.y()) * fullTurn / 2 / pi;
    if (angle < 0) angle += fullTurn;
    for (std::size_t i = 0; i < wedges.size(); ++i) {
        if (angle >= wedges[i].start && angle < wedges[i].start + wedges[i].span) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

}  // namespace velmora::qt
