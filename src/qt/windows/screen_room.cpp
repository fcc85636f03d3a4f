#include "qt/windows/screen_room.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWindow>
#include <algorithm>

namespace velmora::qt {

namespace {

// What one can take hold of with the mouse.
constexpr QSize leastGrip(80, 16);
constexpr int gripHeight = 28;

QMargins knownFrame(const QWidget* window) {
    const QWindow* handle = window == nullptr ? nullptr : window->windowHandle();
    return handle == nullptr ? QMargins() : handle->frameMargins();
}

}  // namespace

bool isWithinReach(const QRect& frame, const QList<QRect>& screens) {
    const QRect grip(frame.topLeft(), QSize(frame.width(), gripHeight));
    const int width = std::min(leastGrip.width(), frame.width());
    return std::any_of(screens.begin(), screens.end(), [&](const QRect& screen) {
        const QRect seen = screen.intersected(grip);
        return seen.width() >= width && seen.height() >= leastGrip.height();
    });
}

QRect centredOver(const QRect& over, const QSize& frame, const QRect& room) {
    QRect place(QPoint(), frame);
    place.moveCenter(over.center());
    const auto within = [](int at, int size, int from, int end) {
        return std::max(from, std::min(at, end - size));
    };
    place.moveTopLeft({within(place.left(), frame.width(), room.left(), room.right() + 1),
                       within(place.top(), frame.height(), room.top(), room.bottom() + 1)});
    return place;
}

QList<QRect> freeScreens() {
    QList<QRect> free;
    for (const QScreen* screen : QGuiApplication::screens()) free << screen->availableGeometry();
    return free;
}

QMargins frameAround(const QWidget* window, const QWidget* other) {
    const QMargins own = knownFrame(window);
    if (!own.isNull()) return own;
    const QMargins others = knownFrame(other);
    if (!others.isNull()) return others;
    const int edge = 1;
    return {edge, window->style()->pixelMetric(QStyle::PM_TitleBarHeight), edge, edge};
}

}  // namespace velmora::qt
