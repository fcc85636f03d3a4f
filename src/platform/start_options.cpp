#include "platform/start_options.h"

#include <algorithm>

namespace velmora {

namespace {

struct Option {
    std::string_view word;
    bool StartOptions::*flag;
};

constexpr Option known[] = {
    {"--keep-running", &StartOptions::keepRunning},
    {"--single", &StartOptions::single},
    {"--restore-settings", &StartOptions::restoreSettings},
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

}  // namespace

bool isStartOption(std::string_view word) {
    return find(word) != nullptr;
}

StartOptions takeStartOptions(std::string& command) {
    StartOptions options;
    FirstWord word = firstWordOf(command);
    while (const Option* option = find(word.text)) {
        options.*option->flag = true;
        command = std::string(word.after);
        word = firstWordOf(command);
    }
    return options;
}

}  // namespace velmora
