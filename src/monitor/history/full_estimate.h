// When a drive will be full, if it goes on as in the last day. Only a line that falls steadily
// makes an estimate: a false alarm is worse than none.
#pragma once

#include <optional>
#include <string>

#include "monitor/history/space_history.h"

namespace velmora {

/// Seconds from `now` (of the history's clock) until nothing is free, by a straight line through
/// the measures of the last 24 hours. Nothing when that has passed, and unless these span an hour
/// and twelve measures at least, the mean of each quarter of that time is below the one before it,
/// the line fits well (the coefficient of determination is 0.9 or more), and the end is less than a
/// year away.
std::optional<double> secondsUntilFull(const SpaceRing& ring, std::int64_t now);

/// "full in about 3 days", "full in about 5 hours", "full in about 20 minutes"; empty without an
/// estimate.
std::string fullText(const std::optional<double>& seconds);

}  // namespace velmora
