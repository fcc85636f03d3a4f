#include "qt/controls/lamps_widget.h"

#include <QPainter>

#include "qt/colours/colours.h"
#include "qt/surface/field.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

constexpr double lampWidth = 9;
constexpr double lampHeight = 14;
constexpr double lampGap = 2;
constexpr double panelMargin = 4;
constexpr double panelWidth = CtlDigital::lamps * (lampWidth + lampGap) - lampGap + 2 * panelMargin;
constexpr double panelHeight = lampHeight + 2 * panelMargin;
constexpr int lampCaptionGap = 6;

}  // namespace

LampsWidget::LampsWidget(CtlDigital& field, QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    colours_.fill(1);
    bindField(this, field, [this, &field] { refresh(field); });
}

void LampsWidget::refresh(const CtlDigital& field) {
    std::array<Colour, CtlDigital::lamps> colours{};
    for (int i = 1; i <= CtlDigital::lamps; ++i) {
        colours[static_cast<std::size_t>(i) - 1] = field.picLED(i);
    }
    const QString caption =
        (shown(field.txtSpeed()) + QLatin1Char(' ') + QLatin1String(CtlDigital::Label1)).trimmed();
    if (colours == colours_ && caption == caption_) return;
    if (caption != caption_) updateGeometry();
    colours_ = colours;
    caption_ = caption;
    setAccessibleDescription(
        QStringLiteral("%1, %2 of %3 lamps").arg(caption).arg(field.litLamps()).arg(field.lamps));
    update();
}

QSize LampsWidget::sizeHint() const {
    return {static_cast<int>(panelWidth) + lampCaptionGap +
                fontMetrics().horizontalAdvance(caption_) + 2,
            std::max(static_cast<int>(panelHeight), fontMetrics().height())};
}

QRectF LampsWidget::lamp(int number) const {
    return {panelMargin + (number - 1) * (lampWidth + lampGap), (height() - lampHeight) / 2,
            lampWidth, lampHeight};
}

// An unlit lamp is black: the panel is a little lighter, so that it can be seen.
void LampsWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(58, 62, 66));
    painter.drawRoundedRect(QRectF(0, (height() - panelHeight) / 2, panelWidth, panelHeight), 4, 4);
    for (int i = 1; i <= CtlDigital::lamps; ++i) {
        painter.setBrush(shownColour(colours_[static_cast<std::size_t>(i) - 1], palette()));
        painter.drawRoundedRect(lamp(i), 2, 2);
    }
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect().adjusted(static_cast<int>(panelWidth) + lampCaptionGap, 0, 0, 0),
                     Qt::AlignVCenter | Qt::AlignLeft, caption_);
}

}  // namespace velmora::qt
