// Lines over time on paper, with their values in a few rows.
#pragma once

#include "base/date_time.h"
#include "controls/line_chart.h"
#include "qt/print/printout.h"

namespace velmora::qt {

/// The picture of a chart as it is now; it doesn't follow its field. The chart has lines.
std::unique_ptr<PrintedPicture> printedLines(LineChart& chart, const Regional& regional);

/// Of a line alone its first and last, least and greatest values with their times, and its level;
/// of several a row each. Points are as old as they say at `now`.
TextTable summaryOf(const LineChart& chart, const DateTime& now, const Regional& regional);

}  // namespace velmora::qt
