#include "forms/sort_column.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

struct SortColumnTest : testing::Test {
    SortColumnTest() {
        list.addColumn({"first"});
        list.addColumn({"second"});
        for (const char* text : {"b", "a", "c"}) list.Add(text);
    }
    std::string order() {
        std::string all;
        for (int i = 1; i <= list.Count(); ++i) all += list.ListItems(i).Text();
        return all;
    }
    Form form{"Form1"};
    ListView list{form, "LVAlert"};
};

TEST_F(SortColumnTest, TheFirstClickSortsDescending) {
    prcSortColumn(list, 1);
    EXPECT_EQ(order(), "cba");
    EXPECT_EQ(list.SortOrder(), 1);
    EXPECT_EQ(list.SortKey(), 0);
    EXPECT_TRUE(list.Sorted());
}

TEST_F(SortColumnTest, EachClickReversesTheOrderWhicheverColumnWasSortedBefore) {
    prcSortColumn(list, 1);
    prcSortColumn(list, 2);
    EXPECT_EQ(list.SortKey(), 1);
    EXPECT_EQ(list.SortOrder(), 0);
    prcSortColumn(list, 1);
    EXPECT_EQ(list.SortOrder(), 1);
}

TEST_F(SortColumnTest, AnEmptyListRemembersTheOrder) {
    list.Clear();
    prcSortColumn(list, 1);
    EXPECT_EQ(list.SortOrder(), 1);
    EXPECT_TRUE(list.Sorted());
}

TEST_F(SortColumnTest, ErrorsAreIgnored) {
    for (const int column : {0, 3, -1}) {
        EXPECT_EQ(errorOf([&] { prcSortColumn(list, column); }), 0);
        EXPECT_EQ(order(), "bac");
    }
}

}  // namespace
}  // namespace velmora::tests
