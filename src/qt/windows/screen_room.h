// Where a window can stand on the screens. Measures are the window system's pixels, frames
// included.
#pragma once

#include <QList>
#include <QRect>
#include <QWidget>

namespace velmora::qt {

/// Whether enough of a window's upper edge is on one of the screens to take hold of it there.
bool isWithinReach(const QRect& frame, const QList<QRect>& screens);

/// The place of a window over the middle of `over`, moved into `room` as far as it fits; its upper
/// left corner always does.
QRect centredOver(const QRect& over, const QSize& frame, const QRect& room);

/// What each screen leaves free for windows.
QList<QRect> freeScreens();

/// The frame around a window. Before the window system has made one it is estimated: like that of
/// another window of the program, or as the style has it.
QMargins frameAround(const QWidget* window, const QWidget* other);

}  // namespace velmora::qt
