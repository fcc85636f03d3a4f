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

struct ChosenEntryTest : ComboBoxTest {
    ChosenEntryTest() {
        for (const char* entry : {"a", "b", "c"}) combo.AddItem(entry);
    }
};

TEST_F(ChosenEntryTest, NoneIsChosenAtFirst) {
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "");
}

TEST_F(ChosenEntryTest, AChosenEntryGivesItsText) {
    combo.setListIndex(1);
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(combo.Text(), "b");
    EXPECT_EQ(changes, 1);
    combo.setListIndex(-1);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(changes, 2);
}

TEST_F(ChosenEntryTest, AnEntryWithTheSameTextIsNoChange) {
    combo.AddItem("a");
    combo.setListIndex(0);
    const Count notices(combo.Changed);
    combo.setListIndex(3);
    EXPECT_EQ(combo.ListIndex(), 3);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(notices, 1);
}

TEST_F(ChosenEntryTest, AnotherTextChoosesNone) {
    combo.setListIndex(1);
    combo.setText("b");
    EXPECT_EQ(combo.ListIndex(), 1);
    combo.setText("c");
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(ChosenEntryTest, AddingKeepsTheChoice) {
    combo.setListIndex(2);
    combo.AddItem("d");
    EXPECT_EQ(combo.ListIndex(), 2);
    combo.Clear();
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "c");
}

TEST_F(ChosenEntryTest, RemovingMovesTheChoiceWithItsEntry) {
    combo.setListIndex(1);
    combo.RemoveItem(2);
    EXPECT_EQ(combo.ListIndex(), 1);
    combo.RemoveItem(0);
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_EQ(combo.List(0), "b");
    combo.RemoveItem(0);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.ListCount(), 0);
}

TEST_F(ChosenEntryTest, RemovingTheFirstOfTwoLeavesNoneChosen) {
    combo.setListIndex(0);
    combo.RemoveItem(0);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.List(0), "b");
}

TEST_F(ChosenEntryTest, NoEntryOutsideTheListIsChosenOrRemoved) {
    for (const int index : {-2, 3}) {
        EXPECT_EQ(errorOf([&] { combo.setListIndex(index); }), error::invalidPropertyValue);
    }
    for (const int index : {-1, 3}) {
        EXPECT_EQ(errorOf([&] { combo.RemoveItem(index); }), error::invalidCall);
    }
    EXPECT_EQ(combo.ListCount(), 3);
    EXPECT_EQ(changes, 0);
}

TEST_F(ChosenEntryTest, IsChosenByName) {
    set(combo, "ListIndex", "2");
    EXPECT_EQ(get(combo, "ListIndex"), "2");
    EXPECT_EQ(get(combo, "Text"), "c");
    set(combo, "ListIndex", "-1");
    EXPECT_EQ(get(combo, "Text"), "");
    for (const char* wrong : {"3", "-2", "b", ""}) {
        EXPECT_NE(refusalOf([&] { set(combo, "ListIndex", wrong); }), "") << wrong;
    }
    combo.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { set(combo, "ListIndex", "1"); }), "cboFile is disabled");
}

TEST_F(ChosenEntryTest, TheHandClicksAlsoWhatIsChosenAlready) {
    Count clicks(combo.Click);
    Count others(combo.Change);
    combo.userChoose(1);
    EXPECT_EQ(combo.Text(), "b");
    combo.userChoose(1);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(others, 1);
    combo.setListIndex(1);
    EXPECT_EQ(clicks, 2);
    combo.setListIndex(0);
    EXPECT_EQ(clicks, 3);
    combo.userChoose(-1);
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(clicks, 3);
    EXPECT_EQ(errorOf([this] { combo.userChoose(3); }), error::invalidPropertyValue);
    combo.setEnabled(false);
    EXPECT_THROW(combo.userChoose(0), Refused);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(clicks, 3);
}

TEST_F(ChosenEntryTest, KeysAreTypedByTheirCode) {
    int typed = 0;
    combo.KeyPress.connect([&](int code) { typed = code; });
    EXPECT_EQ(get(combo, "KeyPress"), "0");
    for (const auto& [text, code] : {std::pair{"13", 13}, {"1", 1}, {"1114111", 0x10FFFF}}) {
        set(combo, "KeyPress", text);
        EXPECT_EQ(typed, code);
    }
    for (const char* wrong : {"0", "1114112", "-1", "x"}) {
        EXPECT_NE(refusalOf([&] { set(combo, "KeyPress", wrong); }), "") << wrong;
    }
    EXPECT_EQ(typed, 0x10FFFF);
    EXPECT_EQ(changes, 0);
    combo.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { set(combo, "KeyPress", "13"); }), "cboFile is disabled");
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
