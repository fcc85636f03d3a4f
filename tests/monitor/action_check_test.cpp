// Whole checks with the real actions: the shortage, its alert, the action, and whether the alert
// dialog opens.
#include "monitor/action_check_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

TEST(ActionCheck, AnAlertAloneOpensNoDialog) {
    ActionCheckRig rig;
    rig.tickAction(act::alert);
    rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts{shortOfC});
    EXPECT_EQ(rig.dialogs(), 0);
    EXPECT_EQ(rig.timesChecked(), 1);
}

TEST(ActionCheck, AMoveRaisesTheShortageThenItsOwnAlertAndOpensNoDialog) {
    ActionCheckRig rig;
    rig.tickAction(act::move);
    rig.listFile("C:\\a");
    rig.check();
    const std::string moved = "Auto Moved File: C:\\a to D:\\ Size: 7 KB\r\n.\r\n";
    ASSERT_EQ(rig.alertCount(), 2);
    EXPECT_EQ(rig.alert(2), inMinutes("High", shortOfC));
    EXPECT_EQ(rig.alert(1), inMinutes("Medium", shortOfC + moved));
    EXPECT_EQ(rig.dialogs(), 0);
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    EXPECT_EQ(rig.listed(), "");
    EXPECT_TRUE(rig.exists("C:\\a"));
    rig.expectRest();
}

TEST(ActionCheck, AMoveWithoutSelectedFilesOpensTheDialogAndRaisesNoAlert) {
    ActionCheckRig rig;
    rig.form1.cboFile.Clear();
    rig.tickAction(act::move);
    rig.listFile("C:\\a");
    rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts{shortOfC});
    EXPECT_EQ(rig.dialogs(), 1);
    EXPECT_EQ(rig.listed(), "C:\\a");
}

TEST(ActionCheck, OnlyFilesOfTheShortDriveAreMovedWhileTheBinTakesTheFirstOfAll) {
    ActionCheckRig rig;
    for (const char* path : {"D:\\1", "C:\\2", "D:\\3", "C:\\4"}) rig.listFile(path);
    rig.tickAction(act::move);
    rig.check();
    EXPECT_EQ(rig.listed(), "D:\\1 D:\\3");
    rig.form1.lstAct.setSelected(act::recycle, true);
    rig.check();
    EXPECT_EQ(rig.listed(), "D:\\3");
    EXPECT_EQ(rig.machine.recycled, Texts{"D:\\1"});
    EXPECT_EQ(rig.alert(1),
              "High | " + std::string(stampDateTime) + " | Auto send file to recycle bin: D:\\3");
}

TEST(ActionCheck, AVanishedFileKeepsItsRowAndIsReportedAtEveryCheck) {
    ActionCheckRig rig;
    rig.tickAction(act::move);
    rig.listMissing("C:\\gone");
    rig.check();
    EXPECT_EQ(rig.alertCount(), 2);
    rig.check();
    // The same shortage isn't reported again, the failure is.
    EXPECT_EQ(rig.alertCount(), 3);
    EXPECT_EQ(rig.alert(1),
              inMinutes("Medium", shortOfC + "Failed Moved File; file does not exist: "
                                             "C:\\goneD:\\\r\n.\r\n"));
    EXPECT_EQ(rig.listed(), "C:\\gone");
}

TEST(ActionCheck, EachCheckDeletesOneOfThreeListedFilesFirstRowFirst) {
    ActionCheckRig rig;
    rig.tickAction(act::remove);
    for (const char* path : {"C:\\1", "C:\\2", "C:\\3"}) rig.listFile(path);
    for (const char* left : {"C:\\2 C:\\3", "C:\\3", ""}) {
        rig.check();
        EXPECT_EQ(rig.listed(), left);
    }
    EXPECT_EQ(rig.timesChecked(), 3);
    EXPECT_EQ(rig.alertTexts(),
              (Texts{"Auto Deleted Specified File: C:\\3", "Auto Deleted Specified File: C:\\2",
                     "Auto Deleted Specified File: C:\\1", shortOfC}));
    // Each deletion has added new text.
    EXPECT_EQ(rig.dialogs(), 3);
}

TEST(ActionCheck, TheTextOfADeletionIsStillNewAfterTheNextAction) {
    ActionCheckRig rig;
    rig.tickAction(act::remove);
    rig.tickAction(act::emptyBin);
    rig.listFile("C:\\1");
    rig.check();
    // Once after each entry, since the text is kept until the last one.
    EXPECT_EQ(rig.dialogs(), 2);
}

TEST(ActionCheck, DeletingFromAnEmptyListOpensTheDialog) {
    ActionCheckRig rig;
    rig.tickAction(act::remove);
    rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts{shortOfC});
    EXPECT_EQ(rig.dialogs(), 1);
}

TEST(ActionCheck, ARowOnASubFolderMatchesNoListedFile) {
    for (const int action : {act::move, act::remove}) {
        ActionCheckRig rig;
        rig.machine.folders.insert("c:\\data");
        rig.list.ListItems(1).setText("C:\\data");
        rig.tickAction(action);
        rig.listFile("C:\\data\\a");
        rig.check();
        EXPECT_EQ(rig.listed(), "C:\\data\\a");
        EXPECT_TRUE(rig.exists("C:\\data\\a"));
        EXPECT_EQ(rig.alertTexts(), Texts{shortOfC});
        EXPECT_EQ(rig.dialogs(), 0);
        EXPECT_EQ(rig.timesChecked(), 1);
    }
}

TEST(ActionCheck, ListedProgramsAreReportedInTheDialog) {
    ActionCheckRig rig;
    rig.tickAction(act::run);
    rig.listFile("D:\\a.exe");
    rig.check();
    EXPECT_EQ(rig.alert(1), "High | " + std::string(stampDateTime) + " | " + shortOfC +
                                " - Specified Program Executed: \r\nD:\\a.exe\r\n");
    EXPECT_EQ(rig.dialogs(), 1);
    EXPECT_EQ(rig.listed(), "D:\\a.exe");
}

TEST(ActionCheck, NotesAloneOpenNoDialog) {
    ActionCheckRig rig;
    for (const int action : {act::sound, act::emptyBin, act::mail, act::cleaner}) {
        rig.tickAction(action);
    }
    rig.host.boxes.clear();
    rig.check();
    EXPECT_EQ(rig.alertTexts(), (Texts{"Clean Manager Called.", "Notification Email Sent.",
                                       "Recycle Bin Content Emptied.", shortOfC}));
    EXPECT_EQ(rig.dialogs(), 0);
    EXPECT_EQ(rig.machine.played.size(), 1u);
    EXPECT_EQ(rig.machine.executed.back().parameters, " /d C  /sagerun: 12");
    EXPECT_EQ(rig.timesChecked(), 1);
}

TEST(ActionCheck, EveryTickedActionRunsAgainAtEachCheckWhileTheShortageLasts) {
    ActionCheckRig rig;
    for (const int action : {act::sound, act::cleaner}) rig.tickAction(action);
    for (int i = 0; i < 3; ++i) rig.check();
    EXPECT_EQ(rig.machine.played.size(), 3u);
    EXPECT_EQ(rig.machine.executed.size(), 3u);
    rig.drive("C:", 5000, 1e6);
    rig.check();
    EXPECT_EQ(rig.machine.played.size(), 3u);
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
}

TEST(ActionCheck, APauseLetsTheNextRowsRunAndIsUndoneByTheClosing) {
    ActionCheckRig rig;
    rig.watch("E:\\", 7);
    rig.form1.cmdPause.setCaption("Pause Watch");
    rig.list.ListItems(2).setChecked(true);
    rig.tickAction(act::pause);
    std::vector<bool> enabled;
    rig.form1.StatusBar1.PanelChanged.connect([&](int index) {
        if (index == 2 && rig.panel(2) == "Watch Paused.") {
            enabled.push_back(rig.form1.Timer1.Enabled());
        }
    });
    rig.check();
    EXPECT_EQ(enabled, std::vector<bool>{false});
    // The second short row presses the same button again.
    EXPECT_EQ(rig.form1.Caption(), "Velmora - Watching Activated");
    EXPECT_EQ(rig.alertTexts()[0], "Program paused by user option to pause on alert event.");
    EXPECT_EQ(rig.at(2).lastChecked(), "03/14 15:09:26");
    EXPECT_EQ(rig.form1.cmdPause.Caption(), "Pause Watch");
    rig.expectRest();
}

TEST(ActionCheck, ThePanelNamesTheActionThatRuns) {
    ActionCheckRig rig;
    rig.tickAction(act::emptyBin);
    rig.check();
    EXPECT_NE(
        std::find(rig.panel1.begin(), rig.panel1.end(), "Checking Events for: Empty Recycle Bin"),
        rig.panel1.end());
}

}  // namespace
}  // namespace velmora::tests
