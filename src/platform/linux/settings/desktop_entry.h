// The text of an entry that starts a program with the user's session, by the freedesktop rules for
// desktop entries and autostart.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmora::linuxhost {

/// An entry that starts `program`, a path of the host; without a program one that starts nothing
/// and is hidden.
std::string autostartEntry(std::string_view name, std::string_view program);

/// The program that such an entry starts, empty for a hidden one; nothing for a text that isn't one
/// of these entries.
std::optional<std::string> autostartProgram(std::string_view entry);

/// A value of type string: back-slashes, line ends, tabs and a blank in front are escaped.
std::string entryString(std::string_view text);

/// One argument of an Exec line: in double quotes, with the escapes of quoting and, over them,
/// those of a string; percent signs doubled.
std::string execArgument(std::string_view argument);

}  // namespace velmora::linuxhost
