// How a check closes: the status, the saving, and the end of its tick.
#include "base/runtime_error.h"
#include "base/text.h"
#include "monitor/recorded_check.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

TEST(CheckClosing, ThePanelsShowTheFinishedCheck) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.setInterval(0, 0, 5);
    rig.tick();
    EXPECT_EQ(rig.panel(1), "Ready. Check in 5 (sec.)");
    EXPECT_EQ(rig.panel(2), "Checked: 15:09:26 03/14");
    EXPECT_EQ(rig.panel(3), "Times Checked: 1");
    EXPECT_EQ(rig.form1.StatusBar1.Panels(1).Picture, 13);
}

TEST(CheckClosing, FinishedChecksAreCounted) {
    CheckRig rig;
    for (int i = 0; i < 3; ++i) rig.check();
    EXPECT_EQ(rig.timesChecked(), 3);
    EXPECT_EQ(rig.panel(3), "Times Checked: 3");
}

TEST(CheckClosing, APauseButtonThatOffersAStartOffersAPause) {
    CheckRig rig;
    EXPECT_EQ(rig.form1.cmdPause.Caption(), "Start Watch");
    rig.check();
    EXPECT_EQ(rig.form1.cmdPause.Caption(), "Pause Watch");
}

TEST(CheckClosing, AnotherCaptionOfThePauseButtonStays) {
    CheckRig rig;
    rig.form1.cmdPause.setCaption("start watch");
    rig.check();
    EXPECT_EQ(rig.form1.cmdPause.Caption(), "start watch");
}

TEST(CheckClosing, AnIntervalThatLostItsNumberDuringThePassBecomesFive) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.setInterval(0, 0, 5);
    rig.tick();  // the rate keeps the interval of the first check
    const int rowsYield = rig.host.yields + 1;
    rig.host.onYield = [&](int n) {
        if (n == rowsYield) rig.form1.txtTime.setText("soon");
    };
    rig.check();
    EXPECT_EQ(rig.form1.txtTime.Text(), "5");
    EXPECT_EQ(rig.panel(1), "Ready. Check in 5 (sec.)");
}

TEST(CheckClosing, RateAndStatisticsFollowThePassAndStatisticsTheClosing) {
    RecordedCheck rig;
    rig.row("C:\\", false);
    rig.check();
    EXPECT_EQ(rig.calls, joined({{"prcRefreshRowIcon C:\\"}, endOfPass, {"spin.avi"}, statistics}));
}

TEST(CheckClosing, SettingsAreSavedBeforeTheLogAndOnlyWhenAskedFor) {
    RecordedCheck rig;
    rig.form1.txtAlert.prepend("entry");
    rig.form1.chkSaveSet.setValue(1);
    rig.check();
    EXPECT_EQ(rig.calls, joined({endOfPass, {"settings saved"}, {"spin.avi"}, statistics}));
    rig.form1.chkAutoSave.setValue(1);
    rig.clearRecords();
    rig.check();
    EXPECT_EQ(rig.calls,
              joined({endOfPass, {"settings saved", "log saved"}, {"spin.avi"}, statistics}));
    rig.form1.chkSaveSet.setValue(0);
    rig.form1.txtAlert.prepend("another");
    rig.clearRecords();
    rig.check();
    EXPECT_EQ(rig.calls, joined({endOfPass, {"log saved"}, {"spin.avi"}, statistics}));
}

struct FailingSettings : RecordedCheck {
    FailingSettings() {
        machine.files[log()] = "";
        machine.lockedFiles[platform.app.Path + "\\set.dat"] = error::diskFull;
        form1.txtAlert.prepend("entry");
        form1.chkSaveSet.setValue(1);
        form1.chkAutoSave.setValue(1);
        setInterval(0, 0, 5);  // one tick checks, and the retry waits
    }
    std::string log() { return platform.app.Path + "\\log.dat"; }
    bool logHolds(const std::string& text) { return contains(machine.files[log()], text); }
};

TEST(CheckClosing, SettingsThatCantBeSavedEndThePlainCheckBeforeItsLog) {
    FailingSettings rig;
    rig.tick();
    EXPECT_EQ(rig.alertTexts(), Texts{"Error: Disk full"});
    EXPECT_FALSE(rig.logHolds("entry"));
    rig.expectRest();
}

TEST(CheckClosing, AProgramThatKeepsRunningSavesTheLogAllTheSame) {
    FailingSettings rig;
    rig.platform.app.Options.keepRunning = true;
    rig.tick();
    EXPECT_TRUE(rig.logHolds("entry"));
    EXPECT_EQ(rig.alertTexts(), Texts{"Error: Disk full"});
    EXPECT_LT(rig.machine.files[rig.log()].find("entry"),
              rig.machine.files[rig.log()].find("Error: Disk full"))
        << "the failure is told after the log is saved";
    EXPECT_EQ(rig.count("settings saved"), 1);
    EXPECT_EQ(rig.timesChecked(), 1);
    rig.expectRest();
}

TEST(CheckClosing, TheTimerRunsAgainBeforeAnythingIsSaved) {
    CheckRig rig;
    rig.form1.txtAlert.prepend("entry");
    rig.form1.chkAutoSave.setValue(1);
    bool saved = false;
    bool running = false;
    bool checking = false;
    rig.machine.onCall = [&](const std::string& call) {
        if (!call.starts_with("appendLine")) return;
        saved = true;
        running = rig.form1.Timer1.Enabled();
        checking = rig.forms.globals.bChecking;
    };
    rig.check();
    EXPECT_TRUE(saved);
    EXPECT_TRUE(running);
    EXPECT_TRUE(checking);
    rig.expectRest();
}

TEST(CheckClosing, APauseDuringThePassIsUndoneByTheClosing) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(act::pause, true);
    rig.onAction = [&](int, Shortage&) { rig.form1.Timer1.setEnabled(false); };
    rig.check();
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
}

TEST(CheckClosing, LoggingTheTimeAfterAFullPassEndsInTheFaultPath) {
    RecordedCheck rig;
    rig.form1.txtAlert.prepend("entry");
    rig.watch("C:\\", 5000);
    rig.form1.chkLogTimeMon.setValue(1);
    rig.form1.chkSaveSet.setValue(1);
    rig.form1.chkAutoSave.setValue(1);
    rig.check();
    EXPECT_EQ(rig.alert(1),
              std::string("High | ") + stampDateTime + " | Error: Index out of bounds");
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_TRUE(rig.host.boxes.empty());
    // The check counts, but nothing is saved.
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_EQ(rig.panel(2), "Checked: 15:09:26 03/14");
    EXPECT_EQ(rig.count("settings saved"), 0);
    EXPECT_EQ(rig.count("log saved"), 0);
    EXPECT_EQ(rig.count("spin.avi"), 0);
    rig.expectRest();
}

TEST(CheckClosing, LoggingTheTimeOfAnEmptyListEndsInTheFaultPath) {
    CheckRig rig;
    rig.form1.chkLogTimeMon.setValue(1);
    rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts{"Error: Index out of bounds"});
    EXPECT_EQ(rig.timesChecked(), 1);
    rig.expectRest();
}

TEST(CheckClosing, LoggingTheTimeOfACancelledPassRaisesAnAlertForItsRow) {
    RecordedCheck rig;
    rig.watch("C:\\", 5000);
    rig.watch("D:\\", 5000);
    rig.form1.chkLogTimeMon.setValue(1);
    rig.host.onYield = [&](int n) {
        if (n == 2) rig.forms.globals.bChecking = false;
    };
    rig.check();
    EXPECT_EQ(rig.alert(1), "Medium | " + std::string(stampSeconds) + " | Checked: 15:09:26 03/14");
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(ConstWatchRow(rig.list.ListItems(2)).firstAlert(), "Checked: 15:09:26 03/14");
    EXPECT_EQ(rig.forms.globals.lngHighRatedAlerts, 0);
    EXPECT_EQ(rig.count("spin.avi"), 1);
}

TEST(CheckClosing, LoggingTheTimeOfAPassThatPercentEndedRaisesAnAlertForItsRow) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.usePercent("10");
    rig.form1.txtSpace.setText("500");
    rig.form1.chkLogTimeMon.setValue(1);
    rig.check();
    EXPECT_EQ(rig.alert(1), "Medium | " + std::string(stampSeconds) + " | Checked: 15:09:26 03/14");
    EXPECT_EQ(ConstWatchRow(rig.list.ListItems(1)).firstAlert(), "Checked: 15:09:26 03/14");
}

TEST(CheckClosing, ACountOfChecksThatOverflowsIsAnError) {
    CheckRig rig;
    rig.forms.globals.lngTimesChecked = 2147483647;
    rig.setInterval(0, 0, 5);
    rig.tick();
    EXPECT_EQ(rig.alertTexts(), Texts{"Error: Overflow"});
    EXPECT_EQ(rig.timesChecked(), 2147483647);
    rig.expectRest();
}

TEST(CheckClosing, ALogThatCannotBeSavedLeavesTheCheckCounted) {
    CheckRig rig;
    rig.form1.txtAlert.prepend("entry");
    rig.form1.chkAutoSave.setValue(1);
    rig.machine.files[rig.form1.lblLog.Caption()] = "";
    rig.machine.lockedFiles[rig.form1.lblLog.Caption()] = error::permissionDenied;
    rig.setInterval(0, 0, 5);
    rig.tick();
    EXPECT_EQ(rig.alertTexts(), Texts{"Error: Permission denied"});
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_EQ(rig.panel(1), "Ready. Check in: 5 (sec.)");
    rig.expectRest();
}

}  // namespace
}  // namespace velmora::tests
