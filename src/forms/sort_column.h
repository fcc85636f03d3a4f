// The one routine by which every list of the main window sorts.
#pragma once

#include "controls/list_view.h"

namespace velmora {

/// A click on column `column` (from 1): sorts by it, in the opposite of the list's present order,
/// whichever column was sorted before. Errors are passed over.
void prcSortColumn(ListView& list, int column);

}  // namespace velmora
