#include "monitor/watch_list.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/errors.h"
#include "base/regionals.h"
#include "monitor/rig.h"

namespace velmora::tests {
namespace {

constexpr std::int32_t greatest = std::numeric_limits<std::int32_t>::max();

/// Loaded on a machine without drives, so that the list is empty.
struct WatchListTest : testing::Test {
    WatchListTest() { rig.load(); }
    WatchRow at(int index) { return WatchRow(rig.list.ListItems(index)); }
    DriveTotals& totals() { return rig.forms.globals.driveTotals; }
    const std::string& infoLine(int index) { return rig.form1.lstInfo.List(index); }

    Rig rig;
};

using RefreshDriveTest = WatchListTest;
using RefreshTailTest = WatchListTest;
using LVBoldTest = WatchListTest;
using ClnLVTest = WatchListTest;

TEST_F(RefreshDriveTest, AppendsOneRowForEveryLogicalDrive) {
    rig.drive("C:", 1234567, 9876543);
    rig.drive("D:", 42, 1000);
    rig.watchList.RefreshDrive();

    ASSERT_EQ(rig.list.Count(), 2);
    EXPECT_EQ(at(1).path(), "C:\\");
    EXPECT_EQ(at(1).freeSpace(), "1,234,567 KB");
    EXPECT_EQ(at(1).totalSize(), "9,876,543 KB");
    EXPECT_EQ(at(2).path(), "D:\\");
    EXPECT_EQ(at(2).freeSpace(), "42 KB");
    EXPECT_EQ(at(2).totalSize(), "1,000 KB");
    EXPECT_EQ(at(1).trigger(), "");
    EXPECT_EQ(at(1).lastChecked(), "");
    EXPECT_FALSE(at(1).watched());
}

TEST_F(RefreshDriveTest, AsksForTheDriveStringsWithABufferOf255) {
    rig.drive("C:", 1, 2);
    rig.watchList.RefreshDrive();
    EXPECT_EQ(rig.machine.log.calls().front(), "GetLogicalDriveStringsA 255");
    EXPECT_EQ(rig.machine.log.calls()[1], "GetDriveName C:\\");
    EXPECT_EQ(rig.machine.log.calls()[2], "GetDrive C:");
}

TEST_F(RefreshDriveTest, ListsAllTwentySixLetters) {
    for (char letter = 'A'; letter <= 'Z'; ++letter) rig.drive({letter, ':'}, 10, 20);
    rig.watchList.RefreshDrive();
    ASSERT_EQ(rig.list.Count(), 26);
    EXPECT_EQ(at(26).path(), "Z:\\");
}

TEST_F(RefreshDriveTest, AddsNothingOnAMachineWithoutDrives) {
    rig.watchList.RefreshDrive();
    EXPECT_EQ(rig.list.Count(), 0);
    EXPECT_EQ(rig.form1.lstInfo.ListCount(), 0);
}

TEST_F(RefreshDriveTest, ASecondRefreshDoublesTheRows) {
    rig.drive("C:", 1, 2);
    rig.drive("D:", 3, 4);
    rig.watchList.RefreshDrive();
    rig.watchList.RefreshDrive();
    ASSERT_EQ(rig.list.Count(), 4);
    EXPECT_EQ(at(3).path(), "C:\\");
    EXPECT_EQ(at(4).path(), "D:\\");
    EXPECT_EQ(totals().lngDrives, 4);
}

TEST_F(RefreshDriveTest, ANotReadyDriveShowsTheTotalSizeOfTheReadyOneInFrontOfIt) {
    rig.drive("C:", 100, 2000);
    rig.machine.drives["D:"] = {.ready = false};
    rig.watchList.RefreshDrive();
    EXPECT_EQ(at(2).path(), "D:\\");
    EXPECT_EQ(at(2).freeSpace(), "N/A, drive not ready");
    EXPECT_EQ(at(2).totalSize(), "2,000 KB");
}

TEST_F(RefreshDriveTest, ANotReadyFirstDriveHasNoTotalSize) {
    rig.drive("C:", 100, 2000);
    rig.watchList.RefreshDrive();
    rig.machine.drives["A:"] = {.ready = false};
    rig.watchList.RefreshDrive();
    EXPECT_EQ(at(2).path(), "A:\\");
    EXPECT_EQ(at(2).totalSize(), "");
}

TEST_F(RefreshDriveTest, AddsALineForEachDriveToTheScratchList) {
    rig.drive("C:", 1234, 5000);
    rig.machine.drives["D:"] = {.ready = false};
    rig.watchList.RefreshDrive();
    ASSERT_EQ(rig.form1.lstInfo.ListCount(), 2);
    EXPECT_EQ(infoLine(0), "Drive: C:\t\t1,234 KB");
    EXPECT_EQ(infoLine(1), "Drive: D:\t\tN/A, drive not ready");
}

TEST_F(RefreshDriveTest, GroupsDigitsAsTheRegionDoes) {
    rig.machine.platform().regional = germany;
    rig.drive("C:", 1234567, 9876543);
    rig.watchList.RefreshDrive();
    EXPECT_EQ(at(1).freeSpace(), "1.234.567 KB");
}

TEST_F(RefreshDriveTest, RoundsEachDriveBeforeAdding) {
    rig.machine.drives["C:"] = {1536, 2560};  // 1.5 and 2.5 KB
    rig.machine.drives["D:"] = {1536, 2560};
    rig.watchList.RefreshDrive();
    EXPECT_EQ(at(1).freeSpace(), "2 KB");
    EXPECT_EQ(at(1).totalSize(), "3 KB");
    EXPECT_EQ(totals().lngFreeKB, 4);
    EXPECT_EQ(totals().lngSizeKB, 6);
}

TEST_F(RefreshDriveTest, AnErrorOfADriveGoesToTheCaller) {
    rig.drive("C:", 1, 2);
    rig.machine.log.failCall(5, error::diskNotReady);  // FreeSpace
    EXPECT_EQ(errorOf([&] { rig.watchList.RefreshDrive(); }), error::diskNotReady);
    EXPECT_EQ(rig.list.Count(), 0);
}

TEST_F(RefreshTailTest, SumsTheReadyDrives) {
    rig.drive("C:", 100, 2000);
    rig.drive("D:", 30, 400);
    rig.machine.drives["E:"] = {.freeBytes = 1e6, .totalBytes = 1e6, .ready = false};
    rig.machine.now = {2026, 5, 6, 7, 8, 9};
    rig.watchList.RefreshDrive();
    EXPECT_EQ(totals().lngFreeKB, 130);
    EXPECT_EQ(totals().lngSizeKB, 2400);
    EXPECT_EQ(totals().lngDrives, 3);
    EXPECT_EQ(totals().dtLast, (DateTime{2026, 5, 6, 7, 8, 9}));
    EXPECT_EQ(rig.forms.globals.dtRefreshed, (DateTime{2026, 5, 6, 7, 8, 9}));
    EXPECT_EQ(rig.forms.globals.lngRefreshedKB, 130);
}

TEST_F(RefreshTailTest, CountsTheRefreshesOfBothKinds) {
    const std::int32_t before = totals().lngRefreshes;
    rig.watchList.RefreshDrive();
    rig.watchList.RefreshDriveExisting();
    EXPECT_EQ(totals().lngRefreshes, before + 2);
}

TEST_F(RefreshTailTest, CountsRowsOfAllKindsAsDrives) {
    rig.drive("C:", 1, 2);
    rig.row("C:\\");
    rig.row("X:\\gone");
    rig.watchList.RefreshDriveExisting();
    EXPECT_EQ(totals().lngDrives, 2);
}

TEST_F(RefreshTailTest, TheRateBecomesZeroAfterARefreshWithoutChange) {
    rig.drive("C:", 100, 200);
    rig.watchList.RefreshDrive();
    totals().lngRateKB = 7;
    rig.watchList.RefreshDrive();
    EXPECT_EQ(totals().lngRateKB, 0);
}

TEST_F(RefreshTailTest, TheRateStaysAfterARefreshWithAChange) {
    rig.drive("C:", 100, 200);
    rig.watchList.RefreshDrive();
    totals().lngRateKB = 7;
    rig.drive("C:", 99, 200);
    rig.watchList.RefreshDriveExisting();
    EXPECT_EQ(totals().lngRateKB, 7);
    EXPECT_EQ(totals().lngFreeKB, 99);
}

TEST_F(RefreshTailTest, TheFirstRefreshLeavesTheRateAlone) {
    totals() = {};
    totals().lngRateKB = 7;
    rig.watchList.RefreshDrive();
    EXPECT_EQ(totals().lngRateKB, 7);
    EXPECT_EQ(totals().lngRefreshes, 1);
}

TEST_F(RefreshTailTest, SumsStopAtTheGreatest32BitNumber) {
    rig.drive("C:", 2147483647.0, 4e9);
    rig.watchList.RefreshDrive();
    EXPECT_EQ(totals().lngFreeKB, greatest);
    EXPECT_EQ(totals().lngSizeKB, greatest);
    rig.drive("D:", 1, 1);
    rig.watchList.RefreshDrive();
    EXPECT_EQ(totals().lngFreeKB, greatest);
    EXPECT_EQ(rig.forms.globals.lngRefreshedKB, greatest);
    EXPECT_EQ(at(1).totalSize(), "4,000,000,000 KB");
}

TEST_F(LVBoldTest, SetsTheBoldFaceByTheTicks) {
    ListItem& ticked = rig.row("C:\\", true);
    ListItem& plain = rig.row("D:\\", false);
    plain.setBold(true);
    plain.setSubBold(4, true);
    rig.watchList.prcLVBold(rig.list);
    EXPECT_TRUE(ticked.Bold());
    EXPECT_FALSE(plain.Bold());
    for (int sub = 1; sub <= 4; ++sub) {
        EXPECT_TRUE(ticked.ListSubItems(sub).Bold()) << sub;
        EXPECT_FALSE(plain.ListSubItems(sub).Bold()) << sub;
    }
}

TEST_F(LVBoldTest, DoesNothingDuringACheck) {
    ListItem& row = rig.row("C:\\", true);
    rig.forms.globals.bChecking = true;
    rig.watchList.prcLVBold(rig.list);
    EXPECT_FALSE(row.Bold());
}

TEST_F(LVBoldTest, StopsWhenTheRowsBecomeFewer) {
    for (const char* path : {"C:\\", "D:\\", "E:\\"}) rig.row(path);
    rig.list.RowChanged.connect([this](const ListItem&) {
        while (rig.list.Count() > 1) rig.list.Remove(rig.list.Count());
    });
    EXPECT_EQ(errorOf([&] { rig.watchList.prcLVBold(rig.list); }), 0);
    EXPECT_TRUE(rig.list.ListItems(1).Bold());
}

TEST_F(LVBoldTest, HandlesTenThousandRows) {
    for (int i = 0; i < 10000; ++i) rig.row("C:\\" + std::to_string(i), i % 2 == 0);
    rig.watchList.prcLVBold(rig.list);
    EXPECT_TRUE(rig.list.ListItems(9999).Bold());
    EXPECT_FALSE(rig.list.ListItems(10000).Bold());
}

TEST_F(ClnLVTest, RemovesRowsWithoutTextAndTag) {
    rig.list.Add();
    rig.list.Add("C:\\");
    rig.list.Add();
    rig.list.Add().setTag("tag");
    WatchRow(rig.list.Add()).setFreeSpace("5 KB");
    WatchList::prcClnLV(rig.list);
    ASSERT_EQ(rig.list.Count(), 2);
    EXPECT_EQ(at(1).path(), "C:\\");
    EXPECT_EQ(rig.list.ListItems(2).Tag(), "tag");
}

TEST_F(ClnLVTest, KeepsRowsOfBlanksAndAcceptsAnEmptyList) {
    WatchList::prcClnLV(rig.list);
    rig.list.Add(" ");
    WatchList::prcClnLV(rig.list);
    EXPECT_EQ(rig.list.Count(), 1);
}

}  // namespace
}  // namespace velmora::tests
