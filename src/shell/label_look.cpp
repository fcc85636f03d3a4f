#include "shell/label_look.h"

namespace velmora {

namespace {

constexpr Colour pressedText = 0xE0E0E0;
constexpr Colour designText = 33023;  // orange
constexpr Colour flash = 0xC0C0C0;
constexpr Colour black = 0;

void connectPress(Label& label) {
    label.MouseDown.connect([&label] { label.setForeColor(pressedText); });
    label.MouseUp.connect([&label] { label.setForeColor(designText); });
}

}  // namespace

LabelLook::LabelLook(Form1& form1, DlgAlert& dlgAlert) {
    for (Label& label : form1.Label5) {
        connectPress(label);
        // One after the other without a pause: the label ends black.
        label.MouseMove.connect([&label] {
            label.setBackColor(flash);
            label.setBackColor(black);
        });
    }
    for (Label& label : form1.lblDP) connectPress(label);
    for (Label& label : form1.lblSF) connectPress(label);
    for (Label& label : form1.lblAl) connectPress(label);
    for (Label& label : dlgAlert.lblAct) connectPress(label);
    for (Label& label : dlgAlert.lblAl) connectPress(label);
}

}  // namespace velmora
