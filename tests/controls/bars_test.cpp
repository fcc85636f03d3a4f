#include "controls/bars.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "controls/control_properties.h"
#include "controls/form.h"
#include "controls/progress_bar.h"

namespace velmora::tests {
namespace {

struct StatusBarTest : testing::Test {
    Form form{"Form1"};
    StatusBar bar{form, "StatusBar1", 3};
    Count<Notice<int>> changes{bar.PanelChanged};
};

TEST_F(StatusBarTest, CountsItsPanelsFromOne) {
    EXPECT_EQ(bar.PanelCount(), 3);
    bar.setPanelText(1, "one");
    bar.setPanelText(3, "three");
    EXPECT_EQ(bar.Panels(1).Text, "one");
    EXPECT_EQ(bar.Panels(2).Text, "");
    EXPECT_EQ(bar.Panels(3).Text, "three");
    EXPECT_EQ(bar.Panels(1).Picture, 0);
}

TEST_F(StatusBarTest, ReportsWhichPanelChangedAndOnlyThen) {
    std::vector<int> panels;
    bar.PanelChanged.connect([&](int index) { panels.push_back(index); });
    bar.setPanelText(2, "x");
    bar.setPanelText(2, "x");
    bar.setPanelPicture(1, 14);
    bar.setPanelPicture(1, 14);
    EXPECT_EQ(panels, (std::vector<int>{2, 1}));
    EXPECT_EQ(bar.Panels(1).Picture, 14);
}

TEST_F(StatusBarTest, HasNoPanelOutsideItsRange) {
    for (const int index : {0, 4, -1}) {
        EXPECT_EQ(errorOf([&] { bar.Panels(index); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { bar.setPanelText(index, "x"); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { bar.setPanelPicture(index, 1); }), error::indexOutOfBounds);
        EXPECT_NE(refusalOf([&] { bar.partProperties(index); }), "");
    }
    EXPECT_EQ(changes, 0);
}

TEST_F(StatusBarTest, ShowsItsPanelsByNumber) {
    bar.setPanelText(3, "Times Checked: 4");
    bar.setPanelPicture(3, 13);
    EXPECT_EQ(getPart(bar, 3, "Text"), "Times Checked: 4");
    EXPECT_EQ(getPart(bar, 3, "Picture"), "13");
    EXPECT_EQ(bar.mainPartProperty(), "Text");
}

struct ToolBarTest : testing::Test {
    Form form{"Form1"};
    ToolBar bar{form, "Toolbar1", {{"Start", "tip"}, {"Help", "Help"}}};
    Count<Event<int>> clicks{bar.ButtonClick};
};

TEST_F(ToolBarTest, CountsItsButtonsFromOne) {
    EXPECT_EQ(bar.ButtonCount(), 2);
    EXPECT_EQ(bar.Buttons(1).Caption, "Start");
    EXPECT_EQ(bar.Buttons(1).ToolTipText, "tip");
    EXPECT_EQ(bar.Buttons(1).Image, 0);
    EXPECT_EQ(bar.Buttons(2).Caption, "Help");
}

TEST_F(ToolBarTest, ReportsWhichButtonWasClicked) {
    int clicked = 0;
    bar.ButtonClick.connect([&](int index) { clicked = index; });
    bar.userClickPart(2);
    EXPECT_EQ(clicked, 2);
    EXPECT_EQ(clicks, 1);
}

TEST_F(ToolBarTest, ReportsANewCaptionOrImageOnce) {
    const Count changes(bar.ButtonChanged);
    bar.setButtonCaption(1, "Pause");
    bar.setButtonCaption(1, "Pause");
    bar.setButtonImage(1, 2);
    bar.setButtonImage(1, 2);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(bar.Buttons(1).Caption, "Pause");
    EXPECT_EQ(bar.Buttons(1).Image, 2);
}

TEST_F(ToolBarTest, HasNoButtonOutsideItsRange) {
    for (const int index : {0, 3}) {
        EXPECT_EQ(errorOf([&] { bar.Buttons(index); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { bar.setButtonCaption(index, "x"); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { bar.setButtonImage(index, 1); }), error::indexOutOfBounds);
        EXPECT_NE(refusalOf([&] { bar.userClickPart(index); }), "");
    }
    EXPECT_EQ(clicks, 0);
}

TEST_F(ToolBarTest, RefusesTheHandWhenDisabled) {
    bar.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { bar.userClickPart(1); }), "Toolbar1 is disabled");
    EXPECT_EQ(clicks, 0);
}

TEST_F(ToolBarTest, ShowsItsButtonsByNumber) {
    EXPECT_EQ(getPart(bar, 1, "Caption"), "Start");
    EXPECT_EQ(getPart(bar, 1, "ToolTipText"), "tip");
    EXPECT_EQ(getPart(bar, 1, "Image"), "0");
    EXPECT_EQ(bar.mainPartProperty(), "Caption");
}

TEST(ProgressBarTest, HoldsPercent) {
    Form form("frmNotify");
    ProgressBar bar(form, "pb");
    Count changes(bar.Changed);
    EXPECT_EQ(get(bar, bar.mainProperty()), "0");
    EXPECT_EQ(bar.Min(), 0);
    EXPECT_EQ(bar.Max(), 100);
    bar.setValue(100);
    bar.setValue(100);
    EXPECT_EQ(get(bar, "Value"), "100");
    EXPECT_TRUE(readOnly(bar, "Value"));
    EXPECT_EQ(changes, 1);
    for (const int wrong : {-1, 101}) {
        EXPECT_EQ(errorOf([&] { bar.setValue(wrong); }), error::invalidPropertyValue);
    }
    EXPECT_EQ(bar.Value(), 100);
}

struct TabStripTest : testing::Test {
    Form form{"frmNotify"};
    TabStrip strip{form, "TabStrip1", {"one", "two", "three"}};
    Count<Event<>> clicks{strip.Click};
    Count<Notice<>> changes{strip.Changed};
};

TEST_F(TabStripTest, CountsItsTabsFromOneAndBeginsAtTheFirst) {
    EXPECT_EQ(strip.TabCount(), 3);
    EXPECT_EQ(strip.Tabs(1), "one");
    EXPECT_EQ(strip.Tabs(3), "three");
    EXPECT_EQ(strip.SelectedItem(), 1);
    EXPECT_EQ(clicks, 0);
}

TEST_F(TabStripTest, ClicksOnceTheTabIsSelected) {
    int selected = 0;
    strip.Click.connect([&] { selected = strip.SelectedItem(); });
    strip.userClickPart(3);
    EXPECT_EQ(selected, 3);
    strip.select(2);
    EXPECT_EQ(selected, 2);
    strip.userClickPart(2);  // the one that is selected
    EXPECT_EQ(clicks, 3);
    EXPECT_EQ(changes, 3);
}

TEST_F(TabStripTest, HasNoTabOutsideItsRange) {
    for (const int index : {0, 4, -1}) {
        EXPECT_EQ(errorOf([&] { strip.Tabs(index); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { strip.select(index); }), error::indexOutOfBounds);
        EXPECT_NE(refusalOf([&] { strip.userClickPart(index); }), "");
        EXPECT_NE(refusalOf([&] { strip.partProperties(index); }), "");
    }
    EXPECT_EQ(strip.SelectedItem(), 1);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(changes, 0);
}

TEST_F(TabStripTest, RefusesTheHandWhenDisabled) {
    strip.setEnabled(false);
    EXPECT_EQ(refusalOf([&] { strip.userClickPart(2); }), "TabStrip1 is disabled");
    EXPECT_EQ(strip.SelectedItem(), 1);
}

TEST_F(TabStripTest, ShowsItsTabsByNumber) {
    strip.select(2);
    EXPECT_EQ(strip.mainProperty(), "SelectedItem");
    EXPECT_EQ(get(strip, "SelectedItem"), "2");
    EXPECT_EQ(get(strip, "TabCount"), "3");
    EXPECT_TRUE(readOnly(strip, "SelectedItem"));
    EXPECT_TRUE(readOnly(strip, "TabCount"));
    EXPECT_EQ(strip.mainPartProperty(), "Caption");
    EXPECT_EQ(getPart(strip, 2, "Caption"), "two");
    EXPECT_EQ(getPart(strip, 2, "Selected"), "true");
    EXPECT_EQ(getPart(strip, 3, "Selected"), "false");
}

}  // namespace
}  // namespace velmora::tests
