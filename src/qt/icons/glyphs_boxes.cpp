#include "qt/icons/glyph_drawings.h"

namespace velmora::qt {

namespace {

const QPointF boxMiddle(12, 12);
constexpr double boxRadius = 10;
constexpr double boxWeight = 1.25;

}  // namespace

void drawQuestion(GlyphCanvas& canvas) {
    canvas.disc(boxMiddle, boxRadius, canvas.accent());
    QPainterPath hook;
    hook.moveTo(9, 9.6);
    hook.cubicTo(9, 5.6, 15.2, 5.6, 15.2, 9.6);
    hook.cubicTo(15.2, 12, 12, 11.8, 12, 14.2);
    canvas.cutLine(hook, boxWeight);
    canvas.cut(circle({12, 17.4}, 1.35));
}

void drawInformation(GlyphCanvas& canvas) {
    canvas.disc(boxMiddle, boxRadius, canvas.accent());
    canvas.cut(circle({12, 7.2}, 1.4));
    canvas.cutLine(pathThrough({{12, 10.8}, {12, 17}}), boxWeight);
}

void drawCritical(GlyphCanvas& canvas) {
    canvas.disc(boxMiddle, boxRadius, canvas.alert());
    canvas.cutLine(pathThrough({{8.4, 8.4}, {15.6, 15.6}}), boxWeight);
    canvas.cutLine(pathThrough({{15.6, 8.4}, {8.4, 15.6}}), boxWeight);
}

}  // namespace velmora::qt
