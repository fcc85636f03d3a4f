// Where the parts of a chart lie: rectangles of bars, angles of wedges.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <vector>

namespace velmora::qt {

/// Space between the labels and the bars, in pixels.
inline constexpr double barLabelGap = 10;

/// A row of a bar chart: its label, and for each column the room in which its bar lies.
struct BarRow {
    QRectF all;
    QRectF label;
    std::vector<QRectF> bars;
};

struct BarRoom {
    QSizeF size;            ///< of what is visible of the rows, in pixels
    double labelWidth = 0;  ///< pixels
    double lineHeight = 0;  ///< of the labels' font, in pixels
};

/// Rows below each other from (0, 0), as high as the room allows: none is lower than its label, so
/// that many rows are higher than the room; none is higher than a few lines.
std::vector<BarRow> layBarRows(int rows, int columns, const BarRoom& room);

/// A wedge of a pie by degrees in the direction of a clock, from the top.
struct Wedge {
    double start = 0;
    double span = 0;
};

/// The wedges of a pie; what is below 0 counts as 0. No wedges where all is 0.
std::vector<Wedge> layWedges(const std::vector<double>& values);
/// The wedge at a place, -1 for none. `place` is given from the middle of the pie.
int wedgeAt(const std::vector<Wedge>& wedges, const QPointF& place, double radius);

}  // namespace velmora::qt
