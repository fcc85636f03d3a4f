#include "qt/controls/legible_style.h"

#include <QPainter>
#include <QStyleOption>

namespace velmora::qt {

namespace {

constexpr int darkBelow = 128;
constexpr float outlineStrength = 0.55F;

bool isTick(QStyle::PrimitiveElement element) {
    return element == QStyle::PE_IndicatorCheckBox ||
           element == QStyle::PE_IndicatorItemViewItemCheck ||
           element == QStyle::PE_IndicatorRadioButton;
}

}  // namespace

void LegibleStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (!isTick(element) || option->palette.color(QPalette::Base).lightness() >= darkBelow) return;
    QColor outline = option->palette.color(QPalette::Text);
    outline.setAlphaF(outlineStrength);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(outline);
    painter->setBrush(Qt::NoBrush);
    const QRectF box = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (element == PE_IndicatorRadioButton) {
        painter->drawEllipse(box);
    } else {
        painter->drawRoundedRect(box, 2, 2);
    }
    painter->restore();
}

}  // namespace velmora::qt
