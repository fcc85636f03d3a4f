#include "controls/buttons.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "controls/control_properties.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

struct ButtonsTest : testing::Test {
    Form form{"Form1"};
    CommandButton button{form, "cmdPause", "Start Watch"};
    Label label{form, "lblDP", "Remove", 1};
    Frame frame{form, "fraProgress", "Progress"};
    MenuItem menu{form, "mnuLstV", "List"};
};

TEST_F(ButtonsTest, AClickReachesTheHandlers) {
    const Count clicks(button.Click);
    button.userClick();
    EXPECT_EQ(clicks, 1);
    const Count labelClicks(label.Click);
    label.userClick();
    EXPECT_EQ(labelClicks, 1);
}

TEST_F(ButtonsTest, ADisabledButtonRefusesTheClick) {
    const Count clicks(label.Click);
    label.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { label.userClick(); }), "lblDP(1) is disabled");
    EXPECT_EQ(clicks, 0);
}

TEST_F(ButtonsTest, AFrameCannotBeClicked) {
    EXPECT_EQ(refusalOf([&] { frame.userClick(); }), "fraProgress can't be clicked");
    EXPECT_EQ(get(frame, "Caption"), "Progress");
}

TEST_F(ButtonsTest, ANewCaptionIsReportedOnce) {
    const Count changes(button.Changed);
    button.setCaption("Start Watch");
    button.setCaption("Pause Watch");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(get(button, "Caption"), "Pause Watch");
    EXPECT_TRUE(readOnly(button, "Caption"));
    EXPECT_EQ(button.mainProperty(), "Caption");
}

TEST_F(ButtonsTest, AMenuItemChecksAndPopsUp) {
    const Count changes(menu.Changed);
    const Count shown(menu.PoppedUp);
    EXPECT_EQ(get(menu, "Checked"), "false");
    menu.setChecked(true);
    menu.setChecked(true);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(get(menu, "Checked"), "true");
    menu.PopUp();
    EXPECT_EQ(shown, 1);
}

struct CheckBoxTest : testing::Test {
    Form form{"Form1"};
    CheckBox box{form, "chkDrive", "Set Size Individually"};
    Count<Event<>> clicks{box.Click};
};

TEST_F(CheckBoxTest, ClicksWheneverItsValueChanges) {
    EXPECT_EQ(box.Value(), 0);
    box.setValue(1);
    EXPECT_TRUE(box.ticked());
    box.setValue(1);
    EXPECT_EQ(clicks, 1);
    box.userClick();
    EXPECT_EQ(box.Value(), 0);
    EXPECT_EQ(clicks, 2);
}

TEST_F(CheckBoxTest, HasItsNewValueWhenItClicks) {
    int seen = -1;
    box.Click.connect([&] { seen = box.Value(); });
    box.userClick();
    EXPECT_EQ(seen, 1);
}

TEST_F(CheckBoxTest, TakesNoOtherValue) {
    for (const int value : {2, -1}) {
        EXPECT_EQ(errorOf([&] { box.setValue(value); }), error::invalidPropertyValue);
    }
    EXPECT_EQ(box.Value(), 0);
    EXPECT_EQ(clicks, 0);
}

TEST_F(CheckBoxTest, IsSetByNameAsByHand) {
    set(box, "Value", "on");
    EXPECT_EQ(get(box, "Value"), "1");
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(box.mainProperty(), "Value");
    EXPECT_NE(refusalOf([&] { set(box, "Value", "2"); }), "");
    box.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { set(box, "Value", "off"); }), "chkDrive is disabled");
    EXPECT_EQ(refusalOf([&] { box.userClick(); }), "chkDrive is disabled");
    EXPECT_TRUE(box.ticked());
}

TEST_F(CheckBoxTest, AProgramMayChangeADisabledOne) {
    box.setEnabled(false);
    box.setValue(1);
    EXPECT_TRUE(box.ticked());
    EXPECT_EQ(clicks, 1);
}

struct OptionButtonTest : testing::Test {
    OptionButtonTest() { OptionButton::group({&size, &percent}); }
    Form form{"Form1"};
    OptionButton size{form, "OpDriv", "By Size in (KB)", 0};
    OptionButton percent{form, "OpDriv", "By %", 1};
};

TEST_F(OptionButtonTest, TheFirstOfAGroupIsSetWithoutAClick) {
    EXPECT_TRUE(size.Value());
    EXPECT_FALSE(percent.Value());
}

TEST_F(OptionButtonTest, ExactlyOneIsSet) {
    percent.userClick();
    EXPECT_FALSE(size.Value());
    EXPECT_TRUE(percent.Value());
    size.choose();
    EXPECT_TRUE(size.Value());
    EXPECT_FALSE(percent.Value());
}

TEST_F(OptionButtonTest, ClicksAlsoWhenItIsSetAlready) {
    const Count clicks(size.Click);
    const Count others(percent.Click);
    size.choose();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(others, 0);
}

TEST_F(OptionButtonTest, ViewsOfBothAreNotified) {
    const Count sizeChanges(size.Changed);
    const Count percentChanges(percent.Changed);
    percent.userClick();
    percent.userClick();
    EXPECT_EQ(sizeChanges, 1);
    EXPECT_EQ(percentChanges, 1);
}

TEST_F(OptionButtonTest, IsSetByNameButNotCleared) {
    set(percent, "Value", "true");
    EXPECT_EQ(get(percent, "Value"), "true");
    EXPECT_EQ(get(size, "Value"), "false");
    EXPECT_EQ(refusalOf([&] { set(percent, "Value", "false"); }),
              "OpDriv(1) is cleared by setting another of its group");
    EXPECT_TRUE(percent.Value());
    percent.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { percent.userClick(); }), "OpDriv(1) is disabled");
    EXPECT_EQ(refusalOf([&] { set(percent, "Value", "on"); }), "OpDriv(1) is disabled");
}

}  // namespace
}  // namespace velmora::tests
