// The hot key at the end of a menu item's text: "Ctrl+O", "F5", "DEL".
#pragma once

#include <cstddef>
#include <string_view>

namespace velmora {

/// Where the hot key of a text begins, in characters from 1; 0 without one. Everything after the
/// last tab is one. Without a tab it is the last word, when a blank stands in front of it, if it
/// begins with CTRL+, SHIFT+ or ALT+ in any case, or is F1 to F24, DEL, INS, HOME, END, PGUP or
/// PGDN.
std::size_t hotKeyPosition(std::string_view text);

}  // namespace velmora
