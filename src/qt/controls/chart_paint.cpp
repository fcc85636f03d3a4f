#include "qt/controls/chart_paint.h"

#include <QFontMetricsF>

namespace velmora::qt {

namespace {

QColor blend(const QColor& ground, const QColor& ink, float part) {
    const auto mix = [part](float a, float b) { return a + (b - a) * part; };
    return QColor::fromRgbF(mix(ground.redF(), ink.redF()), mix(ground.greenF(), ink.greenF()),
                            mix(ground.blueF(), ink.blueF()));
}

QColor between(const QPalette& palette, float part) {
    return blend(palette.color(QPalette::Base), palette.color(QPalette::Text), part);
}

double swatchSide(const QFont& font) {
    return QFontMetricsF(font).height() * 0.65;
}

}  // namespace

QColor quietInk(const QPalette& palette) {
    return between(palette, 0.7F);
}

QColor gridInk(const QPalette& palette) {
    return between(palette, 0.14F);
}

QColor hotGround(const QPalette& palette) {
    return between(palette, 0.07F);
}

QFont boldFont(const QFont& font) {
    QFont bold = font;
    bold.setBold(true);
    return bold;
}

void paintSwatch(QPainter& painter, const QRectF& line, const QColor& colour) {
    const double side = swatchSide(painter.font());
    const QRectF box(line.left(), line.center().y() - side / 2, side, side);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(box, 2, 2);
}

double swatchWidth(const QFont& font) {
    return swatchSide(font) + 7;
}

void paintShortened(QPainter& painter, const QRectF& box, int alignment, const QString& text) {
    const QFontMetricsF metrics(painter.font());
    painter.drawText(box, alignment | Qt::TextSingleLine,
                     metrics.elidedText(text, Qt::ElideMiddle, box.width()));
}

}  // namespace velmora::qt
