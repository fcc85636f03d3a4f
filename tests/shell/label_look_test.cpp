// The colours that the label buttons share.
#include "shell/command_rig.h"

namespace velmora::tests {
namespace {

std::vector<Label*> labelButtons(Forms& forms) {
    Form1& form1 = forms.form1;
    std::vector<Label*> all;
    for (Label& label : form1.Label5) all.push_back(&label);
    for (Label& label : form1.lblDP) all.push_back(&label);
    for (Label& label : form1.lblSF) all.push_back(&label);
    for (Label& label : form1.lblAl) all.push_back(&label);
    for (Label& label : forms.dlgAlert.lblAct) all.push_back(&label);
    for (Label& label : forms.dlgAlert.lblAl) all.push_back(&label);
    return all;
}

TEST(LabelLook, EveryLabelButtonBrightensWhilePressedAndTurnsOrangeAgain) {
    CommandRig rig;
    const auto labels = labelButtons(rig.forms);
    ASSERT_EQ(labels.size(), 5u + 7u + 9u + 4u + 5u + 5u);
    for (Label* label : labels) {
        label->MouseDown();
        EXPECT_EQ(label->ForeColor(), 0xE0E0E0u) << label->Name();
        label->MouseUp();
        EXPECT_EQ(label->ForeColor(), 33023u) << label->Name();
    }
}

TEST(LabelLook, TheReleaseRestoresTheDesignColourFromAnyOther) {
    CommandRig rig;
    rig.form1.lblDP[watch_button::clear].setForeColor(1);
    rig.form1.lblDP[watch_button::clear].MouseUp();
    EXPECT_EQ(rig.form1.lblDP[watch_button::clear].ForeColor(), 33023u);
}

TEST(LabelLook, ThePointerFlashesLabel5ThroughGreyToBlackAtEachMove) {
    CommandRig rig;
    for (Label& label : rig.form1.Label5) {
        std::vector<Colour> seen;
        label.Changed.connect([&] { seen.push_back(label.BackColor()); });
        label.MouseMove();
        label.MouseMove();
        EXPECT_EQ(seen, (std::vector<Colour>{0xC0C0C0, 0, 0xC0C0C0, 0}));
    }
}

TEST(LabelLook, ThePointerDoesNotChangeTheOtherLabels) {
    CommandRig rig;
    for (Label* label : labelButtons(rig.forms)) {
        if (label->Name() == "Label5") continue;
        const Colour before = label->BackColor();
        label->MouseMove();
        EXPECT_EQ(label->BackColor(), before) << label->Name();
    }
}

}  // namespace
}  // namespace velmora::tests
