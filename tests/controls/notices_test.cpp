// A view paints what it was told of: each change of a field is noticed, once.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "controls/animation.h"
#include "controls/bars.h"
#include "controls/buttons.h"
#include "controls/chart.h"
#include "controls/control_properties.h"
#include "controls/drawn_picture.h"
#include "controls/form.h"
#include "controls/gauges.h"
#include "controls/line_chart.h"
#include "controls/list_box.h"
#include "controls/list_view.h"
#include "controls/pickers.h"
#include "controls/progress_bar.h"
#include "controls/text_box.h"

namespace velmora::tests {
namespace {

using Step = std::function<void()>;

// Each step is noticed by itself.
template <typename Field>
void expectOneNoticeEach(Field& field, const std::vector<Step>& steps) {
    const Count changes(field.Changed);
    int expected = 0;
    for (const Step& step : steps) {
        step();
        EXPECT_EQ(changes, ++expected) << "step " << expected << " of " << field.Name();
    }
}

struct NoticesTest : testing::Test {
    Form form{"Form1"};
};

TEST_F(NoticesTest, OfButtonsAndFrames) {
    Label label{form, "lblDP", "Remove"};
    expectOneNoticeEach(
        label, {[&] { label.setForeColor(0x0000FF); }, [&] { label.setBackColor(0x00FF00); },
                [&] { label.setCaption("Removed"); }});
    CheckBox box{form, "chkLog", "Log"};
    expectOneNoticeEach(box, {[&] { box.setValue(1); }, [&] { box.userClick(); }});
}

TEST_F(NoticesTest, OfLists) {
    ListBox list{form, "lstAct", {"first", "second"}};
    expectOneNoticeEach(list, {[&] { list.setSelected(1, true); }, [&] { list.AddItem("third"); },
                               [&] { list.Clear(); }});
    ComboBox combo{form, "cboFile"};
    expectOneNoticeEach(combo, {[&] { combo.AddItem("a"); }, [&] { combo.AddItem("b"); },
                                [&] { combo.setText("c"); }, [&] { combo.setListIndex(1); },
                                [&] { combo.userChoose(0); }, [&] { combo.RemoveItem(1); },
                                [&] { combo.Clear(); }});
}

TEST_F(NoticesTest, OfColumns) {
    ListView list{form, "LVAlert"};
    expectOneNoticeEach(
        list, {[&] { list.addColumn({"Time"}); }, [&] { list.setColumnText(1, "Date"); }});
}

TEST_F(NoticesTest, OfRowsThatAreSortedOrCleared) {
    ListView list{form, "LVAlert"};
    list.Add("b");
    list.Add("a");
    const Count resets(list.RowsReset);
    list.sortBy(0, 0);
    EXPECT_EQ(resets, 1);
    EXPECT_EQ(list.ListItems(1).Text(), "a");
    list.Clear();
    EXPECT_EQ(resets, 2);
}

TEST_F(NoticesTest, OfTexts) {
    TextBox text{form, "txtAlert", "old"};
    expectOneNoticeEach(text, {[&] { text.setText("new"); }, [&] { text.prepend("a "); },
                               [&] { text.selectAllAndFocus(); }, [&] { text.loseFocus(); }});
}

TEST_F(NoticesTest, OfPickers) {
    Slider slider{form, "Slider1", 0, 100, 1, 10};
    expectOneNoticeEach(slider, {[&] { slider.setValue(3); }, [&] { slider.userScroll(4); }});
    UpDown spinner{form, "UpDown1", 0, 9, 3};
    expectOneNoticeEach(spinner, {[&] { spinner.userUp(); }, [&] { spinner.userDown(); }});
    DatePicker picker{form, "DTPInterval", {2026, 3, 14, 15, 9, 26}};
    expectOneNoticeEach(picker, {[&] { picker.setHour(1); }, [&] { picker.setMinute(2); },
                                 [&] { picker.setSecond(3); }});
    ProgressBar bar{form, "ProgressBar1"};
    expectOneNoticeEach(bar, {[&] { bar.setValue(50); }});
}

TEST_F(NoticesTest, OfGaugesAndPictures) {
    Meter2 meter{form, "VMeter2"};
    expectOneNoticeEach(meter, {[&] { meter.setBorder(1); }, [&] { meter.setValue(10); }});
    CtlDigital lamps{form, "Digital1"};
    expectOneNoticeEach(lamps, {[&] { lamps.setMaxVal(10); }, [&] { lamps.setTxtSpeed("1 KB"); },
                                [&] { lamps.setCurrentValue(5); }});
    Animation animation{form, "Animation1"};
    expectOneNoticeEach(animation, {[&] { animation.Open("a.avi"); }, [&] { animation.Play(); },
                                    [&] { animation.Stop(); }});
    DrawnPicture picture{form, "Picture1"};
    expectOneNoticeEach(
        picture, {[&] { picture.Rectangle(0, 0, 1, 1); }, [&] { picture.Pie(0, 0, 1, 1, 1, 0); },
                  [&] { picture.TextOut(0, 0, "C:"); },
                  [&] { picture.describe("C:", "second", {}); }, [&] { picture.Cls(); }});
}

TEST_F(NoticesTest, OfForms) {
    form.Show();
    expectOneNoticeEach(
        form, {[&] { form.setCaption("Velmora"); }, [&] { form.moveTo(1, 2); },
               [&] { form.setSize(30, 40); }, [&] { form.setState(WindowState::minimised); },
               [&] { form.Hide(); }, [&] { form.Show(); }});
}

TEST_F(NoticesTest, OfTabs) {
    TabStrip strip{form, "TabStrip1", {"one", "two"}};
    expectOneNoticeEach(strip, {[&] { strip.select(2); }, [&] { strip.select(2); }});
}

// Where a frame lies can be read, and is told once.
TEST_F(NoticesTest, AFrameTellsItsPlaceOnce) {
    Frame frame{form, "fraProgress", "Progress"};
    frame.setBounds({.Left = 1, .Top = 2, .Width = 3, .Height = 4});
    EXPECT_EQ(get(frame, "Height"), "4");
    int heights = 0;
    for (const Property& property : frame.properties()) heights += property.name == "Height";
    EXPECT_EQ(heights, 1);
}

// The edges belong to the row, the header's last line doesn't.
TEST_F(NoticesTest, APointAtTheEdgeOfARowIsInIt) {
    ListView list{form, "LVAlert"};
    list.addColumn({"Time", 1000});
    list.Add("row");
    EXPECT_NE(list.HitTest(0, ListView::headerHeight), nullptr);
    EXPECT_EQ(list.HitTest(0, ListView::headerHeight - 1), nullptr);
    EXPECT_NE(list.HitTest(999, ListView::headerHeight + ListView::rowHeight - 1), nullptr);
    EXPECT_EQ(list.HitTest(1000, ListView::headerHeight), nullptr);
    EXPECT_EQ(list.HitTest(-1, ListView::headerHeight), nullptr);
    EXPECT_EQ(list.HitTest(0, ListView::headerHeight + ListView::rowHeight), nullptr);
}

TEST_F(NoticesTest, TheFirstCharacterOfAllIsAKey) {
    TextBox text{form, "Text1"};
    int typed = 0;
    text.KeyPress.connect([&](int code) { typed = code; });
    set(text, "KeyPress", "1");
    EXPECT_EQ(typed, 1);
    EXPECT_NE(refusalOf([&] { set(text, "KeyPress", "0"); }), "");
}

TEST_F(NoticesTest, ADisabledGaugeTakesNoValue) {
    Meter2 meter{form, "VMeter2"};
    meter.setEnabled(false);
    EXPECT_NE(refusalOf([&] { set(meter, "Value", "3"); }), "");
}

TEST_F(NoticesTest, AChartNamesThePlaceOfItsLegend) {
    Chart chart{form, "MSChart1", 0};
    chart.setLegendLocation(3);
    EXPECT_EQ(get(chart, "LegendLocation"), "3");
}

}  // namespace
}  // namespace velmora::tests
