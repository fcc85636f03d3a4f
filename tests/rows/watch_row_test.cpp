#include "rows/watch_row.h"

#include <gtest/gtest.h>

#include "controls/form.h"

namespace velmora::tests {
namespace {

struct WatchRowTest : testing::Test {
    WatchRowTest() { WatchRow::addColumns(list); }
    Form form{"Form1"};
    ListView list{form, "ListView1"};
};

TEST_F(WatchRowTest, AddsItsColumnsInTheirOrder) {
    const struct {
        const char* text;
        Alignment alignment;
    } columns[] = {{"Drive Path", Alignment::left},
                   {"Free Space", Alignment::right},
                   {"Total Size", Alignment::right},
                   {"Trigger Space", Alignment::right},
                   {"Time Last Checked", Alignment::left}};
    ASSERT_EQ(list.ColumnCount(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(list.ColumnHeaders(i + 1).Text, columns[i].text);
        EXPECT_EQ(list.ColumnHeaders(i + 1).alignment, columns[i].alignment) << i;
    }
}

TEST_F(WatchRowTest, WritesEachFieldToItsPlaceInTheRow) {
    ListItem& item = list.Add();
    WatchRow row(item);
    row.setPath("C:\\data");
    row.setFreeSpace("1 KB");
    row.setTotalSize("2 KB");
    row.setTrigger("3");
    row.setLastChecked("03/14 15:09:26");
    row.setFolderCounts("file:1|fold:2|");
    row.setPreviousFree("4");
    row.setStateIcon(state_icon::alert);
    row.setStamp("now");
    row.setInaccessibleNote("gone");

    EXPECT_EQ(item.Text(), "C:\\data");
    EXPECT_EQ(item.SubItems(1), "1 KB");
    EXPECT_EQ(item.SubItems(2), "2 KB");
    EXPECT_EQ(item.SubItems(3), "3");
    EXPECT_EQ(item.SubItems(4), "03/14 15:09:26");
    EXPECT_EQ(item.Tag(), "file:1|fold:2|");
    EXPECT_EQ(item.ListSubItems(1).Tag(), "4");
    EXPECT_EQ(item.ListSubItems(1).ReportIcon(), "alert");
    EXPECT_EQ(item.ListSubItems(1).Key(), "now");
    EXPECT_EQ(item.ListSubItems(4).Tag(), "gone");
}

TEST_F(WatchRowTest, ReadsEachFieldFromItsPlaceInTheRow) {
    ListItem& item = list.Add("C:\\data");
    item.setSubItems(1, "1 KB");
    item.setSubItems(2, "2 KB");
    item.setSubItems(3, "3");
    item.setSubItems(4, "checked");
    item.setChecked(true);
    item.setTag("N/A");
    item.setSubTag(1, "4");
    item.setReportIcon(1, "ok");
    item.setSubKey(1, "now");
    item.setSubTag(4, "gone");

    const WatchRow row(item);
    EXPECT_EQ(row.path(), "C:\\data");
    EXPECT_EQ(row.freeSpace(), "1 KB");
    EXPECT_EQ(row.totalSize(), "2 KB");
    EXPECT_EQ(row.trigger(), "3");
    EXPECT_EQ(row.lastChecked(), "checked");
    EXPECT_TRUE(row.watched());
    EXPECT_EQ(row.folderCounts(), "N/A");
    EXPECT_EQ(row.previousFree(), "4");
    EXPECT_EQ(row.stateIcon(), state_icon::ok);
    EXPECT_EQ(row.stamp(), "now");
    EXPECT_EQ(row.inaccessibleNote(), "gone");
    EXPECT_EQ(&row.item(), &item);
}

TEST_F(WatchRowTest, ANewRowIsUnwatchedAndEmptyButForItsPath) {
    const WatchRow row(list.Add("C:\\"));
    EXPECT_FALSE(row.watched());
    EXPECT_FALSE(row.item().Bold());
    for (const std::string& text :
         {row.freeSpace(), row.totalSize(), row.trigger(), row.lastChecked(), row.folderCounts(),
          row.previousFree(), row.stateIcon(), row.stamp(), row.inaccessibleNote()}) {
        EXPECT_EQ(text, "");
    }
}

TEST_F(WatchRowTest, KeepsNamesWithBlanksQuotesForeignLettersAndManyCharacters) {
    for (const std::string& name :
         {std::string("C:\\My Files "), std::string("C:\\say \"hi\""),
          std::string("C:\\\u00DCn\u00EFc\u00F6d\u00E9 \u6587\u4EF6 \U0001F4BE"),
          "C:\\" + std::string(300, 'x')}) {
        EXPECT_EQ(WatchRow(list.Add(name)).path(), name);
    }
}

}  // namespace
}  // namespace velmora::tests
