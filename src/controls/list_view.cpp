#include "controls/list_view.h"

#include <cstddef>
#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "base/text.h"
#include "controls/text_order.h"

namespace velmora {

ListView::ListView(Form& form, std::string name) : Control(form, std::move(name)) {}

ListView::~ListView() = default;

const ColumnHeader& ListView::ColumnHeaders(int index) const {
    if (index < 1 || index > ColumnCount()) throw RuntimeError(error::indexOutOfBounds);
    return columns_[static_cast<std::size_t>(index - 1)];
}

void ListView::addColumn(ColumnHeader column) {
    columns_.push_back(std::move(column));
    Changed();
}

void ListView::setColumnText(int index, std::string text) {
    ColumnHeaders(index);
    columns_[static_cast<std::size_t>(index - 1)].Text = std::move(text);
    Changed();
}

ListItem& ListView::ListItems(int index) {
    if (index < 1 || index > Count()) throw RuntimeError(error::indexOutOfBounds);
    return *rows_[static_cast<std::size_t>(index - 1)];
}

const ListItem& ListView::ListItems(int index) const {
    return const_cast<ListView*>(this)->ListItems(index);
}

ListItem& ListView::Add(std::string text) {
    return Add(Count() + 1, std::move(text));
}

ListItem& ListView::Add(int index, std::string text) {
    if (index < 1 || index > Count() + 1) throw RuntimeError(error::indexOutOfBounds);
    Made row;
    ListItem& added = row.emplace_back(*this);
    rows_.insert(rows_.begin() + (index - 1), row.begin());
    made_.splice(made_.end(), row);
    RowInserted(index);
    added.setText(std::move(text));
    return added;
}

void ListView::Remove(int index) {
    ListItems(index);
    const auto place = rows_.begin() + (index - 1);
    made_.erase(*place);
    rows_.erase(place);
    RowRemoved(index);
}

void ListView::Clear() {
    rows_.clear();
    made_.clear();
    RowsReset();
}

int ListView::selectedIndex() const {
    for (int i = 1; i <= Count(); ++i) {
        if (rows_[static_cast<std::size_t>(i - 1)]->Selected()) return i;
    }
    return 0;
}

ListItem* ListView::SelectedItem() {
    const int index = selectedIndex();
    return index == 0 ? nullptr : &ListItems(index);
}

void ListView::sortBy(int key, int order) {
    sortKey_ = key;
    sortOrder_ = order;
    sorted_ = true;
    // Keys first: a column that isn't there fails before a row has moved.
    TextOrder keys;
    for (const auto& row : rows_) {
        keys.add(lowerCase(key == 0 ? row->Text() : row->SubItems(key)));
    }
    const std::vector<std::size_t> places = keys.sorted(order != 0);
    std::deque<Made::iterator> sorted(rows_.size());
    for (std::size_t i = 0; i < places.size(); ++i) sorted[i] = rows_[places[i]];
    rows_.swap(sorted);
    RowsReset();
}

int ListView::columnLeft(int index) const {
    int left = 0;
    for (int i = 1; i < index; ++i) left += ColumnHeaders(i).Width;
    return left;
}

ListItem* ListView::HitTest(float x, float y) {
    if (x < 0 || y < headerHeight || ColumnCount() == 0) return nullptr;
    if (x >= static_cast<float>(columnLeft(ColumnCount()) + columns_.back().Width)) return nullptr;
    const float row = (y - headerHeight) / rowHeight;
    return row < static_cast<float>(Count()) ? &ListItems(static_cast<int>(row) + 1) : nullptr;
}

}  // namespace velmora
