#include "monitor/history/history_points.h"

#include <algorithm>

namespace velmora {

namespace {

bool lessFree(const SpacePoint& a, const SpacePoint& b) {
    return a.freeKB < b.freeKB;
}

// A short fall must not get lost, so both ends of a stretch's figures stay.
void addEnds(std::vector<SpacePoint>& points, const SpacePoint* begin, const SpacePoint* end) {
    auto [lowest, highest] = std::minmax_element(begin, end, lessFree);
    if (highest < lowest) std::swap(lowest, highest);
    points.push_back(*lowest);
    if (highest != lowest) points.push_back(*highest);
}

}  // namespace

std::vector<SpacePoint> pointsOf(const SpaceRing& ring) {
    std::vector<SpacePoint> points;
    points.reserve(ring.size());
    for (std::size_t i = 0; i < ring.size(); ++i) points.push_back(ring.at(i));
    return points;
}

std::vector<SpacePoint> thinned(const SpaceRing& ring, std::size_t most) {
    std::vector<SpacePoint> all = pointsOf(ring);
    if (all.size() <= most) return all;
    const std::size_t inner = all.size() - 2;
    const std::size_t stretches = (most - 2) / 2;
    std::vector<SpacePoint> points{all.front()};
    for (std::size_t i = 0; i < stretches; ++i) {
        const std::size_t begin = 1 + inner * i / stretches;
        const std::size_t end = 1 + inner * (i + 1) / stretches;
        addEnds(points, all.data() + begin, all.data() + end);
    }
    points.push_back(all.back());
    return points;
}

}  // namespace velmora
