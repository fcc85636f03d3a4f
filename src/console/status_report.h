// The watch on one screen.
#pragma once

#include "base/regional.h"
#include "console/report.h"
#include "forms/forms.h"

namespace velmora::console {

/// How the watch stands and when it checks next, then a line for each row: path, state, free and
/// total space, the used share and the minimum, all as the last check left them.
Report statusReport(const Forms& forms, const Regional& regional);

}  // namespace velmora::console
