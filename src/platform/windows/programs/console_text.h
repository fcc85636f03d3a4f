// The text of a console program.
#pragma once

#include <string>

namespace velmora::windows {

/// The bytes as UTF-8 with CR LF as line ends. What isn't UTF-8 already is in the console's code
/// page. UTF-8 may end within a character, which is left out then.
std::string consoleText(const std::string& bytes);

}  // namespace velmora::windows
