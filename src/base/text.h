// Text: UTF-8 in std::string; lengths and positions count characters, from 1, as the program's
// rules for paths and pictures count characters. ASCII texts take a fast path.
// A byte that is no valid UTF-8 counts as one character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The line end of all files, mail and message text.
inline constexpr std::string_view lineEnd = "\r\n";

/// Number of characters.
std::size_t length(std::string_view text);

/// Up to `count` characters from position `start` (from 1); empty past the end. Error 5 for a
/// `start` of 0.
std::string mid(std::string_view text, std::size_t start, std::size_t count = std::string::npos);
/// The first or last `count` characters, the whole text when it has fewer.
std::string left(std::string_view text, std::size_t count);
std::string right(std::string_view text, std::size_t count);

/// Position (from 1) of the first occurrence of `what`, 0 if there is none. An empty `what` is
/// found at position 1 of any text but the empty one.
std::size_t position(std::string_view text, std::string_view what);
/// Position (from 1) of the last occurrence of `what`, 0 if there is none. An empty `what` is
/// found at the last character.
std::size_t lastPosition(std::string_view text, std::string_view what);

inline bool contains(std::string_view text, std::string_view what) {
    return text.find(what) != std::string_view::npos;
}

/// `text` with every occurrence of `what` replaced; unchanged for an empty `what`.
std::string replaceAll(std::string_view text, std::string_view what, std::string_view with);

/// Without leading and trailing blanks. Blanks only: line ends and tabs stay.
std::string trim(std::string_view text);
/// The same as a part of the text itself.
std::string_view trimmed(std::string_view text);

/// Lower case of every letter that has one (Latin, Greek, Cyrillic and Armenian), letter by
/// letter: the result has as many characters as the text, though perhaps not as many bytes.
/// Invalid bytes stay.
std::string lowerCase(std::string_view text);

/// Upper case of the letters a to z. Everything else stays.
std::string asciiUpperCase(std::string_view text);

/// The texts between the separators, at least one, empty ones included. An empty
/// separator separates nothing.
std::vector<std::string> split(std::string_view text, std::string_view separator);

/// Whether the text is UTF-8 throughout: no stray or missing bytes, overlong forms, surrogates or
/// values above U+10FFFF.
bool isValidUtf8(std::string_view text);

/// The number of bytes of the character that begins at the byte `at` (which must lie in the text);
/// 1 for an invalid one.
std::size_t characterSize(std::string_view text, std::size_t at);

}  // namespace velmora
