#include "controls/pickers.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "controls/control_properties.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

struct SliderTest : testing::Test {
    Form form{"Form1"};
    Slider slider{form, "Slider1", 0, 100, 1, 5};
    Count<Event<>> scrolls{slider.Scroll};
};

TEST_F(SliderTest, BeginsAtItsLeastValue) {
    EXPECT_EQ(slider.Value(), 0);
    EXPECT_EQ(slider.Min(), 0);
    EXPECT_EQ(slider.Max(), 100);
    EXPECT_EQ(slider.SmallChange(), 1);
    EXPECT_EQ(slider.LargeChange(), 5);
}

TEST_F(SliderTest, ScrollsByHandOnly) {
    const Count changes(slider.Changed);
    slider.setValue(10);
    EXPECT_EQ(scrolls, 0);
    EXPECT_EQ(changes, 1);
    slider.userScroll(20);
    EXPECT_EQ(scrolls, 1);
    EXPECT_EQ(slider.Value(), 20);
}

TEST_F(SliderTest, ReportsAnotherValueWhoeverMovedIt) {
    Count moves(slider.Change);
    slider.setValue(5);
    slider.userScroll(7);
    EXPECT_EQ(moves, 2);
    slider.setValue(7);
    EXPECT_EQ(moves, 2);
}

TEST_F(SliderTest, StaysWithinItsRange) {
    for (const int value : {-1, 101}) {
        EXPECT_EQ(errorOf([&] { slider.setValue(value); }), error::invalidPropertyValue);
    }
    slider.setValue(100);
    slider.setValue(0);
    EXPECT_EQ(slider.Value(), 0);
}

TEST_F(SliderTest, IsMovedByNameAsByHand) {
    set(slider, "Value", "35");
    EXPECT_EQ(get(slider, "Value"), "35");
    EXPECT_EQ(scrolls, 1);
    EXPECT_EQ(refusalOf([&] { set(slider, "Value", "101"); }), "not from 0 to 100: 101");
    slider.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { set(slider, "Value", "5"); }), "Slider1 is disabled");
    EXPECT_EQ(refusalOf([&] { slider.userScroll(5); }), "Slider1 is disabled");
    EXPECT_EQ(slider.Value(), 35);
    EXPECT_EQ(scrolls, 1);
}

struct UpDownTest : testing::Test {
    Form form{"Form1"};
    TextBox text{form, "txtAmt", "50"};
    UpDown spinner{form, "UpDown3", 0, 1000, 50, &text};
    UpDown alone{form, "UpDownSpace", 0, 5, 0};
    Count<Event<>> changes{spinner.Change};
};

TEST_F(UpDownTest, StepsItsBuddysNumber) {
    spinner.userUp();
    EXPECT_EQ(text.Text(), "51");
    EXPECT_EQ(spinner.Value(), 51);
    spinner.userDown();
    spinner.userDown();
    EXPECT_EQ(text.Text(), "49");
    EXPECT_EQ(changes, 3);
}

TEST_F(UpDownTest, GoesOnFromWhatIsTyped) {
    text.setText(" 200 ");
    spinner.userUp();
    EXPECT_EQ(text.Text(), "201");
}

TEST_F(UpDownTest, HasSteppedTheTextWhenItChanges) {
    std::string seen;
    spinner.Change.connect([&] { seen = text.Text(); });
    spinner.userUp();
    EXPECT_EQ(seen, "51");
}

TEST_F(UpDownTest, StopsAtBothEnds) {
    text.setText("1000");
    spinner.userUp();
    EXPECT_EQ(text.Text(), "1000");
    text.setText("0");
    spinner.userDown();
    EXPECT_EQ(text.Text(), "0");
    EXPECT_EQ(changes, 0);
    text.setText("999");
    spinner.userUp();
    EXPECT_EQ(text.Text(), "1000");
}

TEST_F(UpDownTest, TakesATypedNumberBeyondItsRangeAsItsEnd) {
    for (const char* typed : {"5000", "99999999999", "99999999999999999999999"}) {
        text.setText(typed);
        spinner.userDown();
        EXPECT_EQ(text.Text(), "999") << typed;
    }
    text.setText("-5");
    spinner.userUp();
    EXPECT_EQ(text.Text(), "1");
}

TEST_F(UpDownTest, LeavesATextThatIsNoWholeNumberAlone) {
    for (const char* typed : {"", "abc", "12x", "1.5", "-", "1,000", "\u0663"}) {
        text.setText(typed);
        spinner.userUp();
        EXPECT_EQ(text.Text(), typed);
    }
}

TEST_F(UpDownTest, ReportsTheDirectionAlsoWhereItCannotGoOn) {
    const Count ups(alone.UpClick);
    const Count downs(alone.DownClick);
    alone.userDown();
    alone.userDown();
    EXPECT_EQ(alone.Value(), 0);
    EXPECT_EQ(downs, 2);
    for (int i = 0; i < 7; ++i) alone.userUp();
    EXPECT_EQ(alone.Value(), 5);
    EXPECT_EQ(ups, 7);
}

TEST_F(UpDownTest, ADisabledSpinnerRefusesTurns) {
    spinner.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { spinner.userUp(); }), "UpDown3 is disabled");
    EXPECT_EQ(refusalOf([&] { spinner.userDown(); }), "UpDown3 is disabled");
    EXPECT_EQ(refusalOf([&] { set(spinner, "Value", "7"); }), "UpDown3 is disabled");
    EXPECT_EQ(text.Text(), "50");
}

TEST_F(UpDownTest, IsSetByName) {
    set(spinner, "Value", "7");
    EXPECT_EQ(text.Text(), "7");
    EXPECT_EQ(get(spinner, "Value"), "7");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(refusalOf([&] { set(spinner, "Value", "1001"); }), "not from 0 to 1000: 1001");
    EXPECT_EQ(spinner.Min(), 0);
    EXPECT_EQ(spinner.Max(), 1000);
}

struct DatePickerTest : testing::Test {
    Form form{"Form1"};
    DatePicker picker{form, "DTPInterval", {2026, 3, 14, 15, 9, 26}};
    Count<Event<>> changes{picker.Change};
};

TEST_F(DatePickerTest, KeepsADateAndATime) {
    EXPECT_EQ(picker.Value(), (DateTime{2026, 3, 14, 15, 9, 26}));
    EXPECT_EQ(picker.Hour(), 15);
    EXPECT_EQ(picker.Minute(), 9);
    EXPECT_EQ(picker.Second(), 26);
}

TEST_F(DatePickerTest, ChangesOnePartAtATime) {
    picker.setHour(1);
    picker.setMinute(2);
    picker.setSecond(3);
    EXPECT_EQ(picker.Value(), (DateTime{2026, 3, 14, 1, 2, 3}));
    EXPECT_EQ(changes, 3);
    picker.setSecond(3);
    EXPECT_EQ(changes, 3);
}

TEST_F(DatePickerTest, TakesNoTimeAndNoDateThatIsNone) {
    EXPECT_EQ(errorOf([&] { picker.setHour(24); }), error::invalidPropertyValue);
    EXPECT_EQ(errorOf([&] { picker.setMinute(60); }), error::invalidPropertyValue);
    EXPECT_EQ(errorOf([&] { picker.setSecond(-1); }), error::invalidPropertyValue);
    EXPECT_EQ(errorOf([&] { picker.setValue({2026, 2, 29}); }), error::invalidPropertyValue);
    EXPECT_EQ(changes, 0);
}

TEST_F(DatePickerTest, IsSetByName) {
    EXPECT_EQ(get(picker, "Value"), "15:09:26");
    set(picker, "Value", " 1:02:03 ");
    EXPECT_EQ(picker.Value(), (DateTime{2026, 3, 14, 1, 2, 3}));
    EXPECT_EQ(changes, 1);
    set(picker, "Hour", "23");
    set(picker, "Minute", "59");
    set(picker, "Second", "58");
    EXPECT_EQ(get(picker, "Hour") + get(picker, "Minute") + get(picker, "Second"), "235958");
}

TEST_F(DatePickerTest, RefusesWhatIsNoTime) {
    for (const char* text : {"", "1:2", "1:2:3:4", "24:00:00", "0:60:0", "0:0:60", "a:b:c", "::"}) {
        EXPECT_NE(refusalOf([&] { set(picker, "Value", text); }), "") << text;
    }
    EXPECT_EQ(refusalOf([&] { set(picker, "Hour", "24"); }), "not from 0 to 23: 24");
    picker.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { set(picker, "Value", "1:2:3"); }), "DTPInterval is disabled");
    EXPECT_EQ(refusalOf([&] { set(picker, "Second", "1"); }), "DTPInterval is disabled");
    EXPECT_EQ(changes, 0);
}

TEST(WideUpDown, StopsAtTheEndOfItsRangeAlsoWhereNumbersEnd) {
    Form form("Form1");
    UpDown wide{form, "UpDown1", 0, 2147483647, 2147483647};
    wide.userUp();
    EXPECT_EQ(wide.Value(), 2147483647);
    wide.userDown();
    EXPECT_EQ(wide.Value(), 2147483646);
}

}  // namespace
}  // namespace velmora::tests
