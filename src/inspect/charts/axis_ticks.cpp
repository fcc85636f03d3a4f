#include "inspect/charts/axis_ticks.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

double roundStep(double greatest, int steps) {
    const double least = std::max(1.0, greatest / steps);
    double power = 1;
    while (power * 10 <= least) power *= 10;
    for (const int factor : {1, 2, 5}) {
        if (std::ceil(greatest / (power * factor)) <= steps) return power * factor;
    }
    return power * 10;
}

}  // namespace

std::vector<double> axisTicks(double greatest, int mostMarks) {
    if (!std::isfinite(greatest) || greatest <= 0) greatest = 1;
    const double step = roundStep(greatest, std::max(1, mostMarks - 1));
    const int steps = std::max(1, static_cast<int>(std::ceil(greatest / step)));
    std::vector<double> marks;
    for (int i = 0; i <= steps; ++i) marks.push_back(i * step);
    return marks;
}

}  // namespace velmora
