// The regions that the tests of numbers and dates run in.
#pragma once

#include "base/regional.h"

namespace velmora {

inline const Regional unitedStates{};

inline const Regional germany{.digitGroup = ".",
                              .decimalPoint = ",",
                              .dateOrder = DateOrder::dayMonthYear,
                              .dateSeparator = ".",
                              .timeSeparator = ":",
                              .twelveHourClock = false};

/// Groups digits with a narrow no-break blank.
inline const Regional france{.digitGroup = "\u202F",
                             .decimalPoint = ",",
                             .dateOrder = DateOrder::dayMonthYear,
                             .dateSeparator = "/",
                             .timeSeparator = ":",
                             .twelveHourClock = false};

/// Groups digits with a no-break blank and counts from the year down.
inline const Regional sweden{.digitGroup = "\u00A0",
                             .decimalPoint = ",",
                             .dateOrder = DateOrder::yearMonthDay,
                             .dateSeparator = "-",
                             .timeSeparator = ":",
                             .twelveHourClock = false};

/// Separates dates and times by the same mark.
inline const Regional finland{.digitGroup = "\u00A0",
                              .decimalPoint = ",",
                              .dateOrder = DateOrder::dayMonthYear,
                              .dateSeparator = ".",
                              .timeSeparator = ".",
                              .twelveHourClock = false};

/// A decimal point of two bytes and no digit groups.
inline const Regional arabicPoint{.digitGroup = "", .decimalPoint = "\u066B"};

}  // namespace velmora
