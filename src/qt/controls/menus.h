// Menus that the program pops up.
#pragma once

#include <QMenu>
#include <functional>

#include "controls/buttons.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// The menu of `field` with all its items and submenus. When the field is popped up, it is shown at
/// the pointer, or below the widget with the focus while the pointer is over another window; the
/// menu of an icon always at the pointer. Actions have their items' names. `shown` runs each time
/// the menu has been shown.
QMenu* makeMenu(MenuItem& field, UserHand& hand, QWidget* owner, std::function<void()> shown);

}  // namespace velmora::qt
