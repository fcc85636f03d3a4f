// The desktop's style with one correction: tick boxes and option buttons have an outline that can
// be seen on a dark background.
#pragma once

#include <QProxyStyle>

namespace velmora::qt {

class LegibleStyle : public QProxyStyle {
    Q_OBJECT
  public:
    /// Based on the application's present style.
    LegibleStyle() = default;
    /// Based on the style of that name.
    explicit LegibleStyle(const QString& base) : QProxyStyle(base) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace velmora::qt
