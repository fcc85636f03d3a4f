// The canvas of the glyphs: a square of 24 x 24 units with a pen whose lines are aligned to pixels.
#pragma once

#include <QPainter>
#include <QPainterPath>
#include <initializer_list>

#include "qt/icons/glyph_colours.h"

namespace velmora::qt {

class GlyphCanvas {
  public:
    static constexpr double units = 24;

    /// The canvas is the largest square in the middle of `size`, which is in pixels of the device
    /// that `painter` paints on.
    GlyphCanvas(QPainter& painter, const QSize& size, const GlyphColours& colours);

    const QColor& ink() const { return colours_.ink; }
    const QColor& accent() const { return colours_.accent; }
    const QColor& good() const { return colours_.good; }
    const QColor& alert() const { return colours_.alert; }
    /// The accent in a paler tone, for the inside of an outline.
    QColor tint() const;

    /// The place next to this one where level and upright lines are sharp.
    QPointF sharp(const QPointF& point) const;

    /// A line along the path, `weight` times as thick as usual.
    void stroke(const QPainterPath& path, const QColor& colour, double weight = 1);
    void stroke(std::initializer_list<QPointF> points, const QColor& colour, double weight = 1);
    /// The same with every point made sharp: for lines that are level or upright.
    void ruled(std::initializer_list<QPointF> points, const QColor& colour);
    void fill(const QPainterPath& path, const QColor& colour);

    /// Shapes with sharp edges; `radius` is that of the corners.
    void frame(const QRectF& rect, double radius, const QColor& colour);
    void block(const QRectF& rect, double radius, const QColor& colour);

    void ring(const QPointF& centre, double radius, const QColor& colour);
    void disc(const QPointF& centre, double radius, const QColor& colour);

    /// Erases what was drawn inside the path, or along it.
    void cut(const QPainterPath& path);
    void cutLine(const QPainterPath& path, double weight = 1);

  private:
    double sharp(double value) const;
    double edge(double value) const;
    QPen pen(const QColor& colour, double weight) const;

    QPainter& painter_;
    GlyphColours colours_;
    double scale_;  ///< pixels a unit
    double line_;   ///< thickness of a line in pixels
};

/// A path through the points; closed when its last point is its first.
QPainterPath pathThrough(std::initializer_list<QPointF> points);
QPainterPath circle(const QPointF& centre, double radius);

}  // namespace velmora::qt
