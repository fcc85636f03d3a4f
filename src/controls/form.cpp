#include "controls/form.h"

#include "base/text.h"
#include "controls/control.h"

namespace velmora {

Form::Form(std::string name, std::string caption)
    : name_(std::move(name)), caption_(std::move(caption)) {}

void Form::setCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    Changed();
}

void Form::setVisible(bool visible) {
    hiddenWhileLoading_ = !visible;
    if (visible_ == visible) return;
    if (!loaded_) {
        loaded_ = true;
        Load();
        if (hiddenWhileLoading_) return;
    }
    visible_ = visible;
    Changed();
    if (visible) {
        Shown();
    } else {
        Hidden();
    }
}

void Form::Show() {
    setVisible(true);
    if (visible_) Raised();
}

void Form::unloadNow() {
    Hide();
    loaded_ = false;
}

void Form::moveTo(int left, int top) {
    if (placed_ && left_ == left && top_ == top) return;
    placed_ = true;
    left_ = left;
    top_ = top;
    Changed();
}

void Form::setState(WindowState state) {
    if (state_ == state) return;
    state_ = state;
    Changed();
    if (state == WindowState::normal && normalWidth_ > 0) setSize(normalWidth_, normalHeight_);
}

void Form::userClose() {
    if (!visible_) throw Refused(name_ + " is not shown");
    if (Unload.connected()) {
        Unload();
    } else {
        Hide();
    }
}

void Form::setSize(int width, int height) {
    if (width_ == width && height_ == height) return;
    width_ = width;
    height_ = height;
    if (state_ == WindowState::normal) {
        normalWidth_ = width;
        normalHeight_ = height;
    }
    Changed();
    Resize();
}

Control* Form::find(const std::string& name, int index) const {
    const std::string wanted = lowerCase(name);
    for (Control* control : controls_) {
        if (control->Index() == index && lowerCase(control->Name()) == wanted) return control;
    }
    return nullptr;
}

Properties Form::properties() {
    return {{"Caption", [this] { return PropertyValue{caption_}; }, {}},
            {"Visible", [this] { return PropertyValue{visible_}; }, {}},
            {"Left", [this] { return PropertyValue{std::int64_t{left_}}; }, {}},
            {"Top", [this] { return PropertyValue{std::int64_t{top_}}; }, {}},
            {"WindowState", [this] { return PropertyValue{std::int64_t(state_)}; }, {}},
            {"Height", [this] { return PropertyValue{std::int64_t{height_}}; }, {}},
            {"Width", [this] { return PropertyValue{std::int64_t{width_}}; }, {}}};
}

}  // namespace velmora
