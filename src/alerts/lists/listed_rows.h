// What lists have in common: finding a row again after other handlers ran, removing a row by hand,
// and what the box beside a list does with dropped paths.
#pragma once

#include <string>
#include <vector>

#include "controls/list_box.h"
#include "controls/list_view.h"
#include "platform/host.h"

namespace velmora {

/// Index of the first selected row, 0 when none is. The row `expected` is preferred, so that a loop
/// over a long list doesn't search all of it for each row.
int selectedRow(const ListView& list, int expected = 1);

/// A row of LVFile that is worked on while other handlers may run.
struct ListedRow {
    const ListItem* row;
    int index;  ///< at the time of listedRow()
    std::string path;
};
/// Error 35600 when there is no row at that index.
ListedRow listedRow(const ListView& list, int index);
/// All rows, from the last to the first, to be handled in this order.
std::vector<ListedRow> rowsFromLast(const ListView& list);
/// The row's present index; 0 when it is gone.
int placeOfRow(const ListView& list, const ListedRow& listed);
/// Removes that row at its present index; nothing when it is gone.
void removeListedRow(ListView& list, const ListedRow& listed);

/// "Remove": removes the selected row, if there is one; a message on an empty list.
void removeSelectedRow(ListView& list, Host& host);

/// One dropped path becomes the box's text, of several each becomes an entry.
void takeDroppedPaths(ComboBox& box, const std::vector<std::string>& paths);

}  // namespace velmora
