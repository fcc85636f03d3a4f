// The marks of a chart's axis.
#pragma once

#include <vector>

namespace velmora {

/// Marks from 0 to the first that isn't below `greatest`, evenly apart by 1, 2 or 5 times a power
/// of ten, by whole numbers. As close as possible with at most `mostMarks` of them, and at least
/// two. A greatest value that is not above 0, or no finite number, counts as 1.
std::vector<double> axisTicks(double greatest, int mostMarks);

}  // namespace velmora
