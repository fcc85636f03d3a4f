#include "platform/windows/programs/command_line.h"

#include <algorithm>

namespace velmora::windows {

std::wstring_view afterName(std::wstring_view commandLine) {
    constexpr std::wstring_view blanks = L" \t";
    const bool isQuoted = commandLine.starts_with(L'"');
    const auto end = isQuoted ? commandLine.find(L'"', 1) : commandLine.find_first_of(blanks);
    if (end == std::wstring_view::npos) return {};
    commandLine.remove_prefix(isQuoted ? end + 1 : end);
    commandLine.remove_prefix(std::min(commandLine.find_first_not_of(blanks), commandLine.size()));
    return commandLine;
}

}  // namespace velmora::windows
