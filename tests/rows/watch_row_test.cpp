#include "rows/watch_row.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "base/regionals.h"
#include "base/runtime_error.h"
#include "controls/form.h"
#include "rows/watch_columns.h"

namespace velmora::tests {
namespace {

struct WatchRowTest : testing::Test {
    WatchRowTest() { addWatchColumns(list); }
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

TEST_F(WatchRowTest, EachReaderHasItsRuleOfWhatIsAvailable) {
    const struct {
        const char* freeSpace;
        bool available, measured, readyForGauges, availableForTip;
    } cases[] = {{"12 KB", true, true, true, true},
                 {"", true, false, true, true},
                 {"N/A", false, false, true, false},
                 {"N/A, drive not ready", false, false, false, false},
                 {"N/A check drive or media", false, false, true, false},
                 {"was n/a once", false, false, true, true},
                 {"N/a", false, false, true, true},
                 {"drive Not Ready", true, true, false, true},
                 {"not read yet", true, true, true, true}};
    ListItem& item = list.Add("C:\\");
    const ConstWatchRow row(item);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.freeSpace);
        WatchRow(item).setFreeSpace(c.freeSpace);
        EXPECT_EQ(row.isAvailable(), c.available);
        EXPECT_EQ(row.isMeasured(), c.measured);
        EXPECT_EQ(row.isReadyForGauges(), c.readyForGauges);
        EXPECT_EQ(row.isAvailableForTip(), c.availableForTip);
    }
}

TEST_F(WatchRowTest, SaysWhyThereIsNoFreeSpace) {
    WatchRow row(list.Add("C:\\"));
    row.setTotalSize("9 KB");
    row.setFolderCounts("counts");
    row.setLastChecked("checked");
    SpaceTexts texts{"1 KB", "2 KB"};
    texts.setNotReady();
    row.setReading(texts);
    EXPECT_EQ(row.freeSpace(), "N/A, drive not ready");
    EXPECT_EQ(row.totalSize(), "2 KB");
    row.markNotReadyWhenAdded();
    EXPECT_EQ(row.freeSpace(), "N/A, drive not ready.");
    EXPECT_EQ(row.folderCounts(), "counts");
    row.markNoDrive();
    EXPECT_EQ(row.freeSpace(), "N/A check drive or media");
    EXPECT_EQ(row.folderCounts(), "");
    EXPECT_EQ(row.lastChecked(), "checked");
    row.markInaccessible();
    EXPECT_EQ(row.freeSpace(), "N/A, drive not ready");
    EXPECT_EQ(row.lastChecked(), "");
    EXPECT_EQ(row.inaccessibleNote(), "Folder/Path inaccessible N/A: ");
}

TEST_F(WatchRowTest, WritesSizesAndReadsThemBack) {
    WatchRow row(list.Add("C:\\"));
    SpaceTexts texts;
    texts.setReading(1234567.0 * 1024, 2345678.0 * 1024, Grouping::regional, unitedStates);
    row.setReading(texts);
    EXPECT_EQ(row.freeSpace(), "1,234,567 KB");
    EXPECT_EQ(row.totalSize(), "2,345,678 KB");
    EXPECT_EQ(row.freeKB(unitedStates), 1234567);
    EXPECT_EQ(row.totalKBOrZero(unitedStates), 2345678);
    row.keepPreviousFree();
    EXPECT_EQ(row.previousFree(), "1,234,567");
    EXPECT_EQ(row.previousFreeKB(unitedStates), 1234567);
    EXPECT_TRUE(row.previousFreeIs("1,234,567 KB"));
    EXPECT_FALSE(row.previousFreeIs("1234567 KB"));
    row.setFreeBytes(1234.0 * 1024, Grouping::none, unitedStates);
    row.setTotalBytes(5678.0 * 1024, Grouping::none, unitedStates);
    EXPECT_EQ(row.freeSpace(), "1234 KB");
    EXPECT_EQ(row.totalSize(), "5678 KB");
    EXPECT_EQ(row.freeKBOrZero(unitedStates), 1234);
}

TEST_F(WatchRowTest, ATextWithoutANumberIsZeroOrErrorThirteen) {
    WatchRow row(list.Add("C:\\"));
    for (const char* text : {"", "N/A", "much"}) {
        row.setFreeSpace(text);
        row.setTotalSize(text);
        row.setPreviousFree(text);
        EXPECT_EQ(row.freeKBOrZero(unitedStates), 0);
        EXPECT_EQ(row.totalKBOrZero(unitedStates), 0);
        EXPECT_EQ(errorOf([&] { row.freeKB(unitedStates); }), error::typeMismatch);
        EXPECT_EQ(errorOf([&] { row.previousFreeKB(unitedStates); }), error::typeMismatch);
    }
}

TEST_F(WatchRowTest, KeepsTheCountsOfAFolder) {
    WatchRow row(list.Add("C:\\"));
    EXPECT_FALSE(row.hasFolderCounts());
    row.setFolderCounts(12, 3);
    EXPECT_EQ(row.folderCounts(), "file:12|fold:3|");
    EXPECT_EQ(row.fileCount(), "12");
    EXPECT_EQ(row.folderCount(), "3");
    row.setNoFolder();
    EXPECT_EQ(row.folderCounts(), "N/A");
    EXPECT_TRUE(row.hasFolderCounts());
    EXPECT_EQ(row.fileCount(), std::nullopt);
    row.setFolderCounts("file:12");
    EXPECT_EQ(row.fileCount(), std::nullopt);
    row.setPreviousFree("4");
    row.forgetFigures();
    EXPECT_FALSE(row.hasPreviousFree());
    EXPECT_FALSE(row.hasFolderCounts());
}

TEST_F(WatchRowTest, TheTipLooksForItsAlertBesideTheState) {
    ListItem& item = list.Add("C:\\");
    WatchRow row(item);
    row.setStateIcon(state_icon::alert);
    EXPECT_TRUE(row.isInAlert());
    EXPECT_FALSE(row.isInAlertForTip());
    row.setStateIcon(state_icon::ok);
    item.setReportIcon(2, "alert");
    EXPECT_FALSE(row.isInAlert());
    EXPECT_TRUE(row.isInAlertForTip());
}

TEST_F(WatchRowTest, IsFoundByIndexWhileItsPathIsTheSame) {
    ListItem& item = list.Add("C:\\");
    EXPECT_EQ(&WatchRow::at(list, 1, "C:\\").item(), &item);
    for (const int index : {0, 2}) {
        EXPECT_EQ(errorOf([&] { WatchRow::at(list, index, "C:\\"); }), error::indexOutOfBounds);
    }
    EXPECT_EQ(errorOf([&] { WatchRow::at(list, 1, "D:\\"); }), error::indexOutOfBounds);
}

}  // namespace
}  // namespace velmora::tests
