#include "alerts/lists/listed_rows.h"

#include <algorithm>

#include "rows/listed_file.h"

namespace velmora {

int selectedRow(const ListView& list, int expected) {
    const int count = list.Count();
    if (expected >= 1 && expected <= count && list.ListItems(expected).Selected()) return expected;
    for (int i = 1; i <= count; ++i) {
        if (list.ListItems(i).Selected()) return i;
    }
    return 0;
}

ListedRow listedRow(const ListView& list, int index) {
    const ListItem& row = list.ListItems(index);
    return {.row = &row, .index = index, .path = ConstListedFile(row).path()};
}

std::vector<ListedRow> rowsFromLast(const ListView& list) {
    std::vector<ListedRow> all;
    all.reserve(static_cast<std::size_t>(list.Count()));
    for (int i = list.Count(); i >= 1; --i) all.push_back(listedRow(list, i));
    return all;
}

// Nearly always the row still has its index.
int placeOfRow(const ListView& list, const ListedRow& listed) {
    const auto isAt = [&](int index) {
        return index <= list.Count() && &list.ListItems(index) == listed.row &&
               ConstListedFile(*listed.row).path() == listed.path;
    };
    // When rows above it were removed, it has moved up.
    for (int i = std::min(listed.index, list.Count()); i >= 1; --i) {
        if (isAt(i)) return i;
    }
    for (int i = listed.index + 1; i <= list.Count(); ++i) {
        if (isAt(i)) return i;
    }
    return 0;
}

void removeListedRow(ListView& list, const ListedRow& listed) {
    if (const int place = placeOfRow(list, listed); place > 0) list.Remove(place);
}

void removeSelectedRow(ListView& list, Host& host) {
    if (list.Count() == 0) {
        host.MsgBox({.text = "No item listed."});
        return;
    }
    if (const int row = selectedRow(list); row > 0) list.Remove(row);
}

void takeDroppedPaths(ComboBox& box, const std::vector<std::string>& paths) {
    if (paths.size() == 1) {
        box.setText(paths.front());
        return;
    }
    for (const std::string& path : paths) box.AddItem(path);
}

}  // namespace velmora
