#include "qt/surface/menu_place.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>

namespace velmora::qt {

namespace {

QRect onScreen(const QWidget& widget, const QRect& part) {
    return {widget.mapToGlobal(part.topLeft()), part.size()};
}

QRect screenAt(const QPoint& place) {
    const QScreen* screen = QGuiApplication::screenAt(place);
    return (screen == nullptr ? QGuiApplication::primaryScreen() : screen)->geometry();
}

QRect anchorWithoutPlace(const QWidget* owner) {
    const QWidget* focused = QApplication::focusWidget();
    if (focused != nullptr && focused->isVisible()) return onScreen(*focused, focused->rect());
    const QRect whole = owner == nullptr ? QGuiApplication::primaryScreen()->availableGeometry()
                                         : onScreen(*owner, owner->rect());
    return {whole.center(), QSize(1, 1)};
}

}  // namespace

const MenuPlace* MenuPlace::newest = nullptr;

MenuPlace::MenuPlace(const QWidget& button) : anchor_(onScreen(button, button.rect())) {}

MenuPlace::MenuPlace(const QWidget& widget, const QRect& part)
    : anchor_(onScreen(widget, part.intersected(widget.rect()))) {
    if (!part.intersects(widget.rect()))
        anchor_ = {widget.mapToGlobal(QPoint(0, 0)), QSize(widget.width(), 1)};
}

QPoint MenuPlace::of(const QSize& menu, const QWidget* owner) {
    const QRect anchor = newest == nullptr ? anchorWithoutPlace(owner) : newest->anchor_;
    return besideAnchor(anchor, menu, screenAt(anchor.center()));
}

QPoint besideAnchor(const QRect& anchor, const QSize& menu, const QRect& screen) {
    const int lowest = screen.bottom() + 1 - menu.height();
    const int below = anchor.bottom() + 1;
    const int above = anchor.top() - menu.height();
    const int top = below <= lowest ? below : std::max(above, screen.top());
    const int rightmost = screen.right() + 1 - menu.width();
    return {std::max(screen.left(), std::min(anchor.left(), rightmost)), top};
}

}  // namespace velmora::qt
