// A bar chart or a pie on paper.
#pragma once

#include <memory>

#include "base/regional.h"
#include "qt/controls/chart_data.h"
#include "qt/print/printout.h"

namespace velmora::qt {

/// The picture of a chart that isn't empty. What would scroll in a window goes on on the next
/// pages, each with axis and legend.
std::unique_ptr<PrintedPicture> printedChart(const ChartData& data, const Regional& regional);

}  // namespace velmora::qt
