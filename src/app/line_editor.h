// Lines that a user edits at a terminal, with a history and with names that complete themselves.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "console/line_reader.h"

namespace velmora {

/// The words that fit in place of the last word of a text that ends where the cursor stands.
using Completions = std::function<std::vector<std::string>(std::string_view text)>;

/// Reads one line that the user edits. The last 1,000 lines can be called back; they are kept in
/// memory only, since a password may be among them.
using LineEditor = std::function<console::LineRead(std::string& line, const Completions&)>;

/// The editor of this host; none where the input or the output is no terminal that can be written
/// on at any place.
LineEditor terminalEditor();

}  // namespace velmora
