// Menus that the program pops up.
#pragma once

#include <QMenu>

#include "controls/buttons.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// The menu of `field` with all items below it. It shows itself when the field is popped up: at the
/// pointer, or below the widget that has the keyboard. Actions carry their items' names.
QMenu* makeMenu(MenuItem& field, UserHand& hand, QWidget* owner);

}  // namespace velmora::qt
