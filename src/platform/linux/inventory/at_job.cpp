#include "platform/linux/inventory/at_job.h"

#include <algorithm>
#include <vector>

#include "platform/linux/inventory/text_pieces.h"

namespace velmora::linuxhost {

namespace {

using ScriptLines = std::vector<std::string_view>;

bool isQueue(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '=';
}

// Each line of at's own in front of the commands, where no folder is entered.
bool isAtHeader(std::string_view line) {
    for (const char* front : {"#!", "# atrun ", "# mail ", "umask "})
        if (line.starts_with(front)) return true;
    const auto mark = line.find("; export ");
    return mark != std::string_view::npos && line.substr(0, mark).find('=') < mark;
}

// Behind "cd FOLDER || {" and its "}". The value of a variable may have several lines, so what is
// in front isn't looked at.
ScriptLines::const_iterator commandsBegin(const ScriptLines& lines) {
    const auto folder = std::find_if(lines.begin(), lines.end(), [](std::string_view line) {
        return line.starts_with("cd ") && line.ends_with(" || {");
    });
    const auto end = std::find(folder, lines.end(), "}");
    if (end != lines.end()) return end + 1;
    return std::find_if_not(lines.begin(), lines.end(), isAtHeader);
}

// What ends the here-document that begins with this line; empty when none does.
std::string_view hereDocumentEnd(std::string_view line) {
    constexpr std::string_view shell = "${SHELL:-/bin/sh} << ";
    if (!line.starts_with(shell)) return {};
    line.remove_prefix(shell.size());
    if (line.size() > 2 && line.front() == '\'' && line.back() == '\'')
        line = line.substr(1, line.size() - 2);
    return line;
}

bool hasOnlyBlanks(std::string_view line) {
    return std::all_of(line.begin(), line.end(), isBlank);
}

}  // namespace

std::optional<AtJobName> readAtJobName(std::string_view name) {
    constexpr std::size_t size = 14;
    constexpr int hexadecimal = 16;
    constexpr std::int64_t minute = 60'000'000;  // in microseconds
    if (name.size() != size || !isQueue(name[0])) return std::nullopt;
    const auto number = parseNumber<std::uint32_t>(name.substr(1, 5), hexadecimal);
    const auto minutes = parseNumber<std::uint32_t>(name.substr(6), hexadecimal);
    if (!number || !minutes) return std::nullopt;
    return AtJobName{.number = *number, .start = *minutes * minute};
}

std::string atCommands(std::string_view script) {
    ScriptLines lines;
    while (!script.empty()) lines.push_back(popLine(script));
    auto line = commandsBegin(lines);
    auto end = lines.cend();
    const std::string_view document = line == end ? std::string_view{} : hereDocumentEnd(*line);
    if (!document.empty()) end = std::find(++line, end, document);
    std::string commands;
    for (; line != end; ++line) {
        if (hasOnlyBlanks(*line)) continue;
        if (!commands.empty()) commands += "; ";
        commands += *line;
    }
    return commands;
}

}  // namespace velmora::linuxhost
