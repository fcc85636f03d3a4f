// What each field is, in the words that a screen reader says and a search finds.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The words for a field of a form ("Form1", "ListView1"); empty for a field whose own caption says
/// it.
std::string_view fieldWords(std::string_view form, std::string_view field);
/// The names of all fields that have words: "Form1.ListView1".
std::vector<std::string> fieldsWithWords();

}  // namespace velmora
