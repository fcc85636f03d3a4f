// How a line that is being typed can go on.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/forms.h"

namespace velmora::console {

/// The words that fit in place of the last word of the text, which ends where the cursor stands:
/// commands, then what the command takes: names of fields of its kind, behind a point properties,
/// the words of the help. In any letter case, sorted. Empty when nothing fits or anything can
/// follow, as a path.
std::vector<std::string> completionsOf(Forms& forms, std::string_view text);

}  // namespace velmora::console
