// The history's window, fed by checks.
#include "monitor/history/history_view.h"

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
    std::string exported() { return machine.files["C:\\Program Files\\Velmora\\history.csv"]; }
};

using Points = std::vector<LineChart::Point>;

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
    EXPECT_EQ(rig.window.cboPath.ListCount(), 2);
    EXPECT_EQ(rig.window.chtHistory.Title(), "C:\\");
    EXPECT_EQ(rig.window.chtHistory.points(), (Points{{-90, 1000}, {-30, 900}}));
    EXPECT_EQ(rig.window.chtHistory.level(), 200);
    EXPECT_EQ(rig.window.lblEstimate.Caption(), "");
    rig.window.cboPath.userChoose(1);
    EXPECT_EQ(rig.window.chtHistory.points(), (Points{{-90, 1000}, {-30, 500}}));
    rig.open();
    EXPECT_EQ(rig.window.chtHistory.Title(), "D:\\");
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
    EXPECT_EQ(rig.window.chtHistory.level(), 400);
    rig.form1.chkDrive.setValue(1);
    rig.rowOf(1).setTrigger("25");
    rig.open();
    EXPECT_EQ(rig.window.chtHistory.level(), 1000);
    rig.rowOf(1).setTrigger("none");
    rig.open();
    EXPECT_FALSE(rig.window.chtHistory.level());
    rig.list.Clear();
    rig.open();
    EXPECT_FALSE(rig.window.chtHistory.level());
}

TEST(HistoryView, BeforeTheFirstCheckItSaysSo) {
    HistoryRig rig;
    rig.open();
    EXPECT_EQ(rig.window.lblEstimate.Caption(), "Nothing was checked yet.");
    EXPECT_TRUE(rig.window.chtHistory.points().empty());
}

TEST(HistoryView, ASteadyFallIsEstimated) {
    HistoryRig rig;
    for (int i = 0; i <= 60; ++i) {
        rig.rowOf(1).setFreeSpace(std::to_string(100'000 - 1000 * i) + " KB");
        rig.historyView.recordRows();
        rig.machine.tick += 60'000;
    }
    rig.open();
    // 40,000 KB were left a minute ago, at 1000 KB a minute.
    EXPECT_EQ(rig.window.lblEstimate.Caption(), "full in about 39 minutes");
}

TEST(HistoryView, AnOpenWindowFollowsTheChecks) {
    HistoryRig rig;
    rig.historyView.recordRows();
    rig.open();
    rig.machine.tick += 10'000;
    rig.historyView.recordRows();
    EXPECT_EQ(rig.window.chtHistory.points(), (Points{{-10, 1000}, {0, 1000}}));
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
