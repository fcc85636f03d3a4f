// The keys of the main window's commands. Menus show those of their items.
#pragma once

#include <QWidget>

#include "forms/form1.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// To be called when the window has all its widgets and menus.
void addShortcuts(QWidget* window, Form1& form, UserHand& hand);

/// F1 asks for help in a window, as the tool bar's button does.
void addHelpKey(QWidget* window, Form1& form, UserHand& hand);

}  // namespace velmora::qt
