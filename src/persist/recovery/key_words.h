// What a user knows the settings file's keys by.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora {

struct KeyWords {
    std::string_view key;    ///< with its "="
    std::string_view field;  ///< the field's name, as the console has it
    std::string_view words;
};

/// The words for a key; its own name for one that has none.
KeyWords wordsOf(std::string_view key);

/// What is wrong with a value that can't be written, by the error of prcEn: words to put behind the
/// field's name.
std::string whyUnwritable(int number);

/// The key that the line around a place of the file begins with; empty when it begins with none,
/// or can't be decoded.
std::string keyOfLineAt(std::string_view content, std::size_t place);

/// The number of that line, from 1.
std::size_t lineNumberAt(std::string_view content, std::size_t place);

}  // namespace velmora
