// Finding a row again after other handlers ran.
#include "alerts/lists/listed_rows.h"

#include "alerts/lists/lists_rig.h"

namespace velmora::tests {
namespace {

struct ListedRowsTest : testing::Test, ListsRig {
    ListedRow third() {
        for (const char* tag : {"C:\\a", "C:\\b", "C:\\c", "C:\\d"}) row(tag);
        return listedRow(list, 3);
    }
};

TEST_F(ListedRowsTest, ARowIsFoundWhereItIsNow) {
    const ListedRow listed = third();
    EXPECT_EQ(placeOfRow(list, listed), 3);
    list.Remove(1);
    EXPECT_EQ(placeOfRow(list, listed), 2);
    list.Remove(2);
    EXPECT_EQ(placeOfRow(list, listed), 0);
}

// A row that is added later can lie at the address of one that has gone.
TEST_F(ListedRowsTest, ARowWithAnotherPathIsAnotherRow) {
    const ListedRow listed = third();
    ListedFile(list.ListItems(3)).setPath("C:\\precious");
    EXPECT_EQ(placeOfRow(list, listed), 0);
    removeListedRow(list, listed);
    EXPECT_EQ(tags(), (std::vector<std::string>{"C:\\a", "C:\\b", "C:\\precious", "C:\\d"}));
}

TEST_F(ListedRowsTest, ARowOfTheSamePathIsAnotherRow) {
    third();
    const ListItem* const again = &row("C:\\c");
    const ListedRow listed = listedRow(list, 3);
    list.Remove(3);
    EXPECT_EQ(placeOfRow(list, listed), 0);
    removeListedRow(list, listed);
    EXPECT_EQ(&list.ListItems(4), again);
}

TEST_F(ListedRowsTest, ARowThatHasMovedDownIsFound) {
    const ListedRow listed = third();
    list.Add(1, "new");
    EXPECT_EQ(placeOfRow(list, listed), 4);
    removeListedRow(list, listed);
    EXPECT_EQ(tags(), (std::vector<std::string>{"", "C:\\a", "C:\\b", "C:\\d"}));
}

}  // namespace
}  // namespace velmora::tests
