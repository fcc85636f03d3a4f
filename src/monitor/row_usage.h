// How much of a watched row's drive is used, and what that means: read from the fields, for those
// who show it. Nothing is measured here and nothing is decided by it.
#pragma once

#include <optional>

#include "base/regional.h"
#include "forms/form1.h"
#include "rows/watch_row.h"

namespace velmora {

enum class RowState {
    notWatched,    ///< isn't ticked
    notChecked,    ///< is ticked, but no check has reached it
    unavailable,   ///< has no free space to go by
    noMinimum,     ///< can't run short: its minimum is 0 or no number
    shortOfSpace,  ///< is in alert, or below its minimum
    nearShortage,  ///< is above its minimum by less than a quarter of it
    fine,
};

struct RowUsage {
    RowState state = RowState::notWatched;
    std::optional<double> freeKB = {};
    std::optional<double> totalKB = {};  ///< above 0
    std::optional<double> triggerKB = {};

    /// The used part of the whole, from 0 to 1; nothing without both sizes.
    std::optional<double> usedShare() const;
    /// The used part at which the row runs short, likewise; nothing without a minimum above 0.
    std::optional<double> shareAtTrigger() const;
};

/// The minimum of a row in KB: its own or that of all rows, in KB or percent, as the main window
/// has it. Nothing when its text is no number.
std::optional<double> triggerKB(const ConstWatchRow& row, const Form1& form1,
                                const Regional& regional);

RowUsage usageOf(const ConstWatchRow& row, const Form1& form1, const Regional& regional);

/// A state in words: "short of space", "ok".
const char* wordsFor(RowState state);

}  // namespace velmora
