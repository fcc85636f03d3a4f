// The desktop's style in the program's own look: buttons are as high and as round as the label
// buttons beside them, headings of groups are bold, and every rim can be seen, also on a dark
// background.
#pragma once

#include <QProxyStyle>

namespace velmora::qt {

/// The shape that all buttons share, in pixels.
namespace button_shape {
inline constexpr double corner = 5;
inline constexpr int topMargin = 5;
}  // namespace button_shape

class LegibleStyle : public QProxyStyle {
    Q_OBJECT
  public:
    /// Based on the application's present style.
    LegibleStyle() = default;
    /// Based on the style of that name.
    explicit LegibleStyle(const QString& base) : QProxyStyle(base) {}

    void polish(QPalette& palette) override;
    using QProxyStyle::polish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    /// The program's own pictures in boxes with a message.
    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                       const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
};

}  // namespace velmora::qt
