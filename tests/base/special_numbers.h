// Numbers that no conversion can write or round.
#pragma once

#include <cmath>
#include <limits>

namespace velmora {

inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline const double noNumber = std::nan("");

}  // namespace velmora
