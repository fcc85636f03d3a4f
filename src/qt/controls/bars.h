// The tool bar and the status bar.
#pragma once

#include <QStatusBar>
#include <QToolBar>

#include "controls/bars.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// The buttons of the field, each with the glyph of its caption. Their object names are
/// "Toolbar1(1)" and so on.
QToolBar* makeToolBar(ToolBar& field, UserHand& hand);

/// Three panels; the first shows its picture in front.
QStatusBar* makeStatusBar(StatusBar& field);

}  // namespace velmora::qt
