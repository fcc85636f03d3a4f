// What the user's hand does to a list view.
#include <algorithm>

#include "controls/list_view.h"

namespace velmora {

void ListView::refuseWithoutRow(int index) const {
    if (index < 1 || index > Count()) {
        throw Refused(fullName() + " has no row " + std::to_string(index));
    }
}

void ListView::userTick(int index, bool on) {
    refuseWhenDisabled();
    refuseWithoutRow(index);
    ListItem& row = ListItems(index);
    if (row.Checked() == on) return;
    row.setChecked(on);
    ItemCheck(row);
}

void ListView::userSelect(const std::vector<int>& indexes) {
    refuseWhenDisabled();
    for (const int index : indexes) refuseWithoutRow(index);
    for (int i = 1; i <= Count(); ++i) {
        ListItems(i).setSelected(std::find(indexes.begin(), indexes.end(), i) != indexes.end());
    }
}

void ListView::userClickPart(int index) {
    refuseWhenDisabled();
    partProperties(index);
    ColumnClick(index);
}

void ListView::userDrop(const std::vector<std::string>& paths) {
    if (!dropsWhileDisabled_) refuseWhenDisabled();
    if (!Drop.connected()) throw Refused(fullName() + " takes no dropped paths");
    Drop(paths);
}

void ListView::userDoubleClickOn(int row, int column) {
    refuseWhenDisabled();
    refuseWithoutRow(row);
    // The middle of the cell, where a hand would point.
    const int x = columnLeft(column) + ColumnHeaders(column).Width / 2;
    const int y = rowTop(row) + rowHeight / 2;
    MouseMove(static_cast<float>(x), static_cast<float>(y));
    DblClick();
}

void ListView::userDoubleClick() {
    const int row = selectedIndex();
    if (row == 0) throw Refused("no row of " + fullName() + " is selected");
    userDoubleClickOn(row, 1);
}

Properties ListView::partProperties(int index) {
    if (index < 1 || index > ColumnCount()) return Control::partProperties(index);
    const ColumnHeader& column = ColumnHeaders(index);
    return {{"Text", [&column] { return PropertyValue{column.Text}; }, {}},
            {"Width", [&column] { return PropertyValue{std::int64_t{column.Width}}; }, {}},
            {"Alignment",
             [&column] {
                 const bool right = column.alignment == Alignment::right;
                 return PropertyValue{std::string(right ? "right" : "left")};
             },
             {}}};
}

Properties ListView::properties() {
    Properties all = Control::properties();
    all.push_back({"Count", [this] { return PropertyValue{std::int64_t{Count()}}; }, {}});
    all.push_back({"SortKey", [this] { return PropertyValue{std::int64_t{sortKey_}}; }, {}});
    all.push_back({"SortOrder", [this] { return PropertyValue{std::int64_t{sortOrder_}}; }, {}});
    all.push_back({"Sorted", [this] { return PropertyValue{sorted_}; }, {}});
    return all;
}

}  // namespace velmora
