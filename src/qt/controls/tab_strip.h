// The pages of a tab strip.
#pragma once

#include <QTabWidget>

#include "controls/bars.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// A tab for each of the strip's, above its page. There are as many pages as tabs.
QTabWidget* makeTabs(TabStrip& strip, std::initializer_list<QWidget*> pages, UserHand& hand);

}  // namespace velmora::qt
