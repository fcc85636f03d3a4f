#include "qt/controls/picture_widget.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "qt/colours/colours.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

constexpr double designLine = 13;  // height of a line of the design's font, in pixels

// Degrees in the direction of a clock, from the top to the end of a wedge.
double turnTo(const DrawnShape& wedge) {
    constexpr double pi = 3.14159265358979323846;
    const double x = wedge.endX - (wedge.left + wedge.right) / 2;
    const double y = wedge.endY - (wedge.top + wedge.bottom) / 2;
    const double turn = std::atan2(x, -y) * 180 / pi;
    return turn <= 0 ? turn + 360 : turn;
}

QString describedBy(const DrawnPicture& field) {
    QStringList words;
    for (const std::string& text : {field.Title(), field.Second()}) {
        if (!text.empty()) words << shown(text);
    }
    for (const DrawnShape& shape : field.shapes()) {
        const QString text = shown(shape.text);
        if (!text.isEmpty() && !words.contains(text)) words << text;
    }
    return words.join(QStringLiteral(", "));
}

}  // namespace

PictureWidget::PictureWidget(DrawnPicture& field, QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    bindField(this, field, [this, &field] { refresh(field); });
}

void PictureWidget::refresh(const DrawnPicture& field) {
    setAccessibleDescription(describedBy(field));
    if (shapes_ == field.shapes()) return;
    shapes_ = field.shapes();
    updateGeometry();
    update();
}

double PictureWidget::scale() const {
    return std::max(1.0, QFontMetricsF(font()).height() / designLine);
}

QRectF PictureWidget::boxOf(const DrawnShape& shape) const {
    const double by = scale();
    const QPointF corner(shape.left * by, shape.top * by);
    if (shape.kind == DrawnShape::Kind::text) {
        const QFontMetricsF metrics(font());
        return {corner, QSizeF(metrics.horizontalAdvance(shown(shape.text)) + 2, metrics.height())};
    }
    return {corner, QPointF(shape.right * by, shape.bottom * by)};
}

QSize PictureWidget::sizeHint() const {
    // Room for a pie that isn't drawn yet.
    constexpr double leastWidth = 230;
    constexpr double leastHeight = 121;
    QRectF all(0, 0, leastWidth * scale(), leastHeight * scale());
    for (const DrawnShape& shape : shapes_) all |= boxOf(shape);
    return {static_cast<int>(std::ceil(all.right())), static_cast<int>(std::ceil(all.bottom()))};
}

void PictureWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const DrawnShape& shape : shapes_) paintShape(painter, shape);
}

void PictureWidget::paintShape(QPainter& painter, const DrawnShape& shape) const {
    const QRectF box = boxOf(shape);
    if (shape.kind == DrawnShape::Kind::text) {
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(box, Qt::AlignLeft | Qt::AlignTop, shown(shape.text));
        return;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(
        visibleOn(palette().color(QPalette::Window), shownColour(shape.colour, palette())));
    if (shape.kind == DrawnShape::Kind::rectangle) {
        painter.drawRoundedRect(box, 2, 2);
        return;
    }
    constexpr int sixteenths = 16;
    constexpr int top = 90 * sixteenths;
    painter.drawPie(box, top, -static_cast<int>(std::lround(turnTo(shape) * sixteenths)));
}

void PictureWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) updateGeometry();
}

}  // namespace velmora::qt
