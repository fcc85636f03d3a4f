// The text of a script that stands for a shortcut in the file manager's menu of scripts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmora::linuxhost {

/// A script that starts `program`, a path of the host, with the arguments and then its own, the
/// selected files. The description is a comment.
std::string startingScript(const std::string& program, const std::vector<std::string>& arguments,
                           std::string_view description);

/// The text as one word for sh, with any characters in it.
std::string shellWord(std::string_view text);

/// The arguments of a shortcut: blanks and tabs part them, double quotes hold together, and a
/// back-slash before a double quote means the quote itself.
std::vector<std::string> shortcutArguments(std::string_view text);

}  // namespace velmora::linuxhost
