#include "qt/icons/glyph_drawings.h"

namespace velmora::qt {
namespace {

/// A star of four points whose sides bend inwards.
QPainterPath sparkle(const QPointF& centre, double radius) {
    const double x = centre.x();
    const double y = centre.y();
    const double waist = radius * 0.16;
    QPainterPath path({x, y - radius});
    path.quadTo(x + waist, y - waist, x + radius, y);
    path.quadTo(x + waist, y + waist, x, y + radius);
    path.quadTo(x - waist, y + waist, x - radius, y);
    path.quadTo(x - waist, y - waist, x, y - radius);
    return path;
}

void drawWindow(GlyphCanvas& canvas) {
    canvas.frame({3, 3.5, 18, 17}, 2.5, canvas.ink());
    canvas.ruled({{3, 8}, {21, 8}}, canvas.ink());
}

}  // namespace

void drawStart(GlyphCanvas& canvas) {
    const QPainterPath triangle = pathThrough({{7, 4.5}, {19.5, 12}, {7, 19.5}, {7, 4.5}});
    canvas.fill(triangle, canvas.good());
    canvas.stroke(triangle, canvas.good());
}

void drawPause(GlyphCanvas& canvas) {
    canvas.block({5.8, 4.5, 4.4, 15}, 1.2, canvas.accent());
    canvas.block({13.8, 4.5, 4.4, 15}, 1.2, canvas.accent());
}

void drawWizard(GlyphCanvas& canvas) {
    canvas.stroke({{3.6, 20.4}, {11.4, 12.6}}, canvas.ink(), 1.35);
    canvas.fill(sparkle({15.4, 8.6}, 6.6), canvas.accent());
    canvas.fill(sparkle({6.2, 6.4}, 3.4), canvas.accent());
    canvas.fill(sparkle({18.6, 18.2}, 3.4), canvas.accent());
}

void drawFunctions(GlyphCanvas& canvas) {
    canvas.frame({3.5, 3.5, 6.5, 6.5}, 1.4, canvas.ink());
    canvas.frame({3.5, 14, 6.5, 6.5}, 1.4, canvas.ink());
    canvas.frame({14, 14, 6.5, 6.5}, 1.4, canvas.ink());
    canvas.block({13.5, 3, 7.5, 7.5}, 1.6, canvas.accent());
}

void drawMenu(GlyphCanvas& canvas) {
    for (const double y : {6.0, 12.0, 18.0}) canvas.ruled({{4, y}, {20, y}}, canvas.ink());
}

// A window in front of another, which shows through.
void drawTranslucent(GlyphCanvas& canvas) {
    canvas.frame({3.5, 3.5, 11, 11}, 1.8, canvas.ink());
    canvas.block({9, 9, 12, 12}, 2, canvas.tint());
    canvas.frame({9, 9, 11.5, 11.5}, 1.8, canvas.accent());
}

void drawViewLess(GlyphCanvas& canvas) {
    drawWindow(canvas);
    const QPointF tip = canvas.sharp({12, 12.2});
    canvas.stroke({tip + QPointF(-4, 4), tip, tip + QPointF(4, 4)}, canvas.accent(), 1.2);
}

void drawViewMore(GlyphCanvas& canvas) {
    drawWindow(canvas);
    const QPointF tip = canvas.sharp({12, 16.4});
    canvas.stroke({tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)}, canvas.accent(), 1.2);
}

void drawHelp(GlyphCanvas& canvas) {
    const QPointF centre = canvas.sharp({12, 12});
    canvas.ring(centre, 9, canvas.ink());
    QPainterPath mark;
    mark.arcMoveTo(QRectF(-3, -5.4, 6, 6), 170);
    mark.arcTo(QRectF(-3, -5.4, 6, 6), 170, -215);
    mark.cubicTo(1.1, 1, 0, 0.6, 0, 2.2);
    canvas.stroke(mark.translated(centre), canvas.accent());
    canvas.disc(centre + QPointF(0, 5.2), 1.25, canvas.accent());
}

void drawExit(GlyphCanvas& canvas) {
    canvas.ruled({{12.5, 3.5}, {4.5, 3.5}, {4.5, 20.5}, {12.5, 20.5}}, canvas.ink());
    const QPointF tip = canvas.sharp({21, 12});
    canvas.stroke({tip, tip - QPointF(11, 0)}, canvas.accent());
    canvas.stroke({tip + QPointF(-4, -4), tip, tip + QPointF(-4, 4)}, canvas.accent());
}

}  // namespace velmora::qt
