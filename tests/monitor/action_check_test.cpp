// Whole checks with the real actions: from the shortage by its alert and the action to the rule of
// the alert dialog, and the errors of actions in the fault path.
#include <algorithm>

#include "alerts/action_branch.h"
#include "alerts/action_list_rules.h"
#include "base/text.h"
#include "monitor/check_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

// C: is short by 5 of 1000 KB, D: has room.
struct ActionCheck : CheckRig {
    User32 user32;
    SystemActions system{forms, machine.platform(), user32};
    IdleAlertPorts idle;
    Actions actions{forms,
                    machine.platform(),
                    host,
                    alerts,
                    system,
                    {watchControl, idle.stayOnTop, idle.checkTick, idle.mail, idle.properties,
                     idle.translucency, ports.dialog}};
    ActionListRules rules{forms, host};

    ActionCheck() {
        ports.onAction = [this](int action, Shortage& shortage) { actions.run(action, shortage); };
        watch("C:\\", 5);
        drive("D:", 1'000'000, 1'000'000);
        form1.txtDrive.setText("D:\\store");
        form1.cboFile.AddItem("any");
    }
    void tickAction(int action) { form1.lstAct.setSelected(action, true); }
    ListItem& listMissing(const std::string& path) {
        ListItem& row = form1.LVFile.Add(path);
        row.setTag(path);
        row.setSubItems(1, "7 KB");
        return row;
    }
    ListItem& listFile(const std::string& path) {
        machine.files[path] = "abc";
        return listMissing(path);
    }
    std::string listed() {
        std::string all;
        for (int i = 1; i <= form1.LVFile.Count(); ++i) {
            all += (i > 1 ? " " : "") + form1.LVFile.ListItems(i).Tag();
        }
        return all;
    }
    bool exists(const std::string& path) { return machine.files.count(path) > 0; }
    int dialogs() { return ports.count("alert dialog"); }
    /// What the check does after an error that isn't one of those which end it: it waits on.
    void expectRetried(const std::string& description) {
        EXPECT_EQ(alert(1), "High | " + std::string(stampDateTime) + " | Error: " + description);
        EXPECT_TRUE(host.boxes.empty());
        EXPECT_EQ(timesChecked(), 0);
        EXPECT_TRUE(panel(1).starts_with("Ready. Check in: "));
        expectRest();
    }
    void expectEnded(const std::string& description) {
        EXPECT_EQ(alert(1), "High | " + std::string(stampDateTime) + " | Error: " + description);
        EXPECT_TRUE(host.boxes.empty());
        EXPECT_EQ(timesChecked(), 0);
        expectRest();
    }
    void dueTick() {
        setInterval(0, 0, 5);
        tick();
    }
};

const std::string shortOfC = " - ALERT: Space Shortage < 1000 KB Drive: C:[5 KB]";

std::string inMinutes(const std::string& rating, const std::string& text) {
    return rating + " | " + stampMinutes + " | " + text;
}

TEST(ActionCheck, AnAlertAloneOpensNoDialog) {
    ActionCheck rig;
    rig.tickAction(act::alert);
    rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts{shortOfC});
    EXPECT_EQ(rig.dialogs(), 0);
    EXPECT_EQ(rig.timesChecked(), 1);
}

TEST(ActionCheck, AMoveRaisesTheShortageThenItsOwnAlertAndOpensNoDialog) {
    ActionCheck rig;
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
    ActionCheck rig;
    rig.form1.cboFile.Clear();
    rig.tickAction(act::move);
    rig.listFile("C:\\a");
    rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts{shortOfC});
    EXPECT_EQ(rig.dialogs(), 1);
    EXPECT_EQ(rig.listed(), "C:\\a");
}

TEST(ActionCheck, OnlyFilesOfTheShortDriveAreMovedWhileTheBinTakesTheFirstOfAll) {
    ActionCheck rig;
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
    ActionCheck rig;
    rig.tickAction(act::move);
    rig.listMissing("C:\\gone");
    rig.check();
    EXPECT_EQ(rig.alertCount(), 2);
    rig.check();
    // The same shortage isn't told again, the failure is.
    EXPECT_EQ(rig.alertCount(), 3);
    EXPECT_EQ(rig.alert(1),
              inMinutes("Medium", shortOfC + "Failed Moved File; file does not exist: "
                                             "C:\\goneD:\\\r\n.\r\n"));
    EXPECT_EQ(rig.listed(), "C:\\gone");
}

TEST(ActionCheck, ThreeListedFilesAreDeletedOneACheckTheFirstRowFirst) {
    ActionCheck rig;
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
    // Each deletion has left new text.
    EXPECT_EQ(rig.dialogs(), 3);
}

TEST(ActionCheck, ADeletionFollowedByTheAlertsOfOthersKeepsTheTextForTheDialog) {
    ActionCheck rig;
    rig.tickAction(act::remove);
    rig.tickAction(act::emptyBin);
    rig.listFile("C:\\1");
    rig.check();
    // Once behind each entry, since the text lives through all of them.
    EXPECT_EQ(rig.dialogs(), 2);
}

TEST(ActionCheck, DeletingFromAnEmptyListOpensTheDialog) {
    ActionCheck rig;
    rig.tickAction(act::remove);
    rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts{shortOfC});
    EXPECT_EQ(rig.dialogs(), 1);
}

TEST(ActionCheck, ARowOnASubFolderMatchesNoListedFile) {
    for (const int action : {act::move, act::remove}) {
        ActionCheck rig;
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

TEST(ActionCheck, ARemovedFolderRunsTheDeletionOutOfTheListWhichEndsThePass) {
    ActionCheck rig;
    rig.tickAction(act::remove);
    rig.machine.folders.insert("c:\\old");
    rig.machine.files["C:\\old\\a"] = "abc";
    rig.machine.sizes["C:\\old\\a"] = 1536;
    rig.listMissing("C:\\old");
    rig.listFile("C:\\1");
    rig.dueTick();
    rig.expectEnded("Index out of bounds");
    EXPECT_EQ(rig.alertCount(), 3);
    EXPECT_EQ(rig.alert(2),
              inMinutes("Medium", shortOfC + "\r\n.\r\nAuto Deleted Specified Folder: C:\\old | "
                                             "[1.5 KB]"));
    EXPECT_EQ(rig.checkCycle.lngElapsedMs(), 0);
    EXPECT_EQ(rig.at(1).stateIcon(), "");
    EXPECT_FALSE(rig.exists("C:\\old\\a"));
    EXPECT_EQ(rig.listed(), "C:\\1");
    rig.check();
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_EQ(rig.listed(), "");
}

TEST(ActionCheck, AFileThatCantBeDeletedIsToldAndTheCheckWaitsOn) {
    ActionCheck rig;
    rig.tickAction(act::remove);
    rig.listFile("C:\\1");
    rig.machine.lockedFiles["C:\\1"] = 70;
    rig.dueTick();
    rig.expectRetried("Permission denied");
    EXPECT_EQ(rig.listed(), "C:\\1");
    EXPECT_TRUE(rig.exists("C:\\1"));
    EXPECT_EQ(rig.dialogs(), 0);
}

TEST(ActionCheck, AStoppedCheckDeletesNothingMore) {
    ActionCheck rig;
    rig.tickAction(act::remove);
    rig.listFile("C:\\1");
    rig.host.onYield = [&](int) {
        if (rig.alertCount() == 1) rig.forms.globals.bChecking = false;
    };
    rig.check();
    EXPECT_TRUE(rig.exists("C:\\1"));
    EXPECT_EQ(rig.listed(), "C:\\1");
    EXPECT_NE(std::find(rig.panel2.begin(), rig.panel2.end(), "Ready (e3): "), rig.panel2.end());
}

TEST(ActionCheck, RecyclingFromAnEmptyListEndsThePass) {
    ActionCheck rig;
    rig.tickAction(act::recycle);
    rig.dueTick();
    rig.expectEnded("Index out of bounds");
    EXPECT_TRUE(rig.machine.operations.empty());
}

TEST(ActionCheck, RecyclingTheOnlyFileEndsThePassAfterItWasSent) {
    ActionCheck rig;
    rig.tickAction(act::recycle);
    rig.listFile("C:\\1");
    rig.dueTick();
    rig.expectEnded("Index out of bounds");
    EXPECT_EQ(rig.machine.recycled, Texts{"C:\\1"});
    EXPECT_EQ(rig.listed(), "");
}

TEST(ActionCheck, AutoMoveEndsInATypeMismatchAndTheCheckWaitsOn) {
    ActionCheck rig;
    rig.watch("D:\\", 1'000'000);
    rig.watchList.RefreshDriveExisting();
    rig.form1.lstAct.setSelected(act::autoMove, true);
    ASSERT_TRUE(rig.form1.lstAct.Selected(act::autoMove));
    rig.listFile("C:\\1");
    rig.listFile("D:\\1");
    rig.dueTick();
    rig.expectRetried("Type mismatch");
    EXPECT_EQ(rig.alertTexts(), (Texts{"Error: Type mismatch", shortOfC}));
    EXPECT_EQ(rig.form1.LVFile.Count(), 2);
    EXPECT_TRUE(rig.machine.moved.empty());
    EXPECT_EQ(rig.at(2).lastChecked(), "");
}

TEST(ActionCheck, AutoMoveWithAnIntervalOfNothingEndsInTheErrorLimit) {
    ActionCheck rig;
    rig.watch("D:\\", 1'000'000);
    rig.watchList.RefreshDriveExisting();
    rig.form1.lstAct.setSelected(act::autoMove, true);
    rig.check();
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, "Please check your settings for errors");
    EXPECT_EQ(rig.alertTexts(), (Texts{"Program Run Time Error: ", "Error: Type mismatch",
                                       "Error: Type mismatch", "Error: Type mismatch", shortOfC}));
    rig.expectRest();
}

TEST(ActionCheck, AutoMoveWithoutAnotherRowLetsTheCheckFinish) {
    ActionCheck rig;
    rig.form1.lstAct.setSelected(act::autoMove, true);
    ASSERT_FALSE(rig.form1.lstAct.Selected(act::autoMove));
    EXPECT_EQ(rig.host.boxes.size(), 1u);
    rig.host.boxes.clear();
    // Ticked while there were two rows.
    rig.watch("D:\\", 1'000'000);
    rig.form1.lstAct.setSelected(act::autoMove, true);
    rig.list.Remove(2);
    rig.check();
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_EQ(rig.alertTexts(), Texts{shortOfC});
}

TEST(ActionCheck, ListedProgramsAreToldInTheDialog) {
    ActionCheck rig;
    rig.tickAction(act::run);
    rig.listFile("D:\\a.exe");
    rig.check();
    EXPECT_EQ(rig.alert(1), "High | " + std::string(stampDateTime) + " | " + shortOfC +
                                " - Specified Program Executed: \r\nD:\\a.exe\r\n");
    EXPECT_EQ(rig.dialogs(), 1);
    EXPECT_EQ(rig.listed(), "D:\\a.exe");
}

TEST(ActionCheck, NotesAloneOpenNoDialog) {
    ActionCheck rig;
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
    ActionCheck rig;
    for (const int action : {act::sound, act::cleaner}) rig.tickAction(action);
    for (int i = 0; i < 3; ++i) rig.check();
    EXPECT_EQ(rig.machine.played.size(), 3u);
    EXPECT_EQ(rig.machine.executed.size(), 3u);
    rig.drive("C:", 5000, 1e6);
    rig.check();
    EXPECT_EQ(rig.machine.played.size(), 3u);
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
}

TEST(ActionCheck, PausingLetsTheRowsBehindRunAndTheLastWordLieWithTheClosing) {
    ActionCheck rig;
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
    ActionCheck rig;
    rig.tickAction(act::emptyBin);
    rig.check();
    EXPECT_NE(
        std::find(rig.panel1.begin(), rig.panel1.end(), "Checking Events for: Empty Recycle Bin"),
        rig.panel1.end());
}

TEST(ActionCheck, ARowRemovedBeforeItsActionEndsThePassAndTouchesNoFile) {
    for (const int action : {act::move, act::remove, act::cleaner}) {
        ActionCheck rig;
        rig.tickAction(action);
        rig.listFile("C:\\1");
        rig.host.onYield = [&](int) {
            if (rig.alertCount() == 1) rig.list.Clear();
        };
        rig.dueTick();
        rig.expectEnded("Index out of bounds");
        EXPECT_EQ(rig.listed(), "C:\\1");
        EXPECT_TRUE(rig.exists("C:\\1"));
        EXPECT_TRUE(rig.machine.executed.empty());
    }
}

}  // namespace
}  // namespace velmora::tests
