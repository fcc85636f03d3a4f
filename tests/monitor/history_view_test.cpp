// The history's window, fed by checks.
#include "monitor/history/history_view.h"

#include <algorithm>

#include "monitor/check_rig.h"
#include "rows/watch_columns.h"

namespace velmora::tests {
namespace {

struct HistoryRig : Rig {
    FrmHistory& window = forms.frmHistory;

    HistoryRig() {
        addWatchColumns(list);
        for (const char* path : {"C:\\", "D:\\"}) {
            WatchRow added(row(path));
            added.setFreeSpace("1,000 KB");
            added.setTotalSize("4,000 KB");
            added.item().setChecked(true);
        }
        machine.tick = 50'000;
    }
    WatchRow rowOf(int index) { return WatchRow(list.ListItems(index)); }
    void open() { forms.dlgDriveInfo.cmdHistory.userClick(); }
    /// The line that is shown alone.
    const LineChart::Line& line() { return window.chtHistory.lines().at(0); }
    std::string exported() { return machine.files["C:\\Program Files\\Velmora\\history.csv"]; }
};

using Points = std::vector<LineChart::Point>;

// "C:\" is chosen in these tests where nothing else is said.
constexpr int firstPath = 1;  // behind "All paths"

TEST(HistoryView, TakesWatchedRowsThatAreAvailable) {
    HistoryRig rig;
    rig.rowOf(2).item().setChecked(false);
    rig.historyView.recordRows();
    rig.rowOf(1).setFreeSpace("N/A not ready");
    rig.historyView.recordRows();
    rig.rowOf(1).setFreeSpace("");
    rig.historyView.recordRows();
    EXPECT_EQ(rig.historyView.history().paths(), std::vector<std::string>{"C:\\"});
    EXPECT_EQ(rig.historyView.history().of("C:\\")->size(), 1U);
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST(HistoryView, EachCheckKeepsTheFreeSpaceOfItsRows) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.watch("D:\\", 7000);
    rig.row("E:\\", false);
    for (int i = 1; i <= 3; ++i) rig.at(i).setFreeSpace("1 KB");
    rig.check();
    rig.machine.drives["D:"].freeBytes = 6000 * KB;
    rig.check();
    const SpaceHistory& history = rig.historyView.history();
    ASSERT_EQ(history.paths(), (std::vector<std::string>{"C:\\", "D:\\"}));
    ASSERT_EQ(history.of("D:\\")->size(), 2U);
    EXPECT_EQ(history.of("D:\\")->at(0).freeKB, 7000);
    EXPECT_EQ(history.of("D:\\")->at(1).freeKB, 6000);
}

// The second row gets the first one's KB as its percentage, which closes the check there.
TEST(HistoryView, ACheckThatStopsKeepsTheRowsBeforeIt) {
    CheckRig rig;
    rig.watch("C:\\", 5000, 10000);
    rig.watch("D:\\", 5, 10000);
    rig.watch("E:\\", 5, 10000);
    for (int i = 1; i <= 3; ++i) rig.at(i).setFreeSpace("4 KB");
    rig.usePercent("10");
    rig.check();
    ASSERT_EQ(rig.host.boxes.size(), 1U);
    EXPECT_EQ(rig.historyView.history().paths(), std::vector<std::string>{"C:\\"});
}

TEST(HistoryView, ShowsThePointsOfAPathAndItsTrigger) {
    HistoryRig rig;
    rig.form1.txtSpace.setText("200");
    rig.historyView.recordRows();
    rig.machine.tick += 60'000;
    rig.rowOf(1).setFreeSpace("900 KB");
    rig.rowOf(2).setFreeSpace("500 KB");
    rig.historyView.recordRows();
    rig.machine.tick += 30'000;
    rig.open();
    EXPECT_TRUE(rig.window.Visible());
    EXPECT_EQ(rig.window.cboPath.ListCount(), 3);
    rig.window.cboPath.userChoose(firstPath);
    ASSERT_EQ(rig.window.chtHistory.lines().size(), 1U);
    EXPECT_EQ(rig.line(), (LineChart::Line{"C:\\", {{-90, 1000}, {-30, 900}}, 200}));
    EXPECT_EQ(rig.window.lblEstimate.Caption(), "");
    rig.window.cboPath.userChoose(firstPath + 1);
    EXPECT_EQ(rig.line().points, (Points{{-90, 1000}, {-30, 500}}));
    rig.open();
    EXPECT_EQ(rig.line().name, "D:\\");
    rig.window.cmdClose.userClick();
    EXPECT_FALSE(rig.window.Visible());
}

TEST(HistoryView, TheTriggerMayBeAShareOrTheRowsOwn) {
    HistoryRig rig;
    rig.historyView.recordRows();
    rig.form1.txtSpace.setText("10");
    rig.form1.OpDriv[1].choose();
    rig.form1.txtSpace.setText("10");
    rig.open();
    rig.window.cboPath.userChoose(firstPath);
    EXPECT_EQ(rig.line().level, 400);
    rig.form1.chkDrive.setValue(1);
    rig.rowOf(1).setTrigger("25");
    rig.open();
    EXPECT_EQ(rig.line().level, 1000);
    rig.rowOf(1).setTrigger("none");
    rig.open();
    EXPECT_FALSE(rig.line().level);
    rig.list.Clear();
    rig.open();
    EXPECT_FALSE(rig.line().level);
}

TEST(HistoryView, BeforeTheFirstCheckItSaysSo) {
    HistoryRig rig;
    rig.open();
    EXPECT_EQ(rig.window.lblEstimate.Caption(), "Nothing was checked yet.");
    EXPECT_TRUE(rig.window.chtHistory.lines().empty());
    EXPECT_EQ(rig.window.cboPath.ListCount(), 0);
}

TEST(HistoryView, AtFirstAllPathsAreShownEachWithItsTrigger) {
    HistoryRig rig;
    rig.form1.txtSpace.setText("10");
    rig.form1.OpDriv[1].choose();
    rig.form1.txtSpace.setText("10");
    rig.rowOf(2).setTotalSize("8,000 KB");
    rig.historyView.recordRows();
    rig.machine.tick += 30'000;
    rig.open();
    EXPECT_EQ(rig.window.cboPath.Text(), "All paths");
    EXPECT_EQ(
        rig.window.chtHistory.lines(),
        (std::vector<LineChart::Line>{{"C:\\", {{-30, 1000}}, 400}, {"D:\\", {{-30, 1000}}, 800}}));
    EXPECT_EQ(rig.window.lblEstimate.Caption(), "");
}

TEST(HistoryView, OneOfAThousandIsEnoughOfEachWhereAllAreShown) {
    HistoryRig rig;
    for (int i = 0; i < 1001; ++i) {
        rig.rowOf(1).setFreeSpace(i == 777 ? "3 KB" : "1,000 KB");
        rig.historyView.recordRows();
        rig.machine.tick += 1000;
    }
    rig.open();
    const LineChart::Line& line = rig.line();
    EXPECT_LE(line.points.size(), 1000U);
    EXPECT_GE(line.points.size(), 400U);
    EXPECT_EQ(line.points.front(), (LineChart::Point{-1001, 1000}));
    EXPECT_EQ(line.points.back(), (LineChart::Point{-1, 1000}));
    EXPECT_EQ(std::ranges::count(line.points, LineChart::Point{777 - 1001, 3}), 1);
    rig.window.cboPath.userChoose(firstPath);
    EXPECT_EQ(rig.line().points.size(), 1001U);
}

TEST(HistoryView, OnePathAloneNeedsNoChoice) {
    HistoryRig rig;
    rig.historyView.recordRows(1);
    rig.open();
    EXPECT_EQ(rig.window.cboPath.ListCount(), 1);
    EXPECT_EQ(rig.line().name, "C:\\");
}

TEST(HistoryView, APathThatIsNewCanBeChosenAtOnce) {
    HistoryRig rig;
    rig.historyView.recordRows(1);
    rig.open();
    rig.historyView.recordRows();
    EXPECT_EQ(rig.window.cboPath.ListCount(), 3);
    EXPECT_EQ(rig.window.cboPath.Text(), "C:\\");
    EXPECT_EQ(rig.line().points.size(), 2U);
}

TEST(HistoryView, OfAllPathsTheOneThatIsFullFirstIsTold) {
    HistoryRig rig;
    for (int i = 0; i <= 60; ++i) {
        rig.rowOf(1).setFreeSpace(std::to_string(100'000 - 500 * i) + " KB");
        rig.rowOf(2).setFreeSpace(std::to_string(100'000 - 1000 * i) + " KB");
        rig.historyView.recordRows();
        rig.machine.tick += 60'000;
    }
    rig.open();
    EXPECT_EQ(rig.window.lblEstimate.Caption(), "D:\\ full in about 39 minutes");
}

TEST(HistoryView, ASteadyFallIsEstimated) {
    HistoryRig rig;
    for (int i = 0; i <= 60; ++i) {
        rig.rowOf(1).setFreeSpace(std::to_string(100'000 - 1000 * i) + " KB");
        rig.historyView.recordRows();
        rig.machine.tick += 60'000;
    }
    rig.open();
    rig.window.cboPath.userChoose(firstPath);
    // 40,000 KB were left a minute ago, at 1000 KB a minute.
    EXPECT_EQ(rig.window.lblEstimate.Caption(), "full in about 39 minutes");
}

TEST(HistoryView, AnOpenWindowFollowsTheChecks) {
    HistoryRig rig;
    rig.historyView.recordRows();
    rig.open();
    rig.machine.tick += 10'000;
    rig.historyView.recordRows();
    EXPECT_EQ(rig.line().points, (Points{{-10, 1000}, {0, 1000}}));
    EXPECT_EQ(rig.window.chtHistory.lines().size(), 2U);
}

TEST(HistoryView, RowsThatACheckDidNotReachAreNotTaken) {
    HistoryRig rig;
    rig.historyView.recordRows(1);
    EXPECT_EQ(rig.historyView.history().paths(), std::vector<std::string>{"C:\\"});
}

TEST(HistoryView, IsExportedBesideTheLog) {
    HistoryRig rig;
    rig.machine.now = {2026, 3, 14, 15, 9, 26};
    rig.historyView.recordRows();
    rig.machine.advance(60'000);
    rig.rowOf(2).setPath("\\\\host\\a \"b\"");
    rig.rowOf(1).setFreeSpace("900 KB");
    rig.historyView.recordRows();
    EXPECT_EQ(rig.exported(), "");
    rig.window.cmdExport.userClick();
    EXPECT_EQ(rig.exported(),
              "Time,Path,Free KB\r\n"
              "2026-03-14 15:09:26,\"C:\\\",1000\r\n"
              "2026-03-14 15:10:26,\"C:\\\",900\r\n"
              "2026-03-14 15:09:26,\"D:\\\",1000\r\n"
              "2026-03-14 15:10:26,\"\\\\host\\a \"\"b\"\"\",1000\r\n");
    ASSERT_EQ(rig.host.boxes.size(), 1U);
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::information);
}

TEST(HistoryView, AnExportThatFailsSaysWhy) {
    HistoryRig rig;
    rig.historyView.recordRows();
    rig.machine.diskFull = true;
    rig.window.cmdExport.userClick();
    ASSERT_EQ(rig.host.boxes.size(), 1U);
    EXPECT_EQ(rig.host.boxes[0].text, "The history wasn't saved: Disk full");
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::critical);
}

}  // namespace
}  // namespace velmora::tests
