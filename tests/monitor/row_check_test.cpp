// One watched row: its trigger, and what a shortage or its absence sets going.
#include "monitor/check_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* overHundred = "Cannot check over 100% of space";

TEST(RowTrigger, FreeSpaceEqualToTheTriggerIsNoShortage) {
    CheckRig rig;
    rig.watch("C:\\", 1000);
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(RowTrigger, AKilobyteBelowTheTriggerIsAShortage) {
    CheckRig rig;
    rig.watch("C:\\", 999);
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    EXPECT_EQ(rig.alertCount(), 1);
}

TEST(RowTrigger, AKilobyteAboveTheTriggerIsNoShortage) {
    CheckRig rig;
    rig.watch("C:\\", 1001);
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
}

TEST(RowTrigger, FreeSpaceIsRoundedToWholeKilobytesFirst) {
    CheckRig rig;
    rig.watch("C:\\", 1000);
    rig.machine.drives["C:"].freeBytes = 1000 * KB - 512;  // half a kilobyte goes up
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    rig.machine.drives["C:"].freeBytes = 1000 * KB - 513;
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
}

TEST(RowTrigger, FreeSpaceBeyondThirtyTwoBitsIsNoProblem) {
    CheckRig rig;
    rig.watch("C:\\", 8e12);
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.timesChecked(), 1);
}

TEST(RowTrigger, ATriggerOfNothingIsNeverMet) {
    CheckRig rig;
    rig.form1.txtSpace.setText("0");
    rig.watch("C:\\", 0);
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
}

TEST(RowTrigger, IndividualTriggersReplaceTheCommonOne) {
    CheckRig rig;
    rig.watch("C:\\", 500);
    rig.watch("D:\\", 500);
    rig.watch("E:\\", 500);
    rig.useIndividualTriggers({"501", "500", "1,000"});
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    EXPECT_EQ(rig.at(2).stateIcon(), "ok");
    EXPECT_EQ(rig.at(3).stateIcon(), "alert");
    EXPECT_EQ(rig.alertTexts(), (Texts{" - ALERT: Space Shortage < 1000 KB Drive: E:[500 KB]",
                                       " - ALERT: Space Shortage < 501 KB Drive: C:[500 KB]"}));
}

TEST(RowTrigger, AnEmptyIndividualTriggerEndsTheCheckAtThatRow) {
    CheckRig rig;
    rig.watch("C:\\", 500);
    rig.watch("D:\\", 500);
    rig.watch("E:\\", 5);
    rig.useIndividualTriggers({"100", "", "100"});
    rig.setInterval(0, 0, 5);
    rig.tick();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.at(2).lastChecked(), "");
    EXPECT_EQ(rig.at(3).lastChecked(), "");
    EXPECT_EQ(rig.alert(1), std::string("High | ") + stampDateTime + " | Error: Type mismatch");
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.timesChecked(), 0);
    EXPECT_EQ(rig.panel(1), "Ready. Check in: 5 (sec.)");
    rig.expectRest();
}

TEST(RowTrigger, PercentIsTakenOfTheDrivesTotalSize) {
    CheckRig rig;
    rig.watch("C:\\", 1000, 10000);
    rig.usePercent("10");
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    rig.machine.drives["C:"].freeBytes = 999 * KB;
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    EXPECT_EQ(rig.alertTexts(), Texts{" - ALERT: Space Shortage < 1000 KB Drive: C:[999 KB]"});
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(RowTrigger, PercentOfTheTotalIsRoundedToWholeKilobytes) {
    CheckRig rig;
    rig.watch("C:\\", 10, 1049);  // one percent is 10.49
    rig.usePercent("1");
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    rig.machine.drives["C:"].totalBytes = 1051 * KB;  // 10.51
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
}

TEST(RowTrigger, AHundredPercentIsStillAllowed) {
    CheckRig rig;
    rig.watch("C:\\", 9999, 10000);
    rig.usePercent("100");
    rig.check();
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
}

TEST(RowTrigger, MoreThanAHundredPercentClosesTheCheckWithAMessage) {
    CheckRig rig;
    rig.watch("C:\\", 5, 10000);
    rig.usePercent("10");
    rig.form1.txtSpace.setText("101");
    rig.check();
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, overHundred);
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::information);
    EXPECT_EQ(rig.host.boxes[0].title, "Velmora");
    EXPECT_EQ(rig.at(1).lastChecked(), "");
    // Closed, but without the figures that follow a pass.
    EXPECT_EQ(rig.ports.calls, (Texts{"animation 0 0", "statistics"}));
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_EQ(rig.alertCount(), 0);
    rig.expectRest();
}

TEST(RowTrigger, TheSecondRowMeetsTheFirstRowsKilobytesAndEndsThePass) {
    CheckRig rig;
    rig.watch("C:\\", 5000, 10000);
    rig.watch("D:\\", 5, 10000);
    rig.watch("E:\\", 5, 10000);
    rig.usePercent("10");
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.at(2).lastChecked(), "");
    EXPECT_EQ(rig.at(3).lastChecked(), "");
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, overHundred);
    EXPECT_EQ(rig.timesChecked(), 1);
}

TEST(RowTrigger, CarriedKilobytesOfUpToAHundredAreTakenAsPercentAgain) {
    CheckRig rig;
    rig.watch("C:\\", 500, 1000);  // 10 % are 100 KB
    rig.watch("D:\\", 499, 500);   // 100 % of 500 KB
    rig.usePercent("10");
    rig.check();
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.alertTexts(), Texts{" - ALERT: Space Shortage < 500 KB Drive: D:[499 KB]"});
}

TEST(RowTrigger, UnwatchedAndMissingRowsDoNotTouchTheCarriedValue) {
    CheckRig rig;
    rig.row("C:\\", false);
    rig.row("X:\\");
    rig.watch("D:\\", 5000, 10000);
    rig.usePercent("10");
    rig.check();
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.at(3).stateIcon(), "ok");
}

TEST(RowTrigger, TheNextCheckReadsThePercentAnew) {
    CheckRig rig;
    rig.watch("C:\\", 5000, 10000);
    rig.usePercent("10");
    rig.check();
    rig.check();
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.timesChecked(), 2);
}

TEST(RowTrigger, IndividualPercentIsReadForEveryRow) {
    CheckRig rig;
    rig.watch("C:\\", 999, 10000);
    rig.watch("D:\\", 5000, 10000);
    rig.usePercent("10");
    rig.useIndividualTriggers({"10", "50"});
    rig.check();
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    EXPECT_EQ(rig.at(2).stateIcon(), "ok");
}

TEST(RowTrigger, APercentageBeyondThirtyTwoBitsOfKilobytesOverflows) {
    CheckRig rig;
    rig.watch("C:\\", 5000, 3e9);
    rig.usePercent("100");
    rig.setInterval(0, 0, 5);
    rig.tick();
    EXPECT_EQ(rig.alertTexts(), Texts{"Error: Overflow"});
    EXPECT_EQ(rig.timesChecked(), 0);
    rig.expectRest();
}

TEST(RowCheck, LastCheckedIsMonthDayAndTime) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.machine.now = {2027, 11, 5, 6, 7, 8};
    rig.check();
    EXPECT_EQ(rig.at(1).lastChecked(), "11/05 06:07:08");
}

TEST(RowCheck, EventsComeBeforeTheFiguresAndBothBeforeTheShortage) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(3, true);
    rig.check();
    EXPECT_EQ(rig.ports.calls,
              (Texts{"checkEvents 1", "prcSetPrevInfoLV C:\\", "animation 1 1", "action 3", "rate",
                     "statistics", "animation 0 0", "statistics"}));
}

TEST(RowCheck, EnoughSpaceStopsTheTraysBlinkingAndShowsTheIcon) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.forms.sysWorkSystray.tmrSystray.setEnabled(true);
    rig.check();
    EXPECT_FALSE(rig.forms.sysWorkSystray.tmrSystray.Enabled());
    EXPECT_EQ(rig.ports.calls, (Texts{"checkEvents 1", "prcSetPrevInfoLV C:\\", "animation 1 0",
                                      "rate", "statistics", "animation 0 0", "statistics"}));
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
    EXPECT_EQ(rig.list.ListItems(1).ListSubItems(4).Tag(), text);
    EXPECT_EQ(rig.forms.globals.lngHighRatedAlerts, 1);
}

TEST(RowCheck, AShortageGoesInFrontOfTheJournalAndOfTheDialogsText) {
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

TEST(RowCheck, TheSameShortageIsToldAgainAfterItsDriveWasAway) {
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
    for (const int action : {11, 2, 0, 7}) rig.form1.lstAct.setSelected(action, true);
    std::vector<int> yieldsAtAction;
    rig.ports.onAction = [&](int, Shortage&) { yieldsAtAction.push_back(rig.host.yields); };
    rig.check();
    EXPECT_EQ(rig.ports.count("action 0"), 1);
    // One yield for the row, then one for every entry up to the action's own.
    EXPECT_EQ(yieldsAtAction, (std::vector<int>{2, 4, 9, 13}));
    EXPECT_EQ(rig.host.yields, 1 + 12);
}

TEST(RowCheck, ActionsOfOneRowEndBeforeTheNextRowIsMeasured) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.watch("D:\\", 5);
    rig.form1.lstAct.setSelected(0, true);
    rig.form1.lstAct.setSelected(1, true);
    rig.check();
    EXPECT_EQ(rig.ports.calls,
              (Texts{"checkEvents 1", "prcSetPrevInfoLV C:\\", "animation 1 1", "action 0",
                     "action 1", "checkEvents 2", "prcSetPrevInfoLV D:\\", "animation 1 1",
                     "action 0", "action 1", "rate", "statistics", "animation 0 0", "statistics"}));
}

TEST(RowCheck, ActionsLearnTheRowItsTriggerItsDriveAndTheTexts) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.watch("D:\\", 7);
    rig.form1.lstAct.setSelected(0, true);
    rig.ports.onAction = [&](int, Shortage& shortage) {
        EXPECT_EQ(shortage.row, 2);
        EXPECT_EQ(shortage.lngMinSpace, 1000);
        EXPECT_EQ(shortage.drive.Path(), "D:");
        EXPECT_EQ(shortage.strAlert, " - ALERT: Space Shortage < 1000 KB Drive: D:[7 KB]");
        EXPECT_EQ(shortage.strStamp, stampDateTime);
        EXPECT_EQ(shortage.strNote, "");
    };
    rig.check();
    EXPECT_EQ(rig.ports.count("action 0"), 1);
}

TEST(RowCheck, TheRunningTextLivesThroughAllActionsOfTheRow) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(0, true);
    rig.form1.lstAct.setSelected(5, true);
    std::string atSecond;
    rig.ports.onAction = [&](int action, Shortage& shortage) {
        if (action == 0) shortage.strAlert = "left by the first";
        if (action == 5) atSecond = shortage.strAlert;
    };
    rig.check();
    EXPECT_EQ(atSecond, "left by the first");
}

TEST(RowCheck, TheDialogOpensForTextThatAnActionLeft) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(1, true);
    rig.ports.onAction = [](int, Shortage& shortage) { shortage.strAlert += "moved"; };
    rig.check();
    EXPECT_EQ(rig.ports.count("alert dialog"), 1);
}

TEST(RowCheck, TheDialogTestComesAfterEveryTickedEntry) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    for (const int action : {0, 1, 2}) rig.form1.lstAct.setSelected(action, true);
    rig.ports.onAction = [](int action, Shortage& shortage) {
        if (action == 1) shortage.strAlert += "moved";
    };
    rig.check();
    EXPECT_EQ(rig.ports.count("alert dialog"), 2);
}

TEST(RowCheck, TheDialogStaysClosedForTheShortageItselfAndForAnEmptiedText) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(0, true);
    rig.check();
    rig.form1.lstAct.setSelected(1, true);
    rig.ports.onAction = [](int, Shortage& shortage) { shortage.strAlert.clear(); };
    rig.check();
    EXPECT_EQ(rig.ports.count("alert dialog"), 0);
}

TEST(RowCheck, TheDialogsTextIsComparedWithRegardToCase) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.forms.dlgAlert.Label1.setText("MOVED");
    rig.form1.lstAct.setSelected(0, true);
    rig.ports.onAction = [](int, Shortage& shortage) { shortage.strAlert = "moved"; };
    rig.check();
    EXPECT_EQ(rig.ports.count("alert dialog"), 1);
}

TEST(RowCheck, TheRowsIconTurnsToAlertAfterTheActions) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.lstAct.setSelected(11, true);
    std::string during = "?";
    rig.ports.onAction = [&](int, Shortage&) { during = rig.at(1).stateIcon(); };
    rig.check();
    EXPECT_EQ(during, "");
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
}

TEST(RowCheck, ADriveIsReadOncePerCheck) {
    CheckRig rig;
    rig.watch("C:\\", 999);
    // What the drive tells changes between the test and the text: one reading answers both.
    rig.machine.onCall = [&](const std::string& call) {
        if (call == "FreeSpace C:") rig.machine.drives["C:"].freeBytes = 1 * KB;
    };
    rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts{" - ALERT: Space Shortage < 1000 KB Drive: C:[999 KB]"});
}

}  // namespace
}  // namespace velmora::tests
