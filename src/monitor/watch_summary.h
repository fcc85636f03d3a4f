// The state of the whole watch in one line, read from the fields. It never says more than is known:
// without a check, a minimum or a tick nothing is fine.
#pragma once

#include <string>

#include "base/regional.h"
#include "forms/forms.h"

namespace velmora {

struct WatchSummary {
    enum class Mood { neutral, good, warning, bad };

    Mood mood = Mood::neutral;
    std::string text;
    /// The paths of what is most serious in `text`, three at most: "D:\, E:\ and 2 more".
    std::string paths;
    int watched = 0;  ///< ticked rows
};

/// A watch is paused unless a check is running or its timer is.
WatchSummary summaryOf(const Forms& forms, const Regional& regional);

}  // namespace velmora
