// Fields of a shortcut that the program writes as texts and the shell keeps as numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace velmora::windows {

/// A hot key as a shortcut keeps it, the key's number and its modifiers, from a text like
/// "CTRL+ALT+X" or "Shift+F5". 0 for none and for a text that names none.
std::uint16_t hotKeyOf(std::string_view text);

/// Path and index of an icon's place such as "C:\x.exe,0"; the index is 0 when there is none.
std::pair<std::string, int> iconOf(const std::string& location);

}  // namespace velmora::windows
