// One watched row: what happens on a shortage and without one.
#include "monitor/recorded_check.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

TEST(RowCheck, LastCheckedIsMonthDayAndTime) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.machine.now = {2027, 11, 5, 6, 7, 8};
    rig.check();
    EXPECT_EQ(rig.at(1).lastChecked(), "11/05 06:07:08");
}

TEST(RowCheck, LastCheckedIsTheTimeOfEachCheck) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.check();
    EXPECT_EQ(rig.at(1).lastChecked(), "03/14 15:09:26");
    rig.machine.now = {2026, 3, 14, 15, 9, 27};
    rig.check();
    EXPECT_EQ(rig.at(1).lastChecked(), "03/14 15:09:27");
    rig.machine.now = {2026, 3, 15, 15, 9, 27};
    rig.check();
    EXPECT_EQ(rig.at(1).lastChecked(), "03/15 15:09:27");
}

TEST(RowCheck, EachRowHasItsOwnTimeWithinACheck) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.watch("D:\\", 5000);
    rig.watch("E:\\", 5000);
    rig.machine.onCall = [&](const std::string& call) {
        if (call == "FreeSpace D:") rig.machine.now.second = 59;
    };
    rig.check();
    EXPECT_EQ(rig.at(1).lastChecked(), "03/14 15:09:26");
    EXPECT_EQ(rig.at(2).lastChecked(), "03/14 15:09:59");
    EXPECT_EQ(rig.at(3).lastChecked(), "03/14 15:09:59");
}

TEST(RowCheck, TheStampOfARowIsThatOfItsLastUpdate) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.at(1).setFreeSpace("1 KB");
    rig.check();
    EXPECT_EQ(rig.at(1).stamp(), "3/14/2026 3:09:26 PM");
    rig.machine.now = {2026, 3, 14, 15, 10, 26};
    rig.check();
    EXPECT_EQ(rig.at(1).stamp(), "3/14/2026 3:10:26 PM");
}

TEST(RowCheck, EventsComeFirstThenTheFiguresThenTheShortage) {
    RecordedCheck rig;
    rig.watch("C:\\", 5);
    rig.giveFigures(1);
    rig.form1.lstAct.setSelected(act::recycle, true);
    rig.check();
    EXPECT_EQ(rig.calls, joined({{"events", "figures C:\\", "alert.avi", "action 3"},
                                 endOfPass,
                                 {"spin.avi"},
                                 statistics}));
}

TEST(RowCheck, EnoughSpaceStopsTheTraysBlinkingAndShowsTheIcon) {
    RecordedCheck rig;
    rig.watch("C:\\", 5000);
    rig.giveFigures(1);
    rig.forms.sysWorkSystray.tmrSystray.setEnabled(true);
    rig.form1.Animation1.Play();
    bool playsAtEnd = true;
    rig.form1.lblSpaceChangeRate.Changed.connect(
        [&] { playsAtEnd = rig.form1.Animation1.Playing(); });
    rig.check();
    EXPECT_FALSE(rig.forms.sysWorkSystray.tmrSystray.Enabled());
    EXPECT_FALSE(playsAtEnd);
    EXPECT_EQ(
        rig.calls,
        joined({{"events", "figures C:\\", "alert.avi"}, endOfPass, {"spin.avi"}, statistics}));
}

TEST(RowCheck, ARowThatIsShortKeepsTheTrayBlinking) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.watch("D:\\", 5);
    rig.check();
    EXPECT_TRUE(rig.forms.sysWorkSystray.tmrSystray.Enabled());
}

TEST(RowCheck, AShortageRaisesAnAlertForItsRow) {
    CheckRig rig;
    rig.form1.txtSpace.setText("2000000");
    rig.watch("c:\\data", 1234567);
    rig.drive("C:", 1234567, 1e7);
    rig.check();
    const std::string text = " - ALERT: Space Shortage < 2000000 KB Drive: C:[1,234,567 KB]";
    EXPECT_EQ(rig.alert(1), "High | " + std::string(stampMinutes) + " | " + text);
    EXPECT_EQ(ConstWatchRow(rig.list.ListItems(1)).firstAlert(), text);
    EXPECT_EQ(rig.forms.globals.lngHighRatedAlerts, 1);
}

TEST(RowCheck, AShortageIsPrependedToTheJournalAndToTheDialogsText) {
    CheckRig rig;
    rig.form1.txtAlert.setText("journal");
    rig.forms.dlgAlert.Label1.setText("dialog");
    rig.watch("C:\\", 999);
    rig.check();
    const std::string entry =
        "03/14/26 15:09:26 - ALERT: Space Shortage < 1000 KB Drive: C:[999 KB]\r\n . \r\n";
    EXPECT_EQ(rig.form1.txtAlert.Text(), entry + "journal");
    EXPECT_EQ(rig.forms.dlgAlert.Label1.Text(), entry + "dialog");
}

TEST(RowCheck, ARepeatedShortageReachesTheJournalButNotTheAlertList) {
    CheckRig rig;
    rig.watch("C:\\", 999);
    rig.check();
    rig.check();
    EXPECT_EQ(rig.alertCount(), 1);
    const std::string entry =
        "03/14/26 15:09:26 - ALERT: Space Shortage < 1000 KB Drive: C:[999 KB]\r\n . \r\n";
    EXPECT_EQ(rig.form1.txtAlert.Text(), entry + entry);
}

TEST(RowCheck, TheSameShortageIsReportedAgainAfterItsDriveWasUnavailable) {
    CheckRig rig;
    rig.watch("C:\\", 999);
    rig.check();
    rig.machine.drives["C:"].ready = false;
    rig.check();
    rig.machine.drives["C:"].ready = true;
    rig.check();
    EXPECT_EQ(rig.alertCount(), 2);
    rig.check();
    EXPECT_EQ(rig.alertCount(), 2);
}

TEST(RowCheck, TheSameShortageStaysSuppressedAfterTheSpaceRecovered) {
    CheckRig rig;
    rig.watch("C:\\", 999);
    rig.check();
    rig.machine.drives["C:"].freeBytes = 5000 * KB;
    rig.check();
    rig.machine.drives["C:"].freeBytes = 999 * KB;
    rig.check();
    EXPECT_EQ(rig.alertCount(), 1);
    rig.machine.drives["C:"].freeBytes = 998 * KB;
    rig.check();
    EXPECT_EQ(rig.alertCount(), 2);
}

TEST(RowCheck, EveryTickedActionRunsInListOrderWithAYieldBeforeEveryEntry) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    for (const int action : {act::progressDialog, act::remove, act::alert, act::run})
        rig.form1.lstAct.setSelected(action, true);
    std::vector<int> yieldsAtAction;
    rig.onAction = [&](int, Shortage&) { yieldsAtAction.push_back(rig.host.yields); };
    rig.check();
    EXPECT_EQ(rig.count("action 0"), 1);
    // One yield for the row, then one for every entry up to the action's own.
    EXPECT_EQ(yieldsAtAction, (std::vector<int>{2, 4, 9, 13}));
    // The rate goes over the row twice after the pass and once at the closing.
    EXPECT_EQ(rig.host.yields, 1 + 12 + 3);
}

TEST(RowCheck, ActionsOfOneRowEndBeforeTheNextRowIsMeasured) {
    RecordedCheck rig;
    rig.watch("C:\\", 5);
    rig.watch("D:\\", 5);
    for (const int row : {1, 2}) rig.giveFigures(row);
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.form1.lstAct.setSelected(act::move, true);
    rig.check();
    EXPECT_EQ(rig.calls, joined({{"events", "figures C:\\", "alert.avi", "action 0", "action 1"},
                                 {"events", "figures D:\\", "alert.avi", "action 0", "action 1"},
                                 endOfPass,
                                 {"spin.avi"},
                                 statistics}));
}

TEST(RowCheck, ActionsGetTheRowItsTriggerItsDriveAndTheTexts) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.watch("D:\\", 7);
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.onAction = [&](int, Shortage& shortage) {
        EXPECT_EQ(shortage.row, 2);
        EXPECT_EQ(shortage.lngMinSpace, 1000);
        EXPECT_EQ(shortage.drive.Path(), "D:");
        EXPECT_EQ(shortage.strAlert, " - ALERT: Space Shortage < 1000 KB Drive: D:[7 KB]");
        EXPECT_EQ(shortage.strStamp, stampDateTime);
        EXPECT_EQ(shortage.strNote, "");
    };
    rig.check();
    EXPECT_EQ(rig.count("action 0"), 1);
}

TEST(RowCheck, TheRunningTextIsKeptThroughAllActionsOfTheRow) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.form1.lstAct.setSelected(act::sound, true);
    std::string atSecond;
    rig.onAction = [&](int action, Shortage& shortage) {
        if (action == 0) shortage.strAlert = "left by the first";
        if (action == 5) atSecond = shortage.strAlert;
    };
    rig.check();
    EXPECT_EQ(atSecond, "left by the first");
}

TEST(RowCheck, TheDialogOpensForTextThatAnActionLeft) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(act::move, true);
    rig.onAction = [](int, Shortage& shortage) { shortage.strAlert += "moved"; };
    rig.check();
    EXPECT_EQ(rig.count("alert dialog"), 1);
}

TEST(RowCheck, TheDialogTestComesAfterEveryTickedEntry) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    for (const int action : {0, 1, 2}) rig.form1.lstAct.setSelected(action, true);
    rig.onAction = [](int action, Shortage& shortage) {
        if (action == 1) shortage.strAlert += "moved";
    };
    rig.check();
    EXPECT_EQ(rig.count("alert dialog"), 2);
}

TEST(RowCheck, TheDialogStaysClosedForTheShortageItselfAndForAnEmptiedText) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.check();
    rig.form1.lstAct.setSelected(act::move, true);
    rig.onAction = [](int, Shortage& shortage) { shortage.strAlert.clear(); };
    rig.check();
    EXPECT_EQ(rig.count("alert dialog"), 0);
}

TEST(RowCheck, TheDialogsTextIsComparedWithRegardToCase) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.forms.dlgAlert.Label1.setText("MOVED");
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.onAction = [](int, Shortage& shortage) { shortage.strAlert = "moved"; };
    rig.check();
    EXPECT_EQ(rig.count("alert dialog"), 1);
}

TEST(RowCheck, TheRowsIconTurnsToAlertAfterTheActions) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(act::progressDialog, true);
    std::string during = "?";
    rig.onAction = [&](int, Shortage&) { during = rig.at(1).stateIcon(); };
    rig.check();
    EXPECT_EQ(during, "");
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
}

TEST(RowCheck, ADriveIsReadOncePerCheck) {
    CheckRig rig;
    rig.watch("C:\\", 999);
    // What the drive answers changes between the test and the text: one reading answers both.
    rig.machine.onCall = [&](const std::string& call) {
        if (call == "FreeSpace C:") rig.machine.drives["C:"].freeBytes = 1 * KB;
    };
    rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts{" - ALERT: Space Shortage < 1000 KB Drive: C:[999 KB]"});
}

TEST(RowShortage, TheJournalHoldsTheShortageBeforeAnActionRuns) {
    CheckRig rig;
    rig.watch("C:\\", 999);
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.onAction = [&](int, Shortage& shortage) {
        EXPECT_EQ(rig.form1.txtAlert.Text(), shortage.strStamp + shortage.strAlert + "\r\n . \r\n");
    };
    rig.check();
    EXPECT_EQ(rig.count("action 0"), 1);
}

}  // namespace
}  // namespace velmora::tests
