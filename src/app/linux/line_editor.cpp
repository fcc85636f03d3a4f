#include "app/line_editor.h"

#ifdef VELMORA_HAS_LIBEDIT
#include <stdio.h>
// After the one above, which it needs.
#include <editline/readline.h>
#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>
#endif

namespace velmora {

#ifdef VELMORA_HAS_LIBEDIT

namespace {

constexpr const char* prompt = "> ";
constexpr int mostLines = 1000;

// libedit calls functions without anything of their own: what they need is kept here during a read.
struct Reading {
    const Completions* completions = nullptr;
    std::vector<std::string> found;
    std::size_t next = 0;
};

Reading& reading() {
    static Reading current;
    return current;
}

// As libedit asks for the matches: one a call, each to be freed by it.
char* nextMatch(const char*, int) {
    Reading& current = reading();
    if (current.next >= current.found.size()) return nullptr;
    return strdup(current.found[current.next++].c_str());
}

char** complete(const char* word, int, int end) {
    // Otherwise it would go on with the names of files in the working folder.
    rl_attempted_completion_over = 1;
    Reading& current = reading();
    current.found.clear();
    current.next = 0;
    try {
        current.found = (*current.completions)(std::string_view(rl_line_buffer).substr(0, end));
    } catch (const std::exception&) {
        // No exception can pass through libedit; a line without help can still be typed.
        return nullptr;
    }
    return current.found.empty() ? nullptr : rl_completion_matches(word, nextMatch);
}

void prepare() {
    // Lines are UTF-8 whatever the user's language.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    rl_readline_name = "velmora-console";
    rl_initialize();
    using_history();
    stifle_history(mostLines);
    rl_attempted_completion_function = complete;
    static char blanks[] = " \t";
    rl_completer_word_break_characters = blanks;
    rl_basic_word_break_characters = blanks;
}

void remember(const std::string& line) {
    static std::string last;
    if (line.find_first_not_of(" \t") == std::string::npos || line == last) return;
    add_history(line.c_str());
    last = line;
}

console::LineRead editLine(std::string& line, const Completions& completions) {
    reading().completions = &completions;
    const std::unique_ptr<char, decltype(&std::free)> typed(readline(prompt), std::free);
    if (typed == nullptr) return console::LineRead::end;
    line = typed.get();
    if (line.size() > console::longestLine) return console::LineRead::tooLong;
    remember(line);
    return console::LineRead::line;
}

bool isCapable() {
    const char* kind = std::getenv("TERM");
    const bool isNamed = kind != nullptr && *kind != '\0' && std::strcmp(kind, "dumb") != 0;
    return isNamed && isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
}

}  // namespace

LineEditor terminalEditor() {
    if (!isCapable()) return {};
    prepare();
    return editLine;
}

#else

LineEditor terminalEditor() {
    return {};
}

#endif

}  // namespace velmora
