#include "controls/bars.h"

#include "base/runtime_error.h"

namespace velmora {

StatusBar::StatusBar(Form& form, std::string name, int panels)
    : Control(form, std::move(name)), panels_(static_cast<std::size_t>(panels)) {}

const StatusBar::Panel& StatusBar::Panels(int index) const {
    if (index < 1 || index > PanelCount()) throw RuntimeError(error::indexOutOfBounds);
    return panels_[static_cast<std::size_t>(index - 1)];
}

StatusBar::Panel& StatusBar::at(int index) {
    return const_cast<Panel&>(Panels(index));
}

void StatusBar::setPanelText(int index, std::string_view text, std::string_view rest) {
    Panel& panel = at(index);
    const std::string_view present = panel.Text;
    if (present.size() == text.size() + rest.size() && present.starts_with(text) &&
        present.ends_with(rest)) {
        return;
    }
    panel.Text.assign(text).append(rest);
    PanelChanged(index);
}

void StatusBar::setPanelPicture(int index, int image) {
    Panel& panel = at(index);
    if (panel.Picture == image) return;
    panel.Picture = image;
    PanelChanged(index);
}

Properties StatusBar::partProperties(int index) {
    if (index < 1 || index > PanelCount()) return Control::partProperties(index);
    const Panel& panel = at(index);
    return {{"Text", [&panel] { return PropertyValue{panel.Text}; }, {}},
            {"Picture", [&panel] { return PropertyValue{std::int64_t{panel.Picture}}; }, {}}};
}

ToolBar::ToolBar(Form& form, std::string name, std::vector<Button> buttons)
    : Control(form, std::move(name)), buttons_(std::move(buttons)) {}

const ToolBar::Button& ToolBar::Buttons(int index) const {
    if (index < 1 || index > ButtonCount()) throw RuntimeError(error::indexOutOfBounds);
    return buttons_[static_cast<std::size_t>(index - 1)];
}

ToolBar::Button& ToolBar::at(int index) {
    return const_cast<Button&>(Buttons(index));
}

void ToolBar::setButtonCaption(int index, std::string caption) {
    Button& button = at(index);
    if (button.Caption == caption) return;
    button.Caption = std::move(caption);
    ButtonChanged(index);
}

void ToolBar::setButtonImage(int index, int image) {
    Button& button = at(index);
    if (button.Image == image) return;
    button.Image = image;
    ButtonChanged(index);
}

void ToolBar::userClickPart(int index) {
    refuseWhenDisabled();
    partProperties(index);
    ButtonClick(index);
}

Properties ToolBar::partProperties(int index) {
    if (index < 1 || index > ButtonCount()) return Control::partProperties(index);
    const Button& button = at(index);
    return {{"Caption", [&button] { return PropertyValue{button.Caption}; }, {}},
            {"ToolTipText", [&button] { return PropertyValue{button.ToolTipText}; }, {}},
            {"Image", [&button] { return PropertyValue{std::int64_t{button.Image}}; }, {}}};
}

TabStrip::TabStrip(Form& form, std::string name, std::vector<std::string> tabs)
    : Control(form, std::move(name)), tabs_(std::move(tabs)) {}

const std::string& TabStrip::Tabs(int index) const {
    if (index < 1 || index > TabCount()) throw RuntimeError(error::indexOutOfBounds);
    return tabs_[static_cast<std::size_t>(index - 1)];
}

void TabStrip::select(int index) {
    Tabs(index);
    selected_ = index;
    Changed();
    Click();
}

Properties TabStrip::properties() {
    Properties all = Control::properties();
    all.push_back({"SelectedItem", [this] { return PropertyValue{std::int64_t{selected_}}; }, {}});
    all.push_back({"TabCount", [this] { return PropertyValue{std::int64_t{TabCount()}}; }, {}});
    return all;
}

Properties TabStrip::partProperties(int index) {
    if (index < 1 || index > TabCount()) return Control::partProperties(index);
    return {{"Caption", [this, index] { return PropertyValue{Tabs(index)}; }, {}},
            {"Selected", [this, index] { return PropertyValue{selected_ == index}; }, {}}};
}

void TabStrip::userClickPart(int index) {
    refuseWhenDisabled();
    if (index < 1 || index > TabCount()) return Control::userClickPart(index);
    select(index);
}

}  // namespace velmora
