// What the lists of files and of programs have in common: taking a row away by hand, and what the
// box beside a list does with dropped paths.
#pragma once

#include <string>
#include <vector>

#include "controls/list_box.h"
#include "controls/list_view.h"
#include "platform/host.h"

namespace velmora {

/// Index of the first selected row, 0 when none is. The row `expected` is preferred, so that
/// whoever goes through a long list row by row doesn't search all of it each time.
int selectedRow(const ListView& list, int expected = 1);

/// "Remove": takes the selected row away, if one is; a message on an empty list.
void removeSelectedRow(ListView& list, Host& host);

/// One dropped path becomes the box's text, of several each becomes an entry.
void takeDroppedPaths(ComboBox& box, const std::vector<std::string>& paths);

}  // namespace velmora
