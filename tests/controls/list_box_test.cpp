#include "controls/list_box.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "controls/control_properties.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

struct ListBoxTest : testing::Test {
    Form form{"Form1"};
    ListBox list{form, "lstAct", {"first", "second"}};
    Count<Event<int>> checks{list.ItemCheck};
    Count<Event<>> clicks{list.Click};
};

TEST_F(ListBoxTest, BeginsWithItsEntriesUnticked) {
    ASSERT_EQ(list.ListCount(), 2);
    EXPECT_EQ(list.List(0), "first");
    EXPECT_EQ(list.List(1), "second");
    EXPECT_FALSE(list.Selected(0));
    EXPECT_FALSE(list.Selected(1));
}

TEST_F(ListBoxTest, ReportsATickOfTheUserAndOfTheProgram) {
    int ticked = -1;
    list.ItemCheck.connect([&](int index) { ticked = index; });
    list.setSelected(1, true);
    list.setSelected(1, true);
    EXPECT_TRUE(list.Selected(1));
    EXPECT_FALSE(list.Selected(0));
    EXPECT_EQ(ticked, 1);
    EXPECT_EQ(checks, 1);
    EXPECT_EQ(clicks, 0);
}

TEST_F(ListBoxTest, ClicksAfterTheTickOfTheHand) {
    list.Click.connect([this] { EXPECT_TRUE(list.Selected(0)); });
    list.userTick(0, true);
    list.userTick(0, true);
    EXPECT_EQ(checks, 1);
    EXPECT_EQ(clicks, 2);
}

TEST_F(ListBoxTest, HasNoEntryOutsideItsRange) {
    for (const int index : {-1, 2}) {
        EXPECT_EQ(errorOf([&] { list.List(index); }), error::subscriptOutOfRange);
        EXPECT_EQ(errorOf([&] { list.Selected(index); }), error::subscriptOutOfRange);
        EXPECT_EQ(errorOf([&] { list.setSelected(index, true); }), error::subscriptOutOfRange);
        EXPECT_NE(refusalOf([&] { list.userTick(index, true); }), "");
        EXPECT_NE(refusalOf([&] { list.partProperties(index); }), "");
    }
    EXPECT_EQ(clicks, 0);
}

TEST_F(ListBoxTest, RefusesTheHandWhenDisabled) {
    list.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { list.userTick(0, true); }), "lstAct is disabled");
    EXPECT_FALSE(list.Selected(0));
}

TEST_F(ListBoxTest, GrowsAndIsCleared) {
    const Count changes(list.Changed);
    list.AddItem("third");
    EXPECT_EQ(list.List(2), "third");
    EXPECT_FALSE(list.Selected(2));
    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(changes, 2);
}

TEST_F(ListBoxTest, ShowsItsEntriesByNumber) {
    list.setSelected(1, true);
    EXPECT_EQ(get(list, "ListCount"), "2");
    EXPECT_EQ(getPart(list, 1, "Text"), "second");
    EXPECT_EQ(getPart(list, 1, "Selected"), "true");
    EXPECT_EQ(getPart(list, 0, "Selected"), "false");
    EXPECT_EQ(list.mainProperty(), "ListCount");
}

struct ComboBoxTest : testing::Test {
    Form form{"Form1"};
    ComboBox combo{form, "cboFile"};
    Count<Event<>> changes{combo.Change};
};

TEST_F(ComboBoxTest, KeepsATextApartFromItsList) {
    combo.AddItem("a");
    combo.AddItem("b");
    EXPECT_EQ(combo.ListCount(), 2);
    EXPECT_EQ(combo.List(1), "b");
    EXPECT_EQ(combo.Text(), "");
    combo.setText("other");
    combo.Clear();
    EXPECT_EQ(combo.Text(), "other");
    EXPECT_EQ(combo.ListCount(), 0);
}

TEST_F(ComboBoxTest, ANewTextFiresChangeOnce) {
    combo.setText("a");
    combo.setText("a");
    EXPECT_EQ(changes, 1);
}

TEST_F(ComboBoxTest, HasNoEntryOutsideItsRange) {
    combo.AddItem("a");
    EXPECT_EQ(errorOf([&] { combo.List(1); }), error::subscriptOutOfRange);
    EXPECT_EQ(errorOf([&] { combo.List(-1); }), error::subscriptOutOfRange);
}

TEST_F(ComboBoxTest, IsTypedIntoByName) {
    combo.AddItem("a");
    set(combo, "Text", "typed");
    EXPECT_EQ(get(combo, "Text"), "typed");
    EXPECT_EQ(get(combo, "ListCount"), "1");
    EXPECT_EQ(combo.mainProperty(), "Text");
    combo.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { set(combo, "Text", "x"); }), "cboFile is disabled");
}

TEST(ListBoxHand, AClickOfTheHandTicksNothing) {
    Form form("Form1");
    ListBox list(form, "lstAct", {"one", "two"});
    int clicks = 0;
    list.Click.connect([&clicks] { ++clicks; });
    list.userClick();
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(list.Selected(0));
    list.setEnabled(false);
    EXPECT_THROW(list.userClick(), Refused);
    EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace velmora::tests
