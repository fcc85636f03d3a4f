#include "alerts/listed_rows.h"

namespace velmora {

int selectedRow(const ListView& list, int expected) {
    const int count = list.Count();
    if (expected >= 1 && expected <= count && list.ListItems(expected).Selected()) return expected;
    for (int i = 1; i <= count; ++i) {
        if (list.ListItems(i).Selected()) return i;
    }
    return 0;
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
