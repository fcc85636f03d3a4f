#include "controls/list_item.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "controls/control_properties.h"
#include "controls/form.h"
#include "controls/list_view.h"

namespace velmora::tests {
namespace {

struct ListItemTest : testing::Test {
    ListItemTest() {
        for (const char* column : {"a", "b", "c"}) list.addColumn({column});
    }
    Form form{"Form1"};
    ListView list{form, "ListView1"};
    ListItem& row = list.Add("row");
    Count<Notice<const ListItem&>> changes{list.RowChanged};
};

TEST_F(ListItemTest, HasAllSubItemsEmptyFromTheStart) {
    EXPECT_EQ(row.SubItemCount(), 2);
    for (int index = 1; index <= 2; ++index) {
        EXPECT_EQ(row.SubItems(index), "");
        EXPECT_EQ(row.ListSubItems(index).Tag(), "");
        EXPECT_EQ(row.ListSubItems(index).Key(), "");
        EXPECT_EQ(row.ListSubItems(index).ReportIcon(), "");
        EXPECT_FALSE(row.ListSubItems(index).Bold());
    }
    EXPECT_EQ(row.Tag(), "");
    EXPECT_FALSE(row.Checked());
    EXPECT_FALSE(row.Selected());
    EXPECT_FALSE(row.Bold());
}

TEST_F(ListItemTest, KeepsEachFieldOfEachSubItemApart) {
    row.setSubItems(2, "text");
    row.setSubTag(2, "tag");
    row.setSubKey(2, "key");
    row.setReportIcon(2, "ok");
    row.setSubBold(2, true);
    const ListSubItem& sub = row.ListSubItems(2);
    EXPECT_EQ(sub.Text + sub.Tag() + sub.Key() + sub.ReportIcon(), "texttagkeyok");
    EXPECT_TRUE(sub.Bold());
    EXPECT_EQ(row.SubItems(1), "");
    EXPECT_EQ(row.ListSubItems(1).Tag(), "");
    row.setSubItems(1, "first");
    EXPECT_EQ(row.SubItems(2), "text");
}

TEST_F(ListItemTest, NotifiesViewsOfEachChangeOnce) {
    for (int i = 0; i < 2; ++i) {
        row.setText("new");
        row.setTag("tag");
        row.setChecked(true);
        row.setSelected(true);
        row.setBold(true);
        row.setSubItems(1, "x");
        row.setSubTag(1, "x");
        row.setSubKey(1, "x");
        row.setReportIcon(1, "x");
        row.setSubBold(1, true);
        EXPECT_EQ(changes, 10);
    }
}

TEST_F(ListItemTest, EmptiesItsTag) {
    row.setTag("tag");
    row.setTag("");
    EXPECT_EQ(row.Tag(), "");
}

TEST_F(ListItemTest, HasNoSubItemOutsideTheColumns) {
    for (const int index : {0, 3, -1}) {
        EXPECT_EQ(errorOf([&] { row.SubItems(index); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { row.ListSubItems(index); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { row.setSubItems(index, "x"); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { row.setSubTag(index, "x"); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { row.setSubKey(index, "x"); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { row.setReportIcon(index, "x"); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { row.setSubBold(index, true); }), error::indexOutOfBounds);
    }
    EXPECT_EQ(changes, 0);
}

TEST_F(ListItemTest, TakesAColumnThatIsAddedLater) {
    list.addColumn({"d"});
    EXPECT_EQ(row.SubItems(3), "");
    row.setSubItems(3, "x");
    EXPECT_EQ(row.SubItems(3), "x");
}

TEST_F(ListItemTest, TicksByProgramFireNoEvent) {
    const Count checks(list.ItemCheck);
    row.setChecked(true);
    EXPECT_EQ(checks, 0);
}

}  // namespace
}  // namespace velmora::tests
