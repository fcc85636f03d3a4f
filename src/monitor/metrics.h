// The figures of the watch for programs that collect such figures: the OpenMetrics text format 1.0
// (its chapter "ABNF"), which readers of the older Prometheus text format take too.
#pragma once

#include <cstdint>
#include <string>

#include "base/regional.h"
#include "forms/forms.h"

namespace velmora {

/// Figures of all rows of the watch list, of two rows with one path those of the first, and of the
/// watch. A figure that isn't known is left out. Sizes are in bytes; a label is UTF-8, where an
/// invalid byte becomes U+FFFD. `checkedAt` is the end of the last check in seconds since
/// 1970-01-01 UTC.
std::string metricsText(const Forms& forms, const Regional& regional, std::int64_t checkedAt);

}  // namespace velmora
