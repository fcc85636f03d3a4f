#include "shell/window_effects.h"

#include "base/convert.h"

namespace velmora {

namespace {

constexpr int leastLevel = 20;
constexpr int opaque = 100;
constexpr int half = 50;
constexpr int high = 65;
constexpr int minimal = 80;

constexpr std::uint32_t magenta = 0xFF00FF;
constexpr std::int16_t opaqueAlpha = 255;

}  // namespace

WindowEffects::WindowEffects(Forms& forms, User32& user32) : forms_(forms), user32_(user32) {
    Form1& form1 = forms_.form1;
    form1.Command9.Click.connect([this] { Command9_Click(); });
    form1.mnuFadeH.Click.connect([this] { SetTranslucency(forms_.form1, high); });
    form1.mnuFadeP.Click.connect([this] { SetTranslucency(forms_.form1, minimal); });
    form1.mnuFadeN.Click.connect([this] { SetTranslucency(forms_.form1, opaque); });
    form1.chkOnTop.Click.connect([this] { chkOnTop_Click(); });
    form1.mnuStayOnTop.Click.connect([this] { mnuStayOnTop_Click(); });
}

bool WindowEffects::SetTranslucency(const Form& form, int percent) {
    if (percent < leastLevel || percent > opaque) return false;
    const std::string& name = form.Name();
    const std::int32_t style = user32_.GetWindowLongA(name, window::extendedStyle);
    user32_.SetWindowLongA(name, window::extendedStyle, style | window::layered);
    const std::int16_t alpha = toInteger(percent * 255 * 0.01);
    const std::uint32_t flags =
        alpha == opaqueAlpha ? window::colourKey : window::colourKey | window::alpha;
    return user32_.SetLayeredWindowAttributes(name, magenta, static_cast<std::uint8_t>(alpha),
                                              flags);
}

void WindowEffects::Command9_Click() {
    int& level = forms_.globals.iTranslucency;
    level = level == half ? opaque : half;
    SetTranslucency(forms_.form1, level);
}

void WindowEffects::chkOnTop_Click() {
    Form1& form1 = forms_.form1;
    form1.mnuStayOnTop.setChecked(form1.chkOnTop.ticked());
    placeInOrder(form1.chkOnTop.ticked() ? window::topmost : window::notTopmost);
}

// The check box clicks by the change, and does the rest.
void WindowEffects::mnuStayOnTop_Click() {
    CheckBox& chkOnTop = forms_.form1.chkOnTop;
    chkOnTop.setValue(chkOnTop.ticked() ? 0 : 1);
}

void WindowEffects::drop() {
    placeInOrder(window::notTopmost);
}

void WindowEffects::restore() {
    if (forms_.form1.chkOnTop.ticked()) placeInOrder(window::topmost);
}

// Place and size are handed over and, by the flags, left as they are.
void WindowEffects::placeInOrder(std::int32_t after) {
    const Form1& form1 = forms_.form1;
    user32_.SetWindowPos(form1.Name(), after, form1.Left() / twipsPerPixel,
                         form1.Top() / twipsPerPixel, form1.Width() / twipsPerPixel,
                         form1.Height() / twipsPerPixel, window::noMoveNoSize);
}

}  // namespace velmora
