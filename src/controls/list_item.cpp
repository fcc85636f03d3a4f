#include "controls/list_item.h"

#include "base/runtime_error.h"
#include "controls/list_view.h"

namespace velmora {

const std::string& ListItem::empty() {
    static const std::string none;
    return none;
}

const std::string& ListSubItem::Tag() const {
    static const std::string none;
    return extras_ ? extras_->tag : none;
}

const std::string& ListSubItem::Key() const {
    static const std::string none;
    return extras_ ? extras_->key : none;
}

const std::string& ListSubItem::ReportIcon() const {
    static const std::string none;
    return extras_ ? extras_->icon : none;
}

ListSubItem::Extras& ListSubItem::extras() {
    if (!extras_) extras_ = std::make_unique<Extras>();
    return *extras_;
}

int ListItem::SubItemCount() const {
    return owner_.ColumnCount() - 1;
}

void ListItem::checkIndex(int index) const {
    if (index < 1 || index > SubItemCount()) throw RuntimeError(error::indexOutOfBounds);
}

const ListSubItem& ListItem::sub(int index) const {
    checkIndex(index);
    static const ListSubItem untouched;
    const auto place = static_cast<std::size_t>(index - 1);
    return place < subs_.size() ? subs_[place] : untouched;
}

ListSubItem& ListItem::writable(int index) {
    checkIndex(index);
    const auto place = static_cast<std::size_t>(index);
    if (subs_.size() < place) {
        // Exactly as many as are used: a vector's usual growth would cost a quarter of the row.
        subs_.reserve(place);
        subs_.resize(place);
    }
    return subs_[place - 1];
}

void ListItem::changed() {
    owner_.RowChanged(*this);
}

void ListItem::setText(std::string text) {
    if (text_ == text) return;
    text_ = std::move(text);
    changed();
}

void ListItem::setTag(std::string_view tag) {
    if (Tag() == tag) return;
    if (tag.empty()) {
        tag_.reset();
    } else if (tag_) {
        *tag_ = tag;
    } else {
        tag_ = std::make_unique<std::string>(tag);
    }
    changed();
}

void ListItem::setChecked(bool checked) {
    if (checked_ == checked) return;
    checked_ = checked;
    changed();
}

void ListItem::setSmallIcon(std::string icon) {
    if (SmallIcon() == icon) return;
    icon_ = icon.empty() ? nullptr : std::make_unique<std::string>(std::move(icon));
    changed();
}

void ListItem::setSelected(bool selected) {
    if (selected_ == selected) return;
    selected_ = selected;
    changed();
    owner_.SelectionChanged();
}

void ListItem::setBold(bool bold) {
    if (bold_ == bold) return;
    bold_ = bold;
    changed();
}

void ListItem::setSubItems(int index, std::string text) {
    if (sub(index).Text == text) return;
    writable(index).Text = std::move(text);
    changed();
}

// The room of the former text is used again: a check stamps each row anew.
void ListItem::setExtra(int index, std::string ListSubItem::Extras::*field,
                        std::string_view value) {
    if (static_cast<std::size_t>(index) > subs_.size()) {
        // The sub-items move, and perhaps the value with them.
        const std::string copy(value);
        writable(index).extras().*field = copy;
    } else {
        writable(index).extras().*field = value;
    }
    changed();
}

void ListItem::setSubTag(int index, std::string_view tag) {
    if (sub(index).Tag() == tag) return;
    setExtra(index, &ListSubItem::Extras::tag, tag);
}

void ListItem::setSubKey(int index, std::string_view key) {
    if (sub(index).Key() == key) return;
    setExtra(index, &ListSubItem::Extras::key, key);
}

void ListItem::setReportIcon(int index, std::string_view icon) {
    if (sub(index).ReportIcon() == icon) return;
    setExtra(index, &ListSubItem::Extras::icon, icon);
}

void ListItem::setSubBold(int index, bool bold) {
    if (sub(index).Bold() == bold) return;
    writable(index).extras().bold = bold;
    changed();
}

}  // namespace velmora
