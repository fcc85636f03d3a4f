#include "console/nearest_name.h"

#include <algorithm>
#include <cstddef>

#include "base/text.h"

namespace velmora::console {

namespace {

// Longer words are no names.
constexpr std::size_t longestName = 100;

// Optimal string alignment: the distance of Damerau and Levenshtein without a second change at the
// same place.
std::size_t distanceOf(const std::string& a, const std::string& b) {
    std::vector<std::vector<std::size_t>> steps(a.size() + 1,
                                                std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) steps[i][0] = i;
    for (std::size_t j = 0; j <= b.size(); ++j) steps[0][j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = steps[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            steps[i][j] = std::min({steps[i - 1][j] + 1, steps[i][j - 1] + 1, replaced});
            const bool isSwapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
            if (isSwapped) steps[i][j] = std::min(steps[i][j], steps[i - 2][j - 2] + 1);
        }
    }
    return steps[a.size()][b.size()];
}

}  // namespace

std::string nearestName(const std::string& name, const std::vector<std::string>& candidates) {
    if (name.size() > longestName) return {};
    std::string nearest;
    std::size_t least = std::max<std::size_t>(1, name.size() / 3) + 1;
    for (const std::string& candidate : candidates) {
        const std::size_t distance = distanceOf(lowerCase(name), lowerCase(candidate));
        if (distance >= least) continue;
        least = distance;
        nearest = candidate;
    }
    return nearest;
}

std::string didYouMean(const std::string& name, const std::vector<std::string>& candidates) {
    const std::string nearest = nearestName(name, candidates);
    return nearest.empty() ? "" : ". Did you mean " + nearest + "?";
}

}  // namespace velmora::console
