// Measuring the rows that are there again.
#include <gtest/gtest.h>

#include "base/errors.h"
#include "monitor/rig.h"

namespace velmora::tests {
namespace {

struct RefreshExistingTest : testing::Test {
    RefreshExistingTest() { rig.load(); }
    WatchRow at(int index) { return WatchRow(rig.list.ListItems(index)); }
    ConstAlertRow alert() { return ConstAlertRow(rig.form1.LVAlert.ListItems(1)); }
    void refresh() { rig.watchList.RefreshDriveExisting(); }

    Rig rig;
};

TEST_F(RefreshExistingTest, MeasuresTheRowsAndAddsNone) {
    rig.drive("C:", 100, 2000);
    rig.watchList.RefreshDrive();
    rig.drive("C:", 1050, 3000);
    rig.drive("D:", 1, 2);
    refresh();
    ASSERT_EQ(rig.list.Count(), 1);
    EXPECT_EQ(at(1).freeSpace(), "1,050 KB");
    EXPECT_EQ(at(1).totalSize(), "3,000 KB");
    EXPECT_EQ(rig.alertTexts().size(), 0u);
    EXPECT_EQ(rig.form1.lstInfo.List(1), "Drive: C:\t\t1,050 KB");
}

TEST_F(RefreshExistingTest, AFolderRowOfDriveCBecomesTheRootOfC) {
    rig.drive("C:", 100, 2000);
    rig.row("c:\\data\\deep");
    refresh();
    EXPECT_EQ(at(1).path(), "C:\\");
    EXPECT_EQ(at(1).freeSpace(), "100 KB");
    EXPECT_EQ(at(1).totalSize(), "2,000 KB");
    EXPECT_EQ(rig.machine.log.countOf("FolderExists c:\\"), 1);
    EXPECT_EQ(rig.machine.log.countOf("FolderExists c:\\data"), 0);
}

TEST_F(RefreshExistingTest, ANetworkFolderBecomesItsShare) {
    rig.drive("\\\\host\\share", 5, 10);
    rig.machine.folders.insert("\\\\host\\share\\data");
    rig.row("\\\\host\\share\\data");
    refresh();
    EXPECT_EQ(rig.machine.log.countOf("FolderExists \\\\host\\share\\data"), 1);
    EXPECT_EQ(at(1).path(), "\\\\host\\share\\");
    EXPECT_EQ(at(1).freeSpace(), "5 KB");
}

TEST_F(RefreshExistingTest, ANetworkRowThatNoLongerExistsRaisesTheAlertWithTheWholePath) {
    rig.row("\\\\host\\share\\data");
    refresh();
    ASSERT_EQ(rig.form1.LVAlert.Count(), 1);
    EXPECT_EQ(alert().rating(), "Medium");
    EXPECT_EQ(alert().time(), "20260314 15:09");
    EXPECT_EQ(alert().text(), "Folder/Path inaccessible N/A: \\\\host\\share\\data");
    EXPECT_EQ(at(1).path(), "\\\\host\\share\\data");
    EXPECT_FALSE(rig.forms.sysWorkSystray.tmrSystray.Enabled());
}

TEST_F(RefreshExistingTest, AMissingDriveRaisesTheAlertWithTheRootOnly) {
    rig.row("X:\\data\\deep");
    refresh();
    EXPECT_EQ(rig.alertTexts(), std::vector<std::string>{"Folder/Path inaccessible N/A: X:\\"});
}

TEST_F(RefreshExistingTest, MarksARowWhosePathIsMissing) {
    WatchRow row(rig.row("X:\\"));
    row.setFreeSpace("5 KB");
    row.setTotalSize("10 KB");
    row.setTrigger("3");
    row.setLastChecked("03/14 15:09:26");
    refresh();
    EXPECT_EQ(row.path(), "X:\\");
    EXPECT_EQ(row.freeSpace(), "N/A, drive not ready");
    EXPECT_EQ(row.totalSize(), "10 KB");
    EXPECT_EQ(row.trigger(), "3");
    EXPECT_EQ(row.lastChecked(), "");
    EXPECT_EQ(row.inaccessibleNote(), "Folder/Path inaccessible N/A: ");
}

TEST_F(RefreshExistingTest, RaisesTheAlertOfAMissingPathAtEveryRefresh) {
    rig.row("X:\\");
    refresh();
    refresh();
    EXPECT_EQ(rig.alertTexts().size(), 2u);
}

TEST_F(RefreshExistingTest, ADriveThatGoesAwayBetweenTwoRefreshesLeavesTheOthersMeasured) {
    rig.drive("C:", 1, 10);
    rig.drive("D:", 2, 20);
    rig.drive("E:", 3, 30);
    rig.watchList.RefreshDrive();
    rig.machine.drives.erase("D:");
    rig.drive("E:", 33, 30);
    refresh();
    EXPECT_EQ(at(2).freeSpace(), "N/A, drive not ready");
    EXPECT_EQ(at(2).totalSize(), "20 KB");
    EXPECT_EQ(at(3).freeSpace(), "33 KB");
    EXPECT_EQ(rig.forms.globals.driveTotals.lngFreeKB, 34);

    rig.drive("D:", 4, 20);
    refresh();
    EXPECT_EQ(at(2).freeSpace(), "4 KB");
}

TEST_F(RefreshExistingTest, ADriveThatLosesItsMediumMeanwhileGetsThePreviousTotal) {
    rig.drive("C:", 1, 10);
    rig.drive("D:", 2, 20);
    rig.watchList.RefreshDrive();
    rig.machine.onCall = [this](const std::string& call) {
        if (call == "GetDrive D:") rig.machine.drives["D:"].ready = false;
    };
    refresh();
    EXPECT_EQ(at(2).freeSpace(), "N/A, drive not ready");
    EXPECT_EQ(at(2).totalSize(), "10 KB");
    EXPECT_EQ(rig.alertTexts().size(), 0u);
}

TEST_F(RefreshExistingTest, ARowThatIsNoPathIsAMissingPath) {
    for (const char* path : {"", "?", "nonsense", " C:\\", "\\\\", "\\\\host", "::\\"}) {
        rig.row(path);
    }
    rig.drive("C:", 1, 2);
    refresh();
    EXPECT_EQ(rig.alertTexts(),
              (std::vector<std::string>{
                  "Folder/Path inaccessible N/A: ::\\", "Folder/Path inaccessible N/A: \\\\host",
                  "Folder/Path inaccessible N/A: \\\\",
                  "Folder/Path inaccessible N/A:  C:", "Folder/Path inaccessible N/A: non",
                  "Folder/Path inaccessible N/A: ?", "Folder/Path inaccessible N/A: "}));
    EXPECT_EQ(at(3).path(), "nonsense");
}

TEST_F(RefreshExistingTest, HandlesNamesWithBlanksQuotesForeignLettersAndManyCharacters) {
    rig.drive("C:", 7, 8);
    rig.row("C:\\My \"own\" files");
    rig.row("C:\\\u00DCbung \u6587\u4EF6");
    rig.row("C:\\" + std::string(300, 'x'));
    const std::string share = "\\\\h\u00F6st\\my share \"1\"\\" + std::string(300, 'y');
    rig.row(share);
    refresh();
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(at(i).path(), "C:\\");
    EXPECT_EQ(rig.alertTexts(), std::vector<std::string>{"Folder/Path inaccessible N/A: " + share});
}

TEST_F(RefreshExistingTest, CutsThePathAfterThreeCharactersNotBytes) {
    rig.row("\u00E9\u00E8\u00EAx");
    refresh();
    EXPECT_EQ(rig.alertTexts().front(), "Folder/Path inaccessible N/A: \u00E9\u00E8\u00EA");
}

TEST_F(RefreshExistingTest, AnEmptyListIsARefreshToo) {
    const auto before = rig.forms.globals.driveTotals.lngRefreshes;
    refresh();
    EXPECT_EQ(rig.machine.log.calls(), std::vector<std::string>{"GetLogicalDriveStringsA 255"});
    EXPECT_EQ(rig.forms.globals.driveTotals.lngRefreshes, before + 1);
    EXPECT_EQ(rig.forms.globals.driveTotals.lngDrives, 0);
}

TEST_F(RefreshExistingTest, HandlesTenThousandRows) {
    rig.drive("C:", 1000, 2000);
    for (int i = 0; i < 10000; ++i) rig.row("C:\\folder " + std::to_string(i));
    refresh();
    EXPECT_EQ(at(1).path(), "C:\\");
    EXPECT_EQ(at(10000).freeSpace(), "1,000 KB");
    EXPECT_EQ(rig.forms.globals.driveTotals.lngDrives, 10000);
    EXPECT_EQ(rig.forms.globals.driveTotals.lngFreeKB, 10000000);
}

TEST_F(RefreshExistingTest, TheSameSpaceGivesTheSameTextTwice) {
    rig.drive("C:", 1234567, 2345678);
    rig.watchList.RefreshDrive();
    const std::string before = at(1).freeSpace();
    refresh();
    EXPECT_EQ(at(1).freeSpace(), before);
}

}  // namespace
}  // namespace velmora::tests
