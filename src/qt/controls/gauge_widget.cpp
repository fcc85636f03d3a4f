#include "qt/controls/gauge_widget.h"

#include <QPainter>

#include "qt/colours/colours.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

constexpr int columnWidth = 26;
constexpr int columnMargin = 3;
constexpr int captionGap = 3;
constexpr int leastSegment = 3;  // pixels, with the line that separates it from the next

}  // namespace

GaugeWidget::GaugeWidget(Meter2& field, QWidget* parent) : QProgressBar(parent) {
    setOrientation(Qt::Vertical);
    setRange(field.Min(), field.Max());
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    bindField(this, field, [this, &field] { refresh(field); });
}

void GaugeWidget::refresh(const Meter2& field) {
    const QString caption = shown(field.Label1());
    const bool hasBorder = field.Border() != 0;
    if (caption == caption_ && field.Shape2() == colours_ && hasBorder == hasBorder_) return;
    caption_ = caption;
    colours_ = field.Shape2();
    hasBorder_ = hasBorder;
    setValue(field.Level());
    update();
}

QSize GaugeWidget::sizeHint() const {
    return {
        std::max(columnWidth + 2 * columnMargin,
                 fontMetrics().horizontalAdvance(QStringLiteral("100%")) + 4),
        Meter2::segments * leastSegment + 2 * columnMargin + captionGap + fontMetrics().height()};
}

QRectF GaugeWidget::column() const {
    const double height = this->height() - captionGap - fontMetrics().height();
    return {(width() - columnWidth) / 2.0 - columnMargin, 0, columnWidth + 2.0 * columnMargin,
            height};
}

QRectF GaugeWidget::segment(int number) const {
    const QRectF inside =
        column().adjusted(columnMargin, columnMargin, -columnMargin, -columnMargin);
    const double height = inside.height() / Meter2::segments;
    return {inside.left(), inside.bottom() - (number + 1) * height, inside.width(), height};
}

// The ground is black, so that the colours of the segments are the same on every desktop.
void GaugeWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasBorder_ ? QPen(palette().color(QPalette::WindowText)) : QPen(Qt::NoPen));
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(column().adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (int i = 0; i < Meter2::segments; ++i) {
        const QColor colour = shownColour(colours_[static_cast<std::size_t>(i)], palette());
        painter.fillRect(segment(i).adjusted(0, 1, 0, 0), colour);
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignHCenter | Qt::AlignBottom, caption_);
}

}  // namespace velmora::qt
