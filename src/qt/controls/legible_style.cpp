#include "qt/controls/legible_style.h"

#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "qt/colours/identity.h"
#include "qt/icons/glyph.h"

namespace velmora::qt {

namespace {

constexpr double fieldCorner = 2;
constexpr double boldPart = 1.15;  // of the width of plain letters

bool isTick(QStyle::PrimitiveElement element) {
    return element == QStyle::PE_IndicatorCheckBox ||
           element == QStyle::PE_IndicatorItemViewItemCheck ||
           element == QStyle::PE_IndicatorRadioButton;
}

bool isFrame(QStyle::PrimitiveElement element) {
    return element == QStyle::PE_Frame || element == QStyle::PE_FrameLineEdit;
}

QRectF innerEdge(const QRect& rect) {
    return QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
}

// What has the focus has the colour of selections around it.
void drawRim(QPainter* painter, const QStyleOption* option, double rounding) {
    const bool hasFocus = (option->state & QStyle::State_HasFocus) != 0;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(hasFocus ? option->palette.color(QPalette::Highlight)
                             : rimColour(option->palette));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(innerEdge(option->rect), rounding, rounding);
    painter->restore();
}

QColor faceOf(const QStyleOptionButton& button) {
    constexpr int pressed = 115;  // percent
    constexpr int under = 106;
    QColor face = button.palette.color(QPalette::Button);
    const bool isDown = (button.state & (QStyle::State_Sunken | QStyle::State_On)) != 0;
    if (isDown) return face.darker(pressed);
    const bool isUnderMouse = (button.state & QStyle::State_MouseOver) != 0 &&
                              (button.state & QStyle::State_Enabled) != 0;
    return isUnderMouse ? face.lighter(under) : face;
}

void drawButton(QPainter* painter, const QStyleOptionButton& button) {
    const bool isDefault = (button.features & QStyleOptionButton::DefaultButton) != 0;
    const bool hasFocus = (button.state & QStyle::State_HasFocus) != 0;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(rimColour(button.palette));
    painter->setBrush(faceOf(button));
    const QRectF area = innerEdge(button.rect);
    painter->drawRoundedRect(area, button_shape::corner, button_shape::corner);
    if (isDefault || hasFocus) {
        const QColor ring = hasFocus ? button.palette.color(QPalette::Highlight) : identityOrange();
        painter->setPen(QPen(ring, 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), button_shape::corner - 0.5,
                                 button_shape::corner - 0.5);
    }
    painter->restore();
}

}  // namespace

void LegibleStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    palette = withIdentity(palette);
}

void LegibleStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
    // A group is known by its heading; frames within it are those of its fields.
    if (element == PE_FrameGroupBox) return;
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (isFrame(element)) return drawRim(painter, option, fieldCorner);
    if (!isTick(element)) return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(rimColour(option->palette));
    painter->setBrush(Qt::NoBrush);
    if (element == PE_IndicatorRadioButton) {
        painter->drawEllipse(innerEdge(option->rect));
    } else {
        painter->drawRoundedRect(innerEdge(option->rect), fieldCorner, fieldCorner);
    }
    painter->restore();
}

void LegibleStyle::drawControl(ControlElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    const auto* button = element == CE_PushButtonBevel
                             ? qstyleoption_cast<const QStyleOptionButton*>(option)
                             : nullptr;
    if (button == nullptr || (button->features & QStyleOptionButton::Flat) != 0) {
        return QProxyStyle::drawControl(element, option, painter, widget);
    }
    drawButton(painter, *button);
}

void LegibleStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
    if (control == CC_GroupBox) {
        painter->save();
        QFont font = painter->font();
        font.setBold(true);
        painter->setFont(font);
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        painter->restore();
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox || control == CC_SpinBox) drawRim(painter, option, fieldCorner);
}

QRect LegibleStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                   SubControl part, const QWidget* widget) const {
    QRect rect = QProxyStyle::subControlRect(control, option, part, widget);
    if (control == CC_GroupBox && part == SC_GroupBoxLabel) {
        rect.setWidth(static_cast<int>(rect.width() * boldPart) + 2);
    }
    return rect;
}

QIcon LegibleStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                                 const QWidget* widget) const {
    switch (picture) {
        case SP_MessageBoxQuestion:
            return glyphIcon(Glyph::question);
        case SP_MessageBoxInformation:
            return glyphIcon(Glyph::information);
        case SP_MessageBoxWarning:
            return glyphIcon(Glyph::stateAlert);
        case SP_MessageBoxCritical:
            return glyphIcon(Glyph::critical);
        default:
            return QProxyStyle::standardIcon(picture, option, widget);
    }
}

QSize LegibleStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                     const QSize& size, const QWidget* widget) const {
    QSize whole = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_PushButton) {
        whole.setHeight(std::max(size.height(), option->fontMetrics.height()) +
                        2 * button_shape::topMargin);
    }
    return whole;
}

}  // namespace velmora::qt
