#include "shell/menus/hot_key.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "base/text.h"

namespace velmora {

namespace {

constexpr std::string_view modifiers[] = {"CTRL+", "SHIFT+", "ALT+"};
// In upper case only: "Go to end" is a caption without a hot key.
constexpr std::string_view namedKeys[] = {" DEL", " INS", " HOME", " END", " PGUP", " PGDN"};
constexpr int lastFunctionKey = 24;

bool startsWithAnyCase(std::string_view text, std::string_view upperCase) {
    return text.size() >= upperCase.size() &&
           std::equal(upperCase.begin(), upperCase.end(), text.begin(), [](char upper, char c) {
               return std::toupper(static_cast<unsigned char>(c)) == upper;
           });
}

/// "CTRL+SHIFT+A" without its modifiers is "A".
std::string_view withoutModifiers(std::string_view word) {
    for (;;) {
        const auto found = std::ranges::find_if(
            modifiers, [&](std::string_view each) { return startsWithAnyCase(word, each); });
        if (found == std::end(modifiers)) return word;
        word.remove_prefix(found->size());
    }
}

bool isFunctionKey(std::string_view word) {
    if (word.size() < 2 || word[0] != 'F' || word[1] < '1' || word[1] > '9') return false;
    int number = 0;
    const char* end = word.data() + word.size();
    const auto [last, failure] = std::from_chars(word.data() + 1, end, number);
    return failure == std::errc() && last == end && number <= lastFunctionKey;
}

/// `word` with the blank in front of it.
bool isHotKey(std::string_view word) {
    if (std::ranges::find(namedKeys, word) != std::end(namedKeys)) return true;
    word.remove_prefix(1);
    const std::string_view key = withoutModifiers(word);
    return isFunctionKey(word) || (key.size() < word.size() && !key.empty());
}

constexpr auto none = std::string_view::npos;

/// Its first byte.
std::size_t findHotKey(std::string_view text) {
    const std::size_t tab = text.rfind('\t');
    if (tab != none) return tab + 1 < text.size() ? tab + 1 : none;
    const std::size_t blank = text.find_last_of(" \r\n");
    if (blank == none || text[blank] != ' ' || !isHotKey(text.substr(blank))) return none;
    return blank + 1;
}

}  // namespace

std::size_t hotKeyPosition(std::string_view text) {
    const std::size_t at = findHotKey(text);
    return at == none ? 0 : length(text.substr(0, at)) + 1;
}

}  // namespace velmora
