#include "controls/control.h"

#include <gtest/gtest.h>

#include "controls/control_properties.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

struct ControlTest : testing::Test {
    Form form{"Form1"};
    Control control{form, "field"};
    Control member{form, "family", 3};
    Count<Notice<>> changes{control.Changed};
};

TEST_F(ControlTest, BeginsEnabledVisibleAndEmpty) {
    EXPECT_TRUE(control.Enabled());
    EXPECT_TRUE(control.Visible());
    EXPECT_EQ(control.Tag(), "");
    EXPECT_EQ(control.ToolTipText(), "");
    EXPECT_EQ(control.bounds(), Bounds{});
    EXPECT_EQ(control.Name(), "field");
    EXPECT_EQ(control.Index(), -1);
    EXPECT_EQ(member.Index(), 3);
    EXPECT_EQ(&control.form(), &form);
}

TEST_F(ControlTest, NotifiesViewsOfEachChange) {
    control.setEnabled(false);
    control.setVisible(false);
    control.setToolTipText("tip");
    control.setBounds({1, 2, 3, 4});
    EXPECT_EQ(changes, 4);
    EXPECT_FALSE(control.Enabled());
    EXPECT_FALSE(control.Visible());
    EXPECT_EQ(control.ToolTipText(), "tip");
    EXPECT_EQ(control.bounds(), (Bounds{1, 2, 3, 4}));
}

TEST_F(ControlTest, ReportsNothingWhenAValueStays) {
    control.setEnabled(true);
    control.setVisible(true);
    control.setBounds({});
    EXPECT_EQ(changes, 0);
}

TEST_F(ControlTest, ShowsItsPropertiesForReadingOnly) {
    control.setTag("note");
    control.setToolTipText("tip");
    control.setEnabled(false);
    EXPECT_EQ(get(control, "Enabled"), "false");
    EXPECT_EQ(get(control, "Visible"), "true");
    EXPECT_EQ(get(control, "Tag"), "note");
    EXPECT_EQ(get(control, "ToolTipText"), "tip");
    control.setBounds({.Left = 1, .Top = 2, .Width = 3, .Height = 4});
    EXPECT_EQ(
        get(control, "Left") + get(control, "Top") + get(control, "Width") + get(control, "Height"),
        "1234");
    for (const char* name :
         {"Enabled", "Visible", "Tag", "ToolTipText", "Left", "Top", "Width", "Height"}) {
        EXPECT_TRUE(readOnly(control, name)) << name;
    }
    EXPECT_EQ(control.mainProperty(), "Enabled");
    EXPECT_EQ(control.mainPartProperty(), "Text");
}

TEST_F(ControlTest, RefusesClicksAndPartsThatItDoesNotHave) {
    EXPECT_EQ(refusalOf([&] { control.userClick(); }), "field can't be clicked");
    EXPECT_EQ(refusalOf([&] { member.userClick(); }), "family(3) can't be clicked");
    EXPECT_EQ(refusalOf([&] { control.userDoubleClick(); }), "field can't be double-clicked");
    EXPECT_EQ(refusalOf([&] { control.partProperties(2); }), "field has no part 2");
    EXPECT_EQ(refusalOf([&] { control.userClickPart(2); }), "field has no part 2");
}

}  // namespace
}  // namespace velmora::tests
