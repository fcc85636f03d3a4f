// Texts that are read piece by piece from the front.
#pragma once

#include <charconv>
#include <optional>
#include <string_view>

namespace velmora::linuxhost {

inline bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

/// Takes the first line away and gives it without its line end.
inline std::string_view popLine(std::string_view& rest) {
    const auto end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

inline void passBlanks(std::string_view& rest) {
    while (!rest.empty() && isBlank(rest.front())) rest.remove_prefix(1);
}

/// Takes the next word away, with the blanks in front of it and after it; empty at the end.
inline std::string_view popWord(std::string_view& rest) {
    passBlanks(rest);
    const std::string_view word = rest.substr(0, rest.find_first_of(" \t"));
    rest.remove_prefix(word.size());
    passBlanks(rest);
    return word;
}

/// The number, when the text is one of type `Number` and nothing else.
template <typename Number>
std::optional<Number> parseNumber(std::string_view text, int base = 10) {
    Number number = 0;
    const char* end = text.data() + text.size();
    const auto [last, failure] = std::from_chars(text.data(), end, number, base);
    if (failure != std::errc{} || last != end) return std::nullopt;
    return number;
}

}  // namespace velmora::linuxhost
