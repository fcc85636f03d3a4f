// Short names for paths.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// The FNV-1a sum of a path, in 16 digits: what belongs to one folder is told by it from what
/// belongs to another.
std::string sumOfPath(std::string_view path);

}  // namespace velmora
