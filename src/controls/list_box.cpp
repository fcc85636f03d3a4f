#include "controls/list_box.h"

#include "base/runtime_error.h"

namespace velmora {

ListBox::ListBox(Form& form, std::string name, std::initializer_list<const char*> entries)
    : ListBox(form, std::move(name), std::span(entries.begin(), entries.size())) {}

ListBox::ListBox(Form& form, std::string name, std::span<const char* const> entries)
    : Control(form, std::move(name)) {
    for (const char* entry : entries) entries_.push_back({entry});
}

const ListBox::Entry& ListBox::at(int index) const {
    if (index < 0 || index >= ListCount()) throw RuntimeError(error::subscriptOutOfRange);
    return entries_[static_cast<std::size_t>(index)];
}

void ListBox::setSelected(int index, bool selected) {
    if (at(index).selected == selected) return;
    entries_[static_cast<std::size_t>(index)].selected = selected;
    Changed();
    ItemCheck(index);
}

void ListBox::AddItem(std::string text) {
    entries_.push_back({std::move(text)});
    Changed();
}

void ListBox::Clear() {
    entries_.clear();
    Changed();
}

void ListBox::userTick(int index, bool on) {
    refuseWhenDisabled();
    partProperties(index);
    setSelected(index, on);
    Click();
}

void ListBox::userClick() {
    refuseWhenDisabled();
    Click();
}

Properties ListBox::partProperties(int index) {
    if (index < 0 || index >= ListCount()) return Control::partProperties(index);
    return {{"Text", [this, index] { return PropertyValue{List(index)}; }, {}},
            {"Selected", [this, index] { return PropertyValue{Selected(index)}; }, {}}};
}

Properties ListBox::properties() {
    Properties all = Control::properties();
    all.push_back({"ListCount", [this] { return PropertyValue{std::int64_t{ListCount()}}; }, {}});
    return all;
}

const std::string& ComboBox::List(int index) const {
    if (index < 0 || index >= ListCount()) throw RuntimeError(error::subscriptOutOfRange);
    return entries_[static_cast<std::size_t>(index)];
}

void ComboBox::AddItem(std::string text) {
    entries_.push_back(std::move(text));
    Changed();
}

void ComboBox::RemoveItem(int index) {
    if (index < 0 || index >= ListCount()) throw RuntimeError(error::invalidCall);
    entries_.erase(entries_.begin() + index);
    Changed();
}

void ComboBox::userDrop(const std::vector<std::string>& paths) {
    refuseWhenDisabled();
    if (!Drop.connected()) throw Refused(fullName() + " takes no dropped paths");
    Drop(paths);
}

void ComboBox::Clear() {
    entries_.clear();
    Changed();
}

void ComboBox::setText(std::string text) {
    if (text_ == text) return;
    text_ = std::move(text);
    Changed();
    Change();
}

Properties ComboBox::properties() {
    Properties all = Control::properties();
    all.push_back({"Text", [this] { return PropertyValue{text_}; },
                   [this](const std::string& text) {
                       refuseWhenDisabled();
                       setText(text);
                   }});
    all.push_back({"ListCount", [this] { return PropertyValue{std::int64_t{ListCount()}}; }, {}});
    return all;
}

}  // namespace velmora
