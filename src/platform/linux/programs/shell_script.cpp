#include "platform/linux/programs/shell_script.h"

#include <algorithm>

namespace velmora::linuxhost {

std::string shellWord(std::string_view text) {
    std::string word = "'";
    for (const char c : text) {
        if (c == '\'') {
            word += "'\\''";
        } else {
            word += c;
        }
    }
    return word + '\'';
}

std::vector<std::string> shortcutArguments(std::string_view text) {
    std::vector<std::string> arguments;
    bool isQuoted = false;
    bool isInside = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (!isQuoted && (c == ' ' || c == '\t')) {
            isInside = false;
            continue;
        }
        if (!isInside) arguments.emplace_back();
        isInside = true;
        if (c == '"') {
            isQuoted = !isQuoted;
        } else {
            const bool isEscape = c == '\\' && at + 1 < text.size() && text[at + 1] == '"';
            arguments.back() += isEscape ? text[++at] : c;
        }
    }
    return arguments;
}

std::string startingScript(const std::string& program, const std::vector<std::string>& arguments,
                           std::string_view description) {
    std::string script = "#!/bin/sh\n";
    if (!description.empty()) {
        std::string comment(description);
        std::replace_if(
            comment.begin(), comment.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
        script += "# " + comment + '\n';
    }
    script += "exec " + shellWord(program);
    for (const std::string& argument : arguments) script += ' ' + shellWord(argument);
    return script + " \"$@\"\n";
}

}  // namespace velmora::linuxhost
