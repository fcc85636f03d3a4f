#include "persist/list_content.h"

namespace velmora {

namespace {

std::string entry(const Control& list, ListContent mode, int index, const std::string& text) {
    const std::string value = mode == ListContent::index ? std::to_string(index) : text;
    return list.Tag() + "=" + value + "\r\n";
}

}  // namespace

std::string prcLstContent(const ListView& list, ListContent mode, Host& host) {
    std::string run;
    for (int i = 1; i <= list.Count(); ++i) {
        const ListItem& row = list.ListItems(i);
        if (row.Selected()) run += entry(list, mode, i, row.Text());
        host.DoEvents();
    }
    return run;
}

std::string prcLstContent(const ListBox& list, ListContent mode, Host& host) {
    std::string run;
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.Selected(i)) run += entry(list, mode, i, list.List(i));
        host.DoEvents();
    }
    return run;
}

std::string prcLstContent(const ComboBox& list, ListContent mode, Host& host) {
    std::string run;
    for (int i = 0; i < list.ListCount(); ++i) {
        run += entry(list, mode, i, list.List(i));
        host.DoEvents();
    }
    return run;
}

}  // namespace velmora
