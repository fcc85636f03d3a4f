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

std::string autostartEntry(std::string_view name, std::string_view program) {
    return "[Desktop Entry]\nType=Application\nName=" + entryString(name) +
           "\nExec=" + (program.empty() ? std::string{} : execArgument(program)) +
           "\nHidden=" + (program.empty() ? "true" : "false") + '\n';
}

}  // namespace velmora::linuxhost
