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

WindowEffects::WindowEffects(Form1& form1, Globals& globals, User32& user32)
    : form1_(form1), globals_(globals), user32_(user32) {
    form1_.Command9.Click.connect([this] { Command9_Click(); });
    form1_.mnuFadeH.Click.connect([this] { SetTranslucency(form1_, high); });
    form1_.mnuFadeP.Click.connect([this] { SetTranslucency(form1_, minimal); });
    form1_.mnuFadeN.Click.connect([this] { SetTranslucency(form1_, opaque); });
    form1_.chkOnTop.Click.connect([this] { chkOnTop_Click(); });
    form1_.mnuStayOnTop.Click.connect([this] { mnuStayOnTop_Click(); });
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
    int& level = globals_.iTranslucency;
    level = level == half ? opaque : half;
    SetTranslucency(form1_, level);
}

void WindowEffects::chkOnTop_Click() {
    form1_.mnuStayOnTop.setChecked(form1_.chkOnTop.ticked());
    placeInOrder(form1_.chkOnTop.ticked() ? window::topmost : window::notTopmost);
}

// The change clicks the check box, whose handler does everything else.
void WindowEffects::mnuStayOnTop_Click() {
    CheckBox& chkOnTop = form1_.chkOnTop;
    chkOnTop.setValue(chkOnTop.ticked() ? 0 : 1);
}

void WindowEffects::drop() {
    placeInOrder(window::notTopmost);
}

void WindowEffects::restore() {
    if (form1_.chkOnTop.ticked()) placeInOrder(window::topmost);
}

// The flags keep place and size, although both are given.
void WindowEffects::placeInOrder(std::int32_t after) {
    user32_.SetWindowPos(form1_.Name(), after, form1_.Left() / twipsPerPixel,
                         form1_.Top() / twipsPerPixel, form1_.Width() / twipsPerPixel,
                         form1_.Height() / twipsPerPixel, window::noMoveNoSize);
}

}  // namespace velmora
