#include "controls/list_box.h"

#include "base/runtime_error.h"

namespace velmora {

namespace {
constexpr std::int64_t greatestCharacter = 0x10FFFF;
}

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
    if (index == listIndex_) listIndex_ = -1;
    if (index < listIndex_) --listIndex_;
    Changed();
}

void ComboBox::userDrop(const std::vector<std::string>& paths) {
    refuseWhenDisabled();
    if (!Drop.connected()) throw Refused(fullName() + " takes no dropped paths");
    Drop(paths);
}

void ComboBox::Clear() {
    entries_.clear();
    listIndex_ = -1;
    Changed();
}

void ComboBox::setText(std::string text) {
    if (text_ == text) return;
    text_ = std::move(text);
    listIndex_ = -1;
    Changed();
    Change();
}

void ComboBox::setListIndex(int index) {
    const bool another = index != listIndex_;
    choose(index);
    if (another && index >= 0) Click();
}

void ComboBox::userChoose(int index) {
    refuseWhenDisabled();
    choose(index);
    if (index >= 0) Click();
}

void ComboBox::choose(int index) {
    if (index < -1 || index >= ListCount()) throw RuntimeError(error::invalidPropertyValue);
    std::string text = index < 0 ? std::string() : List(index);
    const bool differs = text != text_;
    text_ = std::move(text);
    listIndex_ = index;
    Changed();
    if (differs) Change();
}

Properties ComboBox::properties() {
    Properties all = Control::properties();
    all.push_back({"Text", [this] { return PropertyValue{text_}; },
                   [this](const std::string& text) {
                       refuseWhenDisabled();
                       setText(text);
                   }});
    all.push_back({"ListCount", [this] { return PropertyValue{std::int64_t{ListCount()}}; }, {}});
    all.push_back({"ListIndex", [this] { return PropertyValue{std::int64_t{listIndex_}}; },
                   [this](const std::string& text) {
                       refuseWhenDisabled();
                       userChoose(static_cast<int>(readWhole(text, -1, ListCount() - 1)));
                   }});
    all.push_back({"KeyPress", [] { return PropertyValue{std::int64_t{0}}; },
                   [this](const std::string& code) {
                       refuseWhenDisabled();
                       KeyPress(static_cast<int>(readWhole(code, 1, greatestCharacter)));
                   }});
    return all;
}

}  // namespace velmora
