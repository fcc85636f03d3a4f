#include "platform/start_options.h"

#include <algorithm>

namespace velmora {

namespace {

struct Option {
    std::string_view word;
    bool StartOptions::*flag = nullptr;
    std::string StartOptions::*value = nullptr;  // instead of the flag
    const char* needs = "";                      // what the value is
    bool isMade = false;  // where it is missing: an option in its place is a slip
};

constexpr Option known[] = {
    {.word = "--keep-running", .flag = &StartOptions::keepRunning},
    {.word = "--single", .flag = &StartOptions::single},
    {.word = "--restore-settings", .flag = &StartOptions::restoreSettings},
    {.word = "--minimized", .flag = &StartOptions::minimized},
    {.word = "--json", .flag = &StartOptions::json},
    {.word = "--watch", .flag = &StartOptions::watch},
    {.word = "--help", .flag = &StartOptions::help},
    {.word = "--version", .flag = &StartOptions::version},
    {.word = "--settings", .value = &StartOptions::settings, .needs = "a folder", .isMade = true},
    {.word = "--metrics-file",
     .value = &StartOptions::metricsFile,
     .needs = "a file",
     .isMade = true},
    {.word = "--script", .value = &StartOptions::script, .needs = "a file"},
};

const Option* find(std::string_view word) {
    const auto* found = std::find_if(std::begin(known), std::end(known),
                                     [word](const Option& each) { return each.word == word; });
    return found == std::end(known) ? nullptr : found;
}

struct FirstWord {
    std::string_view text;   ///< without its quotes
    std::string_view after;  ///< what follows it
};

FirstWord firstWordOf(std::string_view command) {
    const bool isQuoted = command.starts_with('"');
    if (isQuoted) command.remove_prefix(1);
    const std::size_t end =
        std::min(command.find_first_of(isQuoted ? "\"" : " \t\""), command.size());
    std::string_view after = command.substr(end);
    if (isQuoted && !after.empty()) after.remove_prefix(1);
    after.remove_prefix(std::min(after.find_first_not_of(" \t"), after.size()));
    return {.text = command.substr(0, end), .after = after};
}

// Takes the first word off.
std::string takeWord(std::string& command) {
    const FirstWord word = firstWordOf(command);
    std::string text(word.text);
    command = std::string(word.after);
    return text;
}

}  // namespace

std::size_t startOptionLength(std::string_view word) {
    const Option* option = find(word);
    if (option == nullptr) return 0;
    return option->value == nullptr ? 1 : 2;
}

StartOptions takeStartOptions(std::string& command) {
    StartOptions options;
    while (const Option* option = find(firstWordOf(command).text)) {
        takeWord(command);
        if (option->flag != nullptr) {
            options.*option->flag = true;
            continue;
        }
        options.*option->value = takeWord(command);
        const std::string& value = options.*option->value;
        if (value.empty() || (option->isMade && find(value) != nullptr))
            options.fault = std::string(option->word) + " needs " + option->needs + '.';
    }
    return options;
}

}  // namespace velmora
