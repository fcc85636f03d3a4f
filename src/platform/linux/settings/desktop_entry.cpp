#include "platform/linux/settings/desktop_entry.h"

namespace velmora::linuxhost {

std::string entryString(std::string_view text) {
    std::string value;
    for (const char c : text) {
        switch (c) {
            case '\\':
                value += "\\\\";
                break;
            case '\n':
                value += "\\n";
                break;
            case '\r':
                value += "\\r";
                break;
            case '\t':
                value += "\\t";
                break;
            case ' ':
                value += value.empty() ? "\\s" : " ";
                break;
            default:
                value += c;
        }
    }
    return value;
}

std::string execArgument(std::string_view argument) {
    std::string quoted = "\"";
    for (const char c : argument) {
        if (c == '"' || c == '`' || c == '$' || c == '\\') quoted += '\\';
        quoted += c;
        if (c == '%') quoted += c;
    }
    quoted += '"';
    return entryString(quoted);
}

namespace {

// In front of a program that is passed on as an argument.
std::string byShell() {
    return "/bin/sh -c " + execArgument("exec \"$0\"") + ' ';
}

std::string execLine(std::string_view program) {
    if (program.empty()) return {};
    // Signs that no desktop takes in the program's own name.
    const bool isPlain = program.find_first_of("%=") == std::string_view::npos;
    return (isPlain ? "" : byShell()) + execArgument(program);
}

}  // namespace

std::string autostartEntry(std::string_view name, std::string_view program) {
    return "[Desktop Entry]\nType=Application\nName=" + entryString(name) +
           "\nExec=" + execLine(program) + "\nHidden=" + (program.empty() ? "true" : "false") +
           '\n';
}

namespace {

// The value after a key, up to the end of its line.
std::optional<std::string_view> valueOf(std::string_view entry, std::string_view key) {
    const auto front = '\n' + std::string(key) + '=';
    const auto at = entry.find(front);
    if (at == std::string_view::npos) return std::nullopt;
    const std::string_view value = entry.substr(at + front.size());
    return value.substr(0, value.find('\n'));
}

// The way back from entryString.
std::string entryText(std::string_view value) {
    std::string text;
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (value[at] != '\\' || at + 1 == value.size()) {
            text += value[at];
            continue;
        }
        const char escaped = value[++at];
        constexpr std::string_view letters = "nrts";
        const auto index = letters.find(escaped);
        text += index == std::string_view::npos ? escaped : "\n\r\t "[index];
    }
    return text;
}

// The way back from quoting; `quoted` begins after the first quote.
std::string argumentOf(std::string_view quoted) {
    std::string argument;
    for (std::size_t at = 0; at < quoted.size() && quoted[at] != '"'; ++at) {
        if ((quoted[at] == '\\' || quoted[at] == '%') && at + 1 < quoted.size()) ++at;
        argument += quoted[at];
    }
    return argument;
}

}  // namespace

std::optional<std::string> autostartProgram(std::string_view entry) {
    const auto value = valueOf(entry, "Exec");
    if (!value) return std::nullopt;
    if (value->empty()) return "";
    std::string_view argument = *value;
    if (argument.starts_with(byShell())) argument.remove_prefix(byShell().size());
    if (!argument.starts_with('"')) return std::nullopt;
    std::string program = argumentOf(entryText(argument.substr(1)));
    return execLine(program) == *value ? std::optional(program) : std::nullopt;
}

}  // namespace velmora::linuxhost
