// Menus that the program pops up.
#pragma once

#include <QMenu>
#include <functional>

#include "controls/buttons.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// The menu of `field` with all its items and submenus, a part of `owner`. When the field is popped
/// up, it is shown where the present MenuPlace has it. Actions have their items' names. `shown`
/// runs each time the menu has been shown.
QMenu* makeMenu(MenuItem& field, UserHand& hand, QWidget* owner, std::function<void()> shown);

}  // namespace velmora::qt
