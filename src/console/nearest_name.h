// The name that was probably meant.
#pragma once

#include <string>
#include <vector>

namespace velmora::console {

/// The candidate that a misspelt name is nearest to, counted in letters that are missing, wrong,
/// too many or changed with the next one; letter case doesn't matter. Empty when none is near: a
/// third of the letters may differ, at least one. The first of equally near ones.
std::string nearestName(const std::string& name, const std::vector<std::string>& candidates);

/// ". Did you mean NAME?", or nothing.
std::string didYouMean(const std::string& name, const std::vector<std::string>& candidates);

}  // namespace velmora::console
