#include "qt/icons/glyph_canvas.h"

#include <algorithm>
#include <cmath>

namespace velmora::qt {
namespace {

constexpr double lineUnits = 1.8;

/// A line below two pixels may be blurred a little, rather than too thin or too thick.
double thickness(double scale) {
    const double exact = lineUnits * scale;
    return exact < 1.45 ? std::max(1.0, exact) : std::round(exact);
}

bool isOdd(double thickness) {
    return std::lround(thickness) % 2 != 0;
}

}  // namespace

GlyphCanvas::GlyphCanvas(QPainter& painter, const QSize& size, const GlyphColours& colours)
    : painter_(painter), colours_(colours) {
    const int side = std::min(size.width(), size.height());
    scale_ = side / units;
    line_ = thickness(scale_);
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.translate((size.width() - side) / 2, (size.height() - side) / 2);
    painter_.scale(scale_, scale_);
}

QColor GlyphCanvas::tint() const {
    QColor thin = colours_.accent;
    thin.setAlphaF(0.3F);
    return thin;
}

double GlyphCanvas::sharp(double value) const {
    // The middle of an odd number of pixels lies in a pixel, that of an even one between two.
    const double middle = isOdd(line_) ? 0.5 : 0;
    return (std::round(value * scale_ - middle) + middle) / scale_;
}

QPointF GlyphCanvas::sharp(const QPointF& point) const {
    return {sharp(point.x()), sharp(point.y())};
}

double GlyphCanvas::edge(double value) const {
    return std::round(value * scale_) / scale_;
}

QPen GlyphCanvas::pen(const QColor& colour, double weight) const {
    return {colour, line_ / scale_ * weight, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void GlyphCanvas::stroke(const QPainterPath& path, const QColor& colour, double weight) {
    painter_.strokePath(path, pen(colour, weight));
}

void GlyphCanvas::stroke(std::initializer_list<QPointF> points, const QColor& colour,
                         double weight) {
    stroke(pathThrough(points), colour, weight);
}

void GlyphCanvas::ruled(std::initializer_list<QPointF> points, const QColor& colour) {
    QPainterPath path(sharp(*points.begin()));
    for (const QPointF& point : points) path.lineTo(sharp(point));
    stroke(path, colour);
}

void GlyphCanvas::fill(const QPainterPath& path, const QColor& colour) {
    painter_.fillPath(path, colour);
}

void GlyphCanvas::frame(const QRectF& rect, double radius, const QColor& colour) {
    QPainterPath path;
    path.addRoundedRect({sharp(rect.topLeft()), sharp(rect.bottomRight())}, radius, radius);
    stroke(path, colour);
}

void GlyphCanvas::block(const QRectF& rect, double radius, const QColor& colour) {
    const QPointF first(edge(rect.left()), edge(rect.top()));
    const QPointF last(edge(rect.right()), edge(rect.bottom()));
    QPainterPath path;
    path.addRoundedRect({first, last}, radius, radius);
    fill(path, colour);
}

void GlyphCanvas::ring(const QPointF& centre, double radius, const QColor& colour) {
    stroke(circle(centre, radius), colour);
}

void GlyphCanvas::disc(const QPointF& centre, double radius, const QColor& colour) {
    fill(circle(centre, radius), colour);
}

void GlyphCanvas::cut(const QPainterPath& path) {
    painter_.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    fill(path, Qt::black);
    painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void GlyphCanvas::cutLine(const QPainterPath& path, double weight) {
    painter_.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    stroke(path, Qt::black, weight);
    painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

QPainterPath pathThrough(std::initializer_list<QPointF> points) {
    QPainterPath path(*points.begin());
    std::for_each(points.begin() + 1, points.end(), [&path](auto& point) { path.lineTo(point); });
    // A path that is closed has a corner there instead of two ends.
    if (*points.begin() == *(points.end() - 1)) path.closeSubpath();
    return path;
}

QPainterPath circle(const QPointF& centre, double radius) {
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    return path;
}

}  // namespace velmora::qt
