// Errors and removed rows during a real action: how the check ends, and what is left.
#include "monitor/action_check_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

TEST(ActionCheckFault, ARemovedFolderMakesTheDeletionPassTheEndOfTheListWhichEndsThePass) {
    ActionCheckRig rig;
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

TEST(ActionCheckFault, AFileThatCantBeDeletedIsReportedAndTheCheckWaits) {
    ActionCheckRig rig;
    rig.tickAction(act::remove);
    rig.listFile("C:\\1");
    rig.machine.lockedFiles["C:\\1"] = 70;
    rig.dueTick();
    rig.expectRetried("Permission denied");
    EXPECT_EQ(rig.listed(), "C:\\1");
    EXPECT_TRUE(rig.exists("C:\\1"));
    EXPECT_EQ(rig.dialogs(), 0);
}

TEST(ActionCheckFault, AStoppedCheckDeletesNothingMore) {
    ActionCheckRig rig;
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

TEST(ActionCheckFault, RecyclingFromAnEmptyListEndsThePass) {
    ActionCheckRig rig;
    rig.tickAction(act::recycle);
    rig.dueTick();
    rig.expectEnded("Index out of bounds");
    EXPECT_TRUE(rig.machine.operations.empty());
}

TEST(ActionCheckFault, RecyclingTheOnlyFileEndsThePassAfterItWasSent) {
    ActionCheckRig rig;
    rig.tickAction(act::recycle);
    rig.listFile("C:\\1");
    rig.dueTick();
    rig.expectEnded("Index out of bounds");
    EXPECT_EQ(rig.machine.recycled, Texts{"C:\\1"});
    EXPECT_EQ(rig.listed(), "");
}

TEST(ActionCheckFault, AutoMoveEndsInATypeMismatchAndTheCheckWaits) {
    ActionCheckRig rig;
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

TEST(ActionCheckFault, AutoMoveWithAnIntervalOfZeroEndsInTheErrorLimit) {
    ActionCheckRig rig;
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

TEST(ActionCheckFault, AutoMoveWithoutAnotherRowLetsTheCheckFinish) {
    ActionCheckRig rig;
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

TEST(ActionCheckFault, ARowRemovedBeforeItsActionEndsThePassAndTouchesNoFile) {
    for (const int action : {act::move, act::remove, act::cleaner}) {
        ActionCheckRig rig;
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
