// Short names for texts.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// The FNV-1a sum of a text, in 16 digits: what belongs to one folder is told by its path's sum
/// from what belongs to another.
std::string sumOfText(std::string_view text);

}  // namespace velmora
