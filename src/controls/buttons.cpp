#include "controls/buttons.h"

#include "base/runtime_error.h"

namespace velmora {

void Captioned::setCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    Changed();
}

void Captioned::setForeColor(Colour value) {
    if (foreColor_ == value) return;
    foreColor_ = value;
    Changed();
}

void Captioned::setBackColor(Colour value) {
    if (backColor_ == value) return;
    backColor_ = value;
    Changed();
}

Properties Captioned::properties() {
    Properties all = Control::properties();
    all.push_back({"Caption", [this] { return PropertyValue{Caption()}; }, {}});
    all.push_back({"ForeColor", [this] { return PropertyValue{std::int64_t{foreColor_}}; }, {}});
    all.push_back({"BackColor", [this] { return PropertyValue{std::int64_t{backColor_}}; }, {}});
    return all;
}

void Clickable::userClick() {
    refuseWhenDisabled();
    Click();
}

void Label::userClick() {
    refuseWhenDisabled();
    MouseMove();
    MouseDown();
    MouseUp();
    Click();
}

void CheckBox::setValue(int value) {
    if (value != 0 && value != 1) throw RuntimeError(error::invalidPropertyValue);
    if (value_ == value) return;
    value_ = value;
    Changed();
    Click();
}

void CheckBox::userClick() {
    refuseWhenDisabled();
    setValue(1 - value_);
}

Properties CheckBox::properties() {
    Properties all = Clickable::properties();
    all.push_back({"Value", [this] { return PropertyValue{std::int64_t{value_}}; },
                   [this](const std::string& text) {
                       refuseWhenDisabled();
                       setValue(readSwitch(text) ? 1 : 0);
                   }});
    return all;
}

void OptionButton::group(std::vector<OptionButton*> members) {
    for (OptionButton* member : members) {
        member->group_ = members;
        member->value_ = member == members.front();
    }
}

void OptionButton::choose() {
    for (OptionButton* member : group_) {
        if (member->value_ == (member == this)) continue;
        member->value_ = member == this;
        member->Changed();
    }
    Click();
}

void OptionButton::userClick() {
    refuseWhenDisabled();
    choose();
}

Properties OptionButton::properties() {
    Properties all = Clickable::properties();
    all.push_back({"Value", [this] { return PropertyValue{value_}; },
                   [this](const std::string& text) {
                       refuseWhenDisabled();
                       if (!readSwitch(text)) {
                           throw Refused(fullName() +
                                         " is cleared by setting another of its group");
                       }
                       choose();
                   }});
    return all;
}

MenuItem::MenuItem(Form& form, std::string name, std::string caption, MenuItem* above)
    : Clickable(form, std::move(name), std::move(caption)) {
    if (above != nullptr) above->items_.push_back(this);
}

void MenuItem::userClick() {
    if (separates()) throw Refused(fullName() + " can't be clicked");
    Clickable::userClick();
}

void MenuItem::setChecked(bool checked) {
    if (checked_ == checked) return;
    checked_ = checked;
    Changed();
}

Properties MenuItem::properties() {
    Properties all = Clickable::properties();
    all.push_back({"Checked", [this] { return PropertyValue{checked_}; }, {}});
    return all;
}

}  // namespace velmora
