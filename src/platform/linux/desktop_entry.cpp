#include "platform/linux/desktop_entry.h"

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

std::string execLine(std::string_view program) {
    if (program.empty()) return {};
    // Signs that no desktop takes in the program's own name are passed on as an argument.
    const bool isPlain = program.find_first_of("%=") == std::string_view::npos;
    return (isPlain ? "" : "/bin/sh -c " + execArgument("exec \"$0\"") + ' ') +
           execArgument(program);
}

}  // namespace

std::string autostartEntry(std::string_view name, std::string_view program) {
    return "[Desktop Entry]\nType=Application\nName=" + entryString(name) +
           "\nExec=" + execLine(program) + "\nHidden=" + (program.empty() ? "true" : "false") +
           '\n';
}

}  // namespace velmora::linuxhost
