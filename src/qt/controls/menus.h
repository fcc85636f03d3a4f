// Menus that the program pops up.
#pragma once

#include <QMenu>
#include <functional>

#include "controls/buttons.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// The menu of `field` with all items below it. It shows itself at the pointer when the field is
/// popped up, or below the widget that has the keyboard when the pointer is over another window;
/// that of an icon always at the pointer. Actions carry their items' names. `shown` runs each time
/// that the menu's window has come into being.
QMenu* makeMenu(MenuItem& field, UserHand& hand, QWidget* owner, std::function<void()> shown);

}  // namespace velmora::qt
