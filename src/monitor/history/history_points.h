// The measures of a path as a list.
#pragma once

#include <cstddef>
#include <vector>

#include "monitor/history/space_history.h"

namespace velmora {

/// All of them, oldest first.
std::vector<SpacePoint> pointsOf(const SpaceRing& ring);
/// At most `most` (four at least) of them, oldest first: the first one, the last one, and between
/// them the lowest and the highest of each stretch of equally many measures. All of them if they
/// are that few.
std::vector<SpacePoint> thinned(const SpaceRing& ring, std::size_t most);

}  // namespace velmora
