// What the caption of a menu item says, for whoever writes one.
#pragma once

#include <string>

#include "console/reports.h"

namespace velmora::console {

/// A line for each property of the item and of its side bar, by the names of the caption language.
/// What a caption doesn't name has no line.
Report captionReport(const std::string& caption);

}  // namespace velmora::console
