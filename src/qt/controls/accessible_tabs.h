// What a screen reader is told of tab bars and of label buttons that act as tabs: each is a tab of
// a list of tabs, and one of them is selected.
#pragma once

namespace velmora::qt {

/// Makes them known; may be called more than once.
void makeTabsAccessible();

}  // namespace velmora::qt
