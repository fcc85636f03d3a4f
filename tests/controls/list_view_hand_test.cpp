// What the user's hand does to a list view.
#include <gtest/gtest.h>

#include "controls/control_properties.h"
#include "controls/form.h"
#include "controls/list_view.h"

namespace velmora::tests {
namespace {

struct ListViewHandTest : testing::Test {
    ListViewHandTest() {
        list.addColumn({"Drive Path", 2000});
        list.addColumn({"Free Space", 1500, Alignment::right});
        for (const char* text : {"a", "b", "c"}) list.Add(text);
    }
    Form form{"Form1"};
    ListView list{form, "ListView1"};
};

TEST_F(ListViewHandTest, ATickFiresItemCheckWithItsRow) {
    std::string ticked;
    list.ItemCheck.connect([&](ListItem& row) { ticked += row.Text(); });
    list.userTick(2, true);
    list.userTick(2, true);
    list.userTick(2, false);
    EXPECT_EQ(ticked, "bb");
    EXPECT_FALSE(list.ListItems(2).Checked());
}

TEST_F(ListViewHandTest, AClickOnAHeaderReportsItsColumn) {
    int clicked = 0;
    list.ColumnClick.connect([&](int column) { clicked = column; });
    list.userClickPart(2);
    EXPECT_EQ(clicked, 2);
    EXPECT_EQ(refusalOf([&] { list.userClickPart(3); }), "ListView1 has no part 3");
}

TEST_F(ListViewHandTest, RefusesRowsThatAreNotThereBeforeAnythingChanges) {
    list.userSelect({1});
    EXPECT_EQ(refusalOf([&] { list.userTick(4, true); }), "ListView1 has no row 4");
    EXPECT_EQ(refusalOf([&] { list.userTick(0, true); }), "ListView1 has no row 0");
    EXPECT_EQ(refusalOf([&] { list.userSelect({2, 4}); }), "ListView1 has no row 4");
    EXPECT_EQ(refusalOf([&] { list.userDoubleClickOn(4, 1); }), "ListView1 has no row 4");
    EXPECT_TRUE(list.ListItems(1).Selected());
    EXPECT_FALSE(list.ListItems(2).Selected());
}

TEST_F(ListViewHandTest, RefusesEverythingWhenDisabled) {
    list.userSelect({1});
    list.Drop.connect([](const auto&) { FAIL(); });
    list.setEnabled(false);
    const std::string refused = "ListView1 is disabled";
    EXPECT_EQ(refusalOf([&] { list.userTick(1, true); }), refused);
    EXPECT_EQ(refusalOf([&] { list.userSelect({}); }), refused);
    EXPECT_EQ(refusalOf([&] { list.userClickPart(1); }), refused);
    EXPECT_EQ(refusalOf([&] { list.userDrop({"C:\\"}); }), refused);
    EXPECT_EQ(refusalOf([&] { list.userDoubleClick(); }), refused);
    EXPECT_TRUE(list.ListItems(1).Selected());
}

TEST_F(ListViewHandTest, ADoubleClickMovesThePointerOverTheCellFirst) {
    std::string fired;
    float pointerX = 0;
    float pointerY = 0;
    list.MouseMove.connect([&](float x, float y) {
        fired += "move ";
        pointerX = x;
        pointerY = y;
    });
    list.DblClick.connect([&] { fired += "click"; });
    list.userDoubleClickOn(2, 2);
    EXPECT_EQ(fired, "move click");
    EXPECT_EQ(list.HitTest(pointerX, pointerY), &list.ListItems(2));
    EXPECT_GT(pointerX, 2000);
    EXPECT_LT(pointerX, 3500);
}

TEST_F(ListViewHandTest, ADoubleClickOnTheListMeansItsSelectedRow) {
    float pointerY = 0;
    list.MouseMove.connect([&](float, float y) { pointerY = y; });
    EXPECT_EQ(refusalOf([&] { list.userDoubleClick(); }), "no row of ListView1 is selected");
    list.userSelect({3});
    list.userDoubleClick();
    EXPECT_EQ(list.HitTest(1, pointerY), &list.ListItems(3));
}

TEST_F(ListViewHandTest, TakesDroppedPathsWhereSomethingTakesThem) {
    EXPECT_EQ(refusalOf([&] { list.userDrop({"C:\\a"}); }), "ListView1 takes no dropped paths");
    std::vector<std::string> dropped;
    list.Drop.connect([&](const std::vector<std::string>& paths) { dropped = paths; });
    list.userDrop({"C:\\a b", "C:\\\u00E9"});
    EXPECT_EQ(dropped, (std::vector<std::string>{"C:\\a b", "C:\\\u00E9"}));
}

TEST_F(ListViewHandTest, ADisabledListTakesDropsOnlyForAHandlerThatAsks) {
    EXPECT_FALSE(list.takesDrops());
    int drops = 0;
    list.Drop.connect([&](const auto&) { ++drops; });
    EXPECT_TRUE(list.takesDrops());
    list.setEnabled(false);
    EXPECT_FALSE(list.takesDrops());
    list.allowDropsWhileDisabled();
    EXPECT_TRUE(list.takesDrops());
    list.userDrop({"C:\\"});
    EXPECT_EQ(drops, 1);
}

TEST_F(ListViewHandTest, ShowsItsPropertiesAndColumns) {
    list.sortBy(1, 1);
    EXPECT_EQ(get(list, "Count"), "3");
    EXPECT_EQ(get(list, "SortKey"), "1");
    EXPECT_EQ(get(list, "SortOrder"), "1");
    EXPECT_EQ(get(list, "Sorted"), "true");
    EXPECT_EQ(list.mainProperty(), "Count");
    EXPECT_EQ(getPart(list, 1, "Text"), "Drive Path");
    EXPECT_EQ(getPart(list, 1, "Alignment"), "left");
    EXPECT_EQ(getPart(list, 2, "Alignment"), "right");
    EXPECT_EQ(getPart(list, 2, "Width"), "1500");
    EXPECT_NE(refusalOf([&] { list.partProperties(0); }), "");
}

}  // namespace
}  // namespace velmora::tests
