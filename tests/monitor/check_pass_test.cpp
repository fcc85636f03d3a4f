// How a check goes through its rows.
#include <algorithm>

#include "monitor/recorded_check.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

Texts callsOf(const CheckRig& rig, const std::string& operation) {
    Texts found;
    for (const auto& call : rig.machine.log.calls()) {
        if (call.compare(0, operation.size() + 1, operation + " ") == 0) found.push_back(call);
    }
    return found;
}

TEST(CheckPass, RowsAreMeasuredInListOrder) {
    CheckRig rig;
    rig.watch("E:\\", 5000);
    rig.watch("C:\\", 5000);
    rig.watch("D:\\", 5000);
    rig.check();
    EXPECT_EQ(callsOf(rig, "GetDrive"), (Texts{"GetDrive E:", "GetDrive C:", "GetDrive D:"}));
}

TEST(CheckPass, AYieldComesBeforeEveryRow) {
    CheckRig rig;
    for (const char* path : {"C:\\", "D:\\", "E:\\"}) rig.watch(path, 5000);
    Texts order;
    rig.host.onYield = [&](int) { order.push_back("yield"); };
    rig.machine.onCall = [&](const std::string& call) {
        if (call.compare(0, 9, "GetDrive ") == 0) order.push_back(call);
    };
    rig.check();
    // The figures after the pass yield too.
    order.resize(6);
    EXPECT_EQ(order,
              (Texts{"yield", "GetDrive C:", "yield", "GetDrive D:", "yield", "GetDrive E:"}));
}

TEST(CheckPass, TheSecondPanelNamesEveryRow) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.row("D:\\", false);
    rig.check();
    EXPECT_EQ(rig.panel2, (Texts{"Checking: C:\\", "Checking: D:\\", "Checked: 15:09:26 03/14"}));
}

TEST(CheckPass, AReadyRowGoesThroughThePanelsInOrder) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.check();
    EXPECT_EQ(
        rig.panel1,
        (Texts{"Checking...", "Checking: C:\\", "Events Listing", "Events Listing Check: 0",
               "Events Listing Check: 1", "Events Listing Check: 2", "Events Listing Check: 3",
               "Events Listing Check: 4", "Events Listing Check Done. 1",
               "Events Listing Check Done. 2", "Refresh Info.:", "Ready. Check in 0 (sec.)"}));
}

TEST(CheckPass, AShortRowGoesThroughThePanelsInOrder) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.form1.lstAct.setSelected(act::pause, true);
    rig.check();
    EXPECT_EQ(rig.panel1,
              (Texts{"Checking...", "Checking: C:\\", "Events Listing", "Events Listing Check: 0",
                     "Events Listing Check: 1", "Events Listing Check: 2",
                     "Events Listing Check: 3", "Events Listing Check: 4",
                     "Events Listing Check Done. 1", "Events Listing Check Done. 2",
                     "Refresh Info.:", "Animation:", "Checking Events for: Alert on Space Shortage",
                     "Checking Events for: Pause Velmora on Alert ", "Ready. Check in 0 (sec.)"}));
}

TEST(CheckPass, AnUnwatchedRowIsNotMeasured) {
    CheckRig rig;
    rig.watch("C:\\", 5).setChecked(false);
    rig.at(1).setStateIcon("alert");
    rig.check();
    EXPECT_EQ(rig.machine.log.count(), 0);
    EXPECT_EQ(rig.at(1).stateIcon(), "");
    EXPECT_EQ(rig.at(1).lastChecked(), "");
    EXPECT_EQ(rig.panel1, (Texts{"Checking...", "No Alert:", "Ready. Check in 0 (sec.)"}));
    EXPECT_EQ(rig.calls, Texts{"prcRefreshRowIcon C:\\"});
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(CheckPass, ARowIsMeasuredByTheDriveOfItsTrimmedPath) {
    CheckRig rig;
    rig.drive("D:", 5, 1000);
    rig.row("  d:\\data\\films ");
    rig.check();
    EXPECT_EQ(rig.machine.log.calls(),
              (Texts{"GetDriveName d:\\data\\films", "GetDrive d:", "IsReady D:", "FreeSpace D:"}));
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
}

TEST(CheckPass, AFolderOnAShareIsMeasuredByTheShare) {
    CheckRig rig;
    rig.drive("\\\\server\\data", 999, 1000);
    rig.row("\\\\server\\data\\films");
    rig.check();
    EXPECT_EQ(rig.alertTexts(),
              Texts{" - ALERT: Space Shortage < 1000 KB Drive: \\\\server\\data[999 KB]"});
}

TEST(CheckPass, ADriveThatIsNotReadyLosesItsIconAndIsPassedToTheEvents) {
    RecordedCheck rig;
    rig.watch("C:\\", 5);
    rig.machine.drives["C:"].ready = false;
    rig.at(1).setStateIcon("ok");
    rig.check();
    EXPECT_EQ(rig.panel1, (Texts{"Checking...", "Checking: C:\\", "Not Ready: C:\\",
                                 "Ready. Check in 0 (sec.)"}));
    EXPECT_EQ(rig.at(1).stateIcon(), "");
    EXPECT_EQ(rig.at(1).lastChecked(), "");
    EXPECT_EQ(rig.calls, joined({{"not ready"}, endOfPass, {"spin.avi"}, statistics}));
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(CheckPass, ALetterWithoutADriveIsADriveThatIsNotReady) {
    CheckRig rig;
    rig.row("X:\\");
    rig.watch("C:\\", 5000);
    rig.check();
    EXPECT_EQ(rig.panel1[2], "Not Ready: X:\\");
    EXPECT_EQ(rig.at(2).stateIcon(), "ok");
    EXPECT_EQ(rig.timesChecked(), 1);
}

TEST(CheckPass, AnEmptyListIsWalkedAndClosed) {
    RecordedCheck rig;
    rig.check();
    EXPECT_EQ(rig.calls, joined({endOfPass, {"spin.avi"}, statistics}));
    EXPECT_EQ(rig.timesChecked(), 1);
    rig.expectRest();
}

TEST(CheckPass, TheListIsDisabledBetweenTheFirstRowAndTheLast) {
    CheckRig rig;
    for (const char* path : {"C:\\", "D:\\", "E:\\"}) rig.watch(path, 5000);
    std::vector<bool> atRows;
    rig.machine.onCall = [&](const std::string& call) {
        if (call.compare(0, 9, "GetDrive ") == 0) atRows.push_back(rig.list.Enabled());
    };
    rig.check();
    EXPECT_EQ(atRows, (std::vector<bool>{false, false, true}));
    rig.expectRest();
}

TEST(CheckPass, AClearedFlagEndsThePassBeforeTheRowAndTheCheckCloses) {
    RecordedCheck rig;
    for (const char* path : {"C:\\", "D:\\", "E:\\"}) rig.watch(path, 5000);
    rig.host.onYield = [&](int n) {
        if (n == 2) rig.forms.globals.bChecking = false;
    };
    rig.check();
    EXPECT_EQ(callsOf(rig, "GetDrive"), Texts{"GetDrive C:"});
    EXPECT_EQ(rig.panel2, (Texts{"Checking: C:\\", "Checking: D:\\",
                                 "Ready (e1): ", "Checked: 15:09:26 03/14"}));
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_EQ(rig.calls, joined({{"events", "alert.avi"}, endOfPass, {"spin.avi"}, statistics}));
    rig.expectRest();
}

TEST(CheckPass, AFlagClearedDuringAnActionStopsBeforeTheNextRow) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.watch("D:\\", 5);
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.onAction = [&](int, Shortage&) { rig.forms.globals.bChecking = false; };
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    EXPECT_EQ(rig.at(2).stateIcon(), "");
    EXPECT_EQ(rig.timesChecked(), 1);
}

struct Progress {
    bool dialog, frame;
    std::string words;
    bool operator==(const Progress&) const = default;
};

std::vector<Progress> progressAtRows(CheckRig& rig) {
    std::vector<Progress> seen;
    rig.machine.onCall = [&](const std::string& call) {
        if (call.compare(0, 9, "GetDrive ") != 0) return;
        const Icon0& icon0 = rig.forms.icon0;
        seen.push_back({icon0.Visible(), icon0.fraProgress.Visible(), icon0.lblProgress.Caption()});
    };
    rig.check();
    return seen;
}

TEST(CheckPass, TheProgressDialogOpensAtTheFirstRowAndLosesItsFrameAtTheSecond) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.watch("D:\\", 5000);
    rig.form1.lstAct.setSelected(act::progressDialog, true);
    EXPECT_EQ(progressAtRows(rig),
              (std::vector<Progress>{{true, true, "Program is checking: C:\\"},
                                     {true, false, "Program is checking: C:\\"}}));
    rig.expectRest();
}

TEST(CheckPass, AClosedProgressDialogOpensAgainAtTheNextRow) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.watch("D:\\", 5000);
    rig.form1.lstAct.setSelected(act::progressDialog, true);
    rig.host.onYield = [&](int) { rig.forms.icon0.Hide(); };
    EXPECT_EQ(progressAtRows(rig).back(), (Progress{true, true, "Program is checking: D:\\"}));
}

TEST(CheckPass, WithoutItsTickTheProgressDialogStaysClosed) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.forms.icon0.fraProgress.setVisible(true);
    EXPECT_EQ(progressAtRows(rig), (std::vector<Progress>{{false, false, ""}}));
}

TEST(CheckPass, ADriveThatHangsCostsOneDeadlineAndTheOthersAreMeasured) {
    CheckRig rig;
    for (const char* path : {"C:\\", "D:\\", "E:\\", "F:\\", "G:\\", "H:\\", "I:\\", "J:\\"}) {
        rig.watch(path, 5000);
    }
    rig.machine.drives["E:"].hangs = true;
    const auto start = rig.machine.tick;
    rig.check();
    EXPECT_EQ(rig.machine.tick - start, driveDeadline.count());
    for (int i = 1; i <= 8; ++i) EXPECT_EQ(rig.at(i).stateIcon(), i == 3 ? "" : "ok") << i;
    EXPECT_EQ(std::count(rig.panel1.begin(), rig.panel1.end(), "Not Ready: E:\\"), 1);
    EXPECT_EQ(rig.timesChecked(), 1);

    const auto later = rig.machine.tick;
    for (int i = 0; i < 5; ++i) rig.check();
    EXPECT_EQ(rig.machine.tick, later);
    EXPECT_EQ(rig.timesChecked(), 6);

    rig.machine.drives["E:"].hangs = false;
    rig.check();
    EXPECT_EQ(rig.at(3).stateIcon(), "ok");
}

TEST(CheckPass, TenThousandRowsAreCheckedInOnePass) {
    CheckRig rig;
    rig.drive("C:", 999, 1000);
    rig.drive("D:", 1000, 2000);
    for (int i = 1; i <= 10000; ++i) rig.row(i % 2 == 0 ? "C:\\" : "D:\\");
    rig.check();
    EXPECT_EQ(rig.timesChecked(), 1);
    for (int i = 1; i <= 10000; ++i) {
        ASSERT_EQ(rig.at(i).stateIcon(), i % 2 == 0 ? "alert" : "ok") << i;
        ASSERT_EQ(rig.at(i).lastChecked(), "03/14 15:09:26") << i;
    }
    EXPECT_EQ(rig.alertCount(), 5000);
    EXPECT_EQ(rig.forms.globals.lngAlertsRaised, 5000);
    rig.expectRest();
}

}  // namespace
}  // namespace velmora::tests
