#include "controls/control.h"

#include "controls/form.h"

namespace velmora {

Control::Control(Form& form, std::string name, int index)
    : form_(form), name_(std::move(name)), index_(index) {
    form_.add(*this);
}

void Control::setEnabled(bool enabled) {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    Changed();
}

void Control::setVisible(bool visible) {
    if (visible_ == visible) return;
    visible_ = visible;
    Changed();
}

void Control::setToolTipText(std::string text) {
    toolTip_ = std::move(text);
    Changed();
}

void Control::setBounds(const Bounds& bounds) {
    if (bounds_ == bounds) return;
    bounds_ = bounds;
    Changed();
}

Properties Control::properties() {
    // Only the program enables and shows its controls; the user's hand can't.
    return {{"Enabled", [this] { return PropertyValue{Enabled()}; }, {}},
            {"Visible", [this] { return PropertyValue{Visible()}; }, {}},
            {"Tag", [this] { return PropertyValue{Tag()}; }, {}},
            {"ToolTipText", [this] { return PropertyValue{ToolTipText()}; }, {}},
            {"Left", [this] { return PropertyValue{std::int64_t{bounds_.Left}}; }, {}},
            {"Top", [this] { return PropertyValue{std::int64_t{bounds_.Top}}; }, {}},
            {"Width", [this] { return PropertyValue{std::int64_t{bounds_.Width}}; }, {}},
            {"Height", [this] { return PropertyValue{std::int64_t{bounds_.Height}}; }, {}}};
}

Properties Control::partProperties(int index) {
    throw Refused(fullName() + " has no part " + std::to_string(index));
}

void Control::userClickPart(int index) {
    partProperties(index);
}

void Control::userClick() {
    throw Refused(fullName() + " can't be clicked");
}

void Control::userDoubleClick() {
    throw Refused(fullName() + " can't be double-clicked");
}

void Control::refuseWhenDisabled() const {
    if (!enabled_) throw Refused(fullName() + " is disabled");
}

std::string Control::fullName() const {
    return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

std::string namedFor(const Control& control) {
    const std::string name = control.form().Name() + "." + control.fullName();
    const std::string words = control.shownWords();
    return words.empty() ? name : "\"" + words + "\", " + name;
}

}  // namespace velmora
