#include "controls/list_view.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/errors.h"
#include "controls/control_properties.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

struct ListViewTest : testing::Test {
    ListViewTest() {
        list.addColumn({"Drive Path", 2000});
        list.addColumn({"Free Space", 1500, Alignment::right});
    }
    std::vector<std::string> texts() {
        std::vector<std::string> all;
        for (int i = 1; i <= list.Count(); ++i) all.push_back(list.ListItems(i).Text());
        return all;
    }
    void add(const std::vector<std::string>& rows) {
        for (const std::string& text : rows) list.Add(text);
    }

    using Texts = std::vector<std::string>;
    Form form{"Form1"};
    ListView list{form, "ListView1"};
};

using RowsTest = ListViewTest;
using SortTest = ListViewTest;
using HitTestTest = ListViewTest;

TEST_F(ListViewTest, KeepsItsColumns) {
    ASSERT_EQ(list.ColumnCount(), 2);
    EXPECT_EQ(list.ColumnHeaders(2).Text, "Free Space");
    EXPECT_EQ(list.ColumnHeaders(2).Width, 1500);
    EXPECT_EQ(list.ColumnHeaders(2).alignment, Alignment::right);
    list.setColumnText(2, "Free");
    EXPECT_EQ(list.ColumnHeaders(2).Text, "Free");
    for (const int index : {0, 3}) {
        EXPECT_EQ(errorOf([&] { list.ColumnHeaders(index); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { list.setColumnText(index, "x"); }), error::indexOutOfBounds);
    }
}

TEST_F(RowsTest, AreAddedAtTheEndOrAtAnIndex) {
    add({"b", "c"});
    list.Add(1, "a");
    list.Add(3, "bb");
    list.Add(5, "d");
    EXPECT_EQ(texts(), (Texts{"a", "b", "bb", "c", "d"}));
    for (const int index : {0, 7, -1}) {
        EXPECT_EQ(errorOf([&] { list.Add(index, "x"); }), error::indexOutOfBounds);
    }
    EXPECT_EQ(list.Count(), 5);
}

TEST_F(RowsTest, AreRemovedByIndex) {
    add({"a", "b", "c"});
    list.Remove(2);
    EXPECT_EQ(texts(), (Texts{"a", "c"}));
    for (const int index : {0, 3}) {
        EXPECT_EQ(errorOf([&] { list.Remove(index); }), error::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { list.ListItems(index); }), error::indexOutOfBounds);
    }
}

TEST_F(RowsTest, KeepTheirAddressWhileOthersComeAndGo) {
    ListItem& row = list.Add("row");
    for (int i = 0; i < 1000; ++i) list.Add(1, "x");
    list.sortBy(0, 0);
    for (int i = 0; i < 1000; ++i) list.Remove(2);
    EXPECT_EQ(row.Text(), "row");
    EXPECT_EQ(&list.ListItems(1), &row);
}

TEST_F(RowsTest, NotifyViewsWhereTheyComeAndGo) {
    std::string notices;
    list.RowInserted.connect([&](int index) { notices += "+" + std::to_string(index); });
    list.RowRemoved.connect([&](int index) { notices += "-" + std::to_string(index); });
    list.RowsReset.connect([&] { notices += "reset"; });
    add({"a", "b"});
    list.Add(1, "c");
    list.Remove(2);
    list.Clear();
    EXPECT_EQ(notices, "+1+2+1-2reset");
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(RowsTest, TheSelectedOneIsTheFirstFromTheTop) {
    add({"a", "b", "c"});
    EXPECT_EQ(list.SelectedItem(), nullptr);
    list.userSelect({3, 2});
    EXPECT_EQ(list.SelectedItem(), &list.ListItems(2));
    list.userSelect({3});
    EXPECT_EQ(list.SelectedItem(), &list.ListItems(3));
    EXPECT_FALSE(list.ListItems(2).Selected());
}

TEST_F(SortTest, OrdersByTextWithoutRegardToCase) {
    add({"b", "C", "a", "\u00C4", "\u00E4a"});
    list.sortBy(0, 0);
    EXPECT_EQ(texts(), (Texts{"a", "b", "C", "\u00C4", "\u00E4a"}));
    list.sortBy(0, 1);
    EXPECT_EQ(texts(), (Texts{"\u00E4a", "\u00C4", "C", "b", "a"}));
    EXPECT_EQ(list.SortKey(), 0);
    EXPECT_EQ(list.SortOrder(), 1);
    EXPECT_TRUE(list.Sorted());
}

TEST_F(SortTest, OrdersByASubItemAsText) {
    add({"a", "b", "c"});
    list.ListItems(1).setSubItems(1, "9 KB");
    list.ListItems(2).setSubItems(1, "10 KB");
    list.sortBy(1, 0);
    EXPECT_EQ(texts(), (Texts{"c", "b", "a"}));
}

TEST_F(SortTest, LeavesEqualRowsInTheirOrder) {
    add({"x", "X", "x", "a"});
    for (int i = 1; i <= 4; ++i) list.ListItems(i).setTag(std::to_string(i));
    list.sortBy(0, 1);
    std::string tags;
    for (int i = 1; i <= 4; ++i) tags += list.ListItems(i).Tag();
    EXPECT_EQ(tags, "1234");
}

TEST_F(SortTest, IsDoneOnceSoThatLaterRowsStandWhereTheyArePut) {
    add({"b", "c"});
    list.sortBy(0, 0);
    list.Add("a");
    list.Add(1, "z");
    EXPECT_EQ(texts(), (Texts{"z", "b", "c", "a"}));
}

TEST_F(SortTest, ByAColumnThatIsNotThereFailsAndMovesNothing) {
    add({"b", "a"});
    for (const int key : {2, -1}) {
        EXPECT_EQ(errorOf([&] { list.sortBy(key, 0); }), error::indexOutOfBounds);
    }
    EXPECT_EQ(texts(), (Texts{"b", "a"}));
}

TEST_F(SortTest, OrdersTenThousandRows) {
    for (int i = 0; i < 10000; ++i) list.Add(std::to_string((i * 7919) % 10000 + 10000));
    list.sortBy(0, 0);
    EXPECT_EQ(list.ListItems(1).Text(), "10000");
    EXPECT_EQ(list.ListItems(10000).Text(), "19999");
}

TEST_F(HitTestTest, FindsTheRowUnderAPoint) {
    add({"a", "b"});
    const auto top = static_cast<float>(list.rowTop(2));
    EXPECT_EQ(list.HitTest(0, top), &list.ListItems(2));
    EXPECT_EQ(list.HitTest(0, top - 1), &list.ListItems(1));
    EXPECT_EQ(list.HitTest(3499, top + ListView::rowHeight - 1), &list.ListItems(2));
    EXPECT_EQ(list.rowTop(1), ListView::headerHeight);
    EXPECT_EQ(list.rowTop(2) - list.rowTop(1), ListView::rowHeight);
    EXPECT_EQ(list.columnLeft(1), 0);
    EXPECT_EQ(list.columnLeft(2), 2000);
}

TEST_F(HitTestTest, FindsNothingBesideTheRows) {
    add({"a"});
    const float inRow = ListView::headerHeight + 10;
    const float far = std::numeric_limits<float>::infinity();
    const float none = std::numeric_limits<float>::quiet_NaN();
    const std::vector<std::pair<float, float>> points{
        {10, ListView::headerHeight - 1},
        {10, ListView::headerHeight + ListView::rowHeight},
        {-1, inRow},
        {3500, inRow},
        {10, -5},
        {10, 1e30F},
        {10, far},
        {far, inRow},
        {10, none}};
    for (const auto& [x, y] : points) EXPECT_EQ(list.HitTest(x, y), nullptr) << x << " " << y;
    ListView bare(form, "bare");
    bare.Add("row");
    EXPECT_EQ(bare.HitTest(10, inRow), nullptr);
}

}  // namespace
}  // namespace velmora::tests
