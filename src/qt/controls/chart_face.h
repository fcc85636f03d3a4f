// One way to draw a chart: parts that stay in view, and parts that scroll.
#pragma once

#include <QFont>
#include <QPainter>
#include <QPalette>
#include <QRectF>
#include <QString>
#include <memory>

#include "base/regional.h"
#include "qt/controls/chart_data.h"

namespace velmora::qt {

class ChartFace {
  public:
    /// What a face paints at a time.
    struct State {
        QPalette palette;
        double scroll = 0;  ///< pixels that the scrolled part has moved up
        int hot = -1;       ///< the part under the pointer, -1 for none
    };

    ChartFace() = default;
    virtual ~ChartFace() = default;
    ChartFace(const ChartFace&) = delete;
    ChartFace& operator=(const ChartFace&) = delete;

    /// Takes a place of that size, in pixels.
    virtual void layOut(const QSizeF& room, const QFont& font) = 0;
    /// Where the scrolled part is visible, and how high it is as a whole.
    virtual QRectF window() const = 0;
    virtual double scrolledHeight() const = 0;
    virtual void paint(QPainter& painter, const State& state) const = 0;
    /// The part at a place, -1 for none.
    virtual int partAt(const QPointF& place, double scroll) const = 0;
    /// What a part shows, in words.
    virtual QString hint(int part) const = 0;
    virtual int partCount() const = 0;
};

/// Bars for the rows of a chart, with a legend above and an axis below them.
std::unique_ptr<ChartFace> makeBarFace(ChartData data, Regional regional);
/// The first row of a chart as a pie beside its legend.
std::unique_ptr<ChartFace> makePieFace(ChartData data, Regional regional);
/// A sentence, for a chart that has nothing to show.
std::unique_ptr<ChartFace> makeEmptyFace();
/// The face that such data have.
std::unique_ptr<ChartFace> makeFace(const ChartData& data, const Regional& regional);

}  // namespace velmora::qt
