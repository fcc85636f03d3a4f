#include "rows/watch_columns.h"

#include <gtest/gtest.h>

#include "controls/form.h"
#include "rows/watch_row.h"

namespace velmora::tests {
namespace {

struct WatchColumnsTest : testing::Test {
    Form form{"Form1"};
    ListView list{form, "ListView1"};

    const std::string& header() { return list.ColumnHeaders(4).Text; }
};

TEST_F(WatchColumnsTest, TheTriggersUnitTakesThePlaceOfFourCharacters) {
    addWatchColumns(list);
    showTriggerUnit(list, "(KB)");
    EXPECT_EQ(header(), "Trigger S(KB)");
    showTriggerUnit(list, "( %)");
    EXPECT_EQ(header(), "Trigger S( %)");
}

TEST_F(WatchColumnsTest, TheTriggersMayBeTheLastColumn) {
    for (const char* header : {"Path", "Free", "Total", "Trigger Space"}) list.addColumn({header});
    showTriggerUnit(list, "(KB)");
    EXPECT_EQ(header(), "Trigger S(KB)");
    ListItem& item = list.Add("C:\\");
    writeTriggers(list, "5");
    EXPECT_EQ(item.SubItems(3), "5");
}

TEST_F(WatchColumnsTest, AListWithoutColumnsShowsNoUnit) {
    showTriggerUnit(list, "(KB)");
    EXPECT_EQ(list.ColumnCount(), 0);
}

TEST_F(WatchColumnsTest, TriggersAreWrittenInAllRows) {
    addWatchColumns(list);
    ListItem& first = list.Add("C:\\");
    ListItem& second = list.Add("D:\\");
    writeTriggers(list, "5");
    EXPECT_EQ(ConstWatchRow(first).trigger(), "5");
    EXPECT_EQ(ConstWatchRow(second).trigger(), "5");
    EXPECT_EQ(ConstWatchRow(second).totalSize(), "");
}

TEST_F(WatchColumnsTest, TriggersGoToTheFirstColumnThatBearsTheWord) {
    for (const char* header : {"Trigger path", "One", "A Trigger", "Trigger"}) {
        list.addColumn({header});
    }
    ListItem& item = list.Add("C:\\");
    writeTriggers(list, "5");
    EXPECT_EQ(item.Text(), "C:\\");
    EXPECT_EQ(item.SubItems(1), "");
    EXPECT_EQ(item.SubItems(2), "5");
    EXPECT_EQ(item.SubItems(3), "");
}

}  // namespace
}  // namespace velmora::tests
