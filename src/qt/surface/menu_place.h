// Where a menu opens: at what the user has used to open it.
#pragma once

#include <QPoint>
#include <QRect>
#include <QWidget>
#include <utility>

namespace velmora::qt {

/// While this object lives, menus open at that place. Measures are the screen's pixels.
class MenuPlace {
  public:
    /// Below a button.
    explicit MenuPlace(const QWidget& button);
    /// Below a part of a widget, such as a row; at the widget's upper edge when the part is out of
    /// view.
    MenuPlace(const QWidget& widget, const QRect& part);
    /// At an icon of the notification area, or at the pointer.
    explicit MenuPlace(const QRect& onScreen) : anchor_(onScreen) {}
    explicit MenuPlace(const QPoint& pointer) : MenuPlace(QRect(pointer, QSize(1, 1))) {}
    ~MenuPlace() { newest = before_; }
    MenuPlace(const MenuPlace&) = delete;
    MenuPlace& operator=(const MenuPlace&) = delete;

    /// The upper left corner of a menu of that size. Without any place the menu opens below the
    /// widget with the focus, or in the middle of `owner` or of the screen: never at a pointer that
    /// may be anywhere.
    static QPoint of(const QSize& menu, const QWidget* owner);

  private:
    static const MenuPlace* newest;

    QRect anchor_;
    const MenuPlace* before_ = std::exchange(newest, this);
};

/// Below the anchor with its left edge, above it where the screen ends, and never off the screen.
QPoint besideAnchor(const QRect& anchor, const QSize& menu, const QRect& screen);

}  // namespace velmora::qt
