// The wizard's list of drives and paths, and how it goes to the watch list.
#include "rows/watch_row.h"
#include "shell/wizard/wizard_rig.h"

namespace velmora::tests {
namespace {

struct WizardWatchTest : testing::Test, WizardRig {
    ListView& list = wizard.ListView1;

    WizardWatchTest() {
        machine.folders.insert("d:\\data");
        machine.folders.insert("e:\\data");
    }
    /// Chooses a folder in the wizard.
    void add(const std::string& path) {
        host.paths = {path};
        wizard.cmdLVAdd.userClick();
    }
    void remove(const std::vector<int>& rows) {
        list.userSelect(rows);
        wizard.cmdLVRemove.userClick();
    }
    bool isBold(const ListItem& row) {
        return row.Bold() && row.ListSubItems(1).Bold() && row.ListSubItems(2).Bold();
    }
};

const std::string stillChecking =
    "The program is still checking. Performing this action may cause errors.\r\nDo you wish to "
    "continue?";

TEST_F(WizardWatchTest, ShowsTheRowsOfTheWatchListWithItsColumns) {
    EXPECT_EQ(rowsOf(list), (Words{"C:\\", "D:\\", "E:\\"}));
    ASSERT_EQ(list.ColumnCount(), 3);
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(list.ColumnHeaders(i).Text, watched.ColumnHeaders(i).Text);
        EXPECT_EQ(list.ColumnHeaders(i).Width, watched.ColumnHeaders(i).Width);
        EXPECT_EQ(list.ColumnHeaders(i).alignment, watched.ColumnHeaders(i).alignment);
    }
    EXPECT_EQ(list.ListItems(1).SubItems(1), "100,000 KB");
    EXPECT_EQ(list.ListItems(1).SubItems(2), "200,000 KB");
    EXPECT_EQ(list.ListItems(3).SubItems(1), "N/A, drive not ready");
    watched.userTick(2, true);
    reopen();
    EXPECT_EQ(rowsOf(list), (Words{"C:\\", "*D:\\", "E:\\"}));
    EXPECT_TRUE(isBold(list.ListItems(2)));
    EXPECT_FALSE(isBold(list.ListItems(1)));
    EXPECT_EQ(list.ColumnCount(), 3);
}

TEST_F(WizardWatchTest, ATickGoesToTheRowAsAClickDoes) {
    Words ticked;
    watched.ItemCheck.connect([&](ListItem& row) { ticked.push_back(row.Text()); });
    list.userTick(2, true);
    EXPECT_TRUE(isBold(list.ListItems(2)));
    EXPECT_EQ(rowsOf(watched), (Words{"C:\\", "D:\\", "E:\\"}));
    apply();
    EXPECT_EQ(rowsOf(watched), (Words{"C:\\", "*D:\\", "E:\\"}));
    EXPECT_EQ(ticked, Words{"D:\\"});
    EXPECT_TRUE(isBold(watched.ListItems(2)));
    list.userTick(2, false);
    apply();
    EXPECT_EQ(rowsOf(watched), (Words{"C:\\", "D:\\", "E:\\"}));
    EXPECT_FALSE(watched.ListItems(2).Bold());
    EXPECT_EQ(said(), Words{});
}

TEST_F(WizardWatchTest, ATickThatIsThereAlreadyIsNoClick) {
    list.userTick(2, true);
    watched.userTick(2, true);
    int clicks = 0;
    watched.ItemCheck.connect([&](ListItem&) { ++clicks; });
    apply();
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(rowsOf(watched), (Words{"C:\\", "*D:\\", "E:\\"}));
}

TEST_F(WizardWatchTest, AnAddedPathIsMeasuredAndTicked) {
    add("D:\\data");
    EXPECT_EQ(host.dialogs, Words{"Select Folder/Path"});
    EXPECT_EQ(rowsOf(list), (Words{"C:\\", "D:\\", "E:\\", "*D:\\data"}));
    EXPECT_EQ(list.ListItems(4).SubItems(1), "3000 KB");
    EXPECT_EQ(list.ListItems(4).SubItems(2), "400000 KB");
    EXPECT_TRUE(isBold(list.ListItems(4)));
    EXPECT_EQ(watched.Count(), 3);
    EXPECT_TRUE(form1.Timer1.Enabled());
}

TEST_F(WizardWatchTest, AnAddedPathIsAddedToTheWatchListByItsOwnSteps) {
    add("D:\\data");
    add("E:\\data");
    Words timer;
    form1.Timer1.Changed.connect(
        [&] { timer.emplace_back(form1.Timer1.Enabled() ? "on" : "off"); });
    apply();
    EXPECT_EQ(timer, (Words{"off", "on", "off", "on"}));
    EXPECT_EQ(rowsOf(watched), (Words{"C:\\", "D:\\", "E:\\", "*D:\\data", "*E:\\data"}));
    EXPECT_EQ(watched.ListItems(4).SubItems(1), "3000 KB");
    EXPECT_EQ(watched.ListItems(4).SubItems(2), "400000 KB");
    EXPECT_EQ(watched.ListItems(5).SubItems(1), "N/A, drive not ready.");
    EXPECT_TRUE(isBold(watched.ListItems(4)));
    EXPECT_TRUE(isBold(watched.ListItems(5)));
}

TEST_F(WizardWatchTest, ThatAnAddedRowIsUntickedGoesWithIt) {
    add("D:\\data");
    list.userTick(4, false);
    apply();
    EXPECT_EQ(rowsOf(watched), (Words{"C:\\", "D:\\", "E:\\", "D:\\data"}));
}

TEST_F(WizardWatchTest, DismissingTheDialogAddsNothingAndKeepsTheTimer) {
    add("");
    EXPECT_EQ(list.Count(), 3);
    EXPECT_TRUE(form1.Timer1.Enabled());
    apply();
    EXPECT_EQ(watched.Count(), 3);
}

TEST_F(WizardWatchTest, APathThatIsListedIsTickedAndNotListedTwice) {
    add("d:\\");
    EXPECT_EQ(rowsOf(list), (Words{"C:\\", "*D:\\", "E:\\"}));
    EXPECT_TRUE(isBold(list.ListItems(2)));
    add("D:\\data");
    list.userTick(4, false);
    add("D:\\DATA");
    EXPECT_EQ(rowsOf(list), (Words{"C:\\", "*D:\\", "E:\\", "*D:\\data"}));
}

TEST_F(WizardWatchTest, PathsCanBeDropped) {
    list.userDrop({"D:\\data", "E:\\"});
    EXPECT_EQ(rowsOf(list), (Words{"C:\\", "D:\\", "*E:\\", "*D:\\data"}));
    EXPECT_EQ(said(), Words{});
}

TEST_F(WizardWatchTest, OfADroppedFileTheFolderIsOffered) {
    machine.files["D:\\data\\file.txt"] = "";
    list.userDrop({"D:\\data\\file.txt"});
    EXPECT_EQ(said().size(), 1u);
    EXPECT_EQ(list.Count(), 3);
    host.answers = {BoxAnswer::yes};
    list.userDrop({"D:\\data\\file.txt"});
    EXPECT_EQ(rowsOf(list), (Words{"C:\\", "D:\\", "E:\\", "*D:\\data"}));
}

TEST_F(WizardWatchTest, AMissingPathIsReportedAndStaysListed) {
    add("X:\\gone");
    EXPECT_EQ(said(), Words{"The selected item is not found or unavailable. Check configuration."});
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::critical);
    EXPECT_EQ(rowsOf(list), (Words{"C:\\", "D:\\", "E:\\", "*X:\\gone"}));
    EXPECT_TRUE(form1.Timer1.Enabled());
}

// By themselves the steps of adding leave the timer off then, and nobody would be warned any more.
TEST_F(WizardWatchTest, AWatchThatRunsGoesOnWhenAPathIsMissing) {
    add("X:\\gone");
    apply();
    EXPECT_EQ(watched.Count(), 4);
    EXPECT_TRUE(form1.Timer1.Enabled());
    add("X:\\gone too");
    form1.Timer1.setEnabled(false);
    apply();
    EXPECT_EQ(watched.Count(), 5);
    EXPECT_FALSE(form1.Timer1.Enabled());
}

TEST_F(WizardWatchTest, AFailureLeavesARowWithoutFiguresAndNoAlert) {
    machine.log.failCall(1, 76);
    add("D:\\data");
    EXPECT_EQ(rowsOf(list), (Words{"C:\\", "D:\\", "E:\\", "*D:\\data"}));
    EXPECT_EQ(list.ListItems(4).SubItems(1), "");
    EXPECT_EQ(form1.LVAlert.Count(), 0);
}

TEST_F(WizardWatchTest, AFailureOfAnAddedPathIsAnAlertAndTheOthersGoOn) {
    add("D:\\data");
    add("E:\\data");
    machine.log.failCall(1, 76);
    apply();
    EXPECT_EQ(rowsOf(watched), (Words{"C:\\", "D:\\", "E:\\", "*D:\\data", "*E:\\data"}));
    ASSERT_EQ(form1.LVAlert.Count(), 1);
    EXPECT_NE(contentOf(form1.LVAlert).find("Drive/Path Button Error Button Index:0"),
              std::string::npos);
}

TEST_F(WizardWatchTest, RemovedRowsAreRemoved) {
    add("D:\\data");
    apply();
    remove({1, 4});
    EXPECT_EQ(rowsOf(list), (Words{"D:\\", "E:\\"}));
    EXPECT_EQ(watched.Count(), 4);
    apply();
    EXPECT_EQ(rowsOf(watched), (Words{"D:\\", "E:\\"}));
    remove({});
    EXPECT_EQ(list.Count(), 2);
    remove({1, 2});
    apply();
    EXPECT_EQ(watched.Count(), 0);
    EXPECT_EQ(said(), Words{});
}

TEST_F(WizardWatchTest, OfRowsWithOnePathEachKeepsItsOwnTick) {
    for (int i = 0; i < 2; ++i) watched.Add("D:\\");
    watched.userTick(4, true);
    reopen();
    EXPECT_EQ(rowsOf(list), (Words{"C:\\", "D:\\", "E:\\", "*D:\\", "D:\\"}));
    list.userTick(5, true);
    apply();
    EXPECT_EQ(rowsOf(watched), (Words{"C:\\", "D:\\", "E:\\", "*D:\\", "*D:\\"}));
    // One goes: two are left, with the ticks that the wizard shows.
    remove({2});
    apply();
    EXPECT_EQ(rowsOf(list), (Words{"C:\\", "*D:\\", "E:\\", "*D:\\"}));
    EXPECT_EQ(rowsOf(watched), (Words{"C:\\", "*D:\\", "E:\\", "*D:\\"}));
}

TEST_F(WizardWatchTest, AnotherOrderOfTheRowsIsNoChange) {
    const std::string before = contentOf(watched);
    list.userClickPart(1);
    EXPECT_EQ(rowsOf(list), (Words{"E:\\", "D:\\", "C:\\"}));
    apply();
    EXPECT_EQ(contentOf(watched), before);
}

TEST_F(WizardWatchTest, RowsThatCameMeanwhileStayAndThoseThatWentAreNotMissed) {
    list.userTick(1, true);
    remove({3});
    watched.Remove(1);
    watched.Add("E:\\");
    watched.Add("F:\\");
    apply();
    EXPECT_EQ(rowsOf(watched), (Words{"D:\\", "E:\\", "F:\\"}));
}

TEST_F(WizardWatchTest, DuringACheckItAsksBeforeTheWatchListIsChanged) {
    forms.globals.bChecking = true;
    watched.setEnabled(false);
    wizard.txtDrive.setText("D:\\");
    apply();
    EXPECT_EQ(said(), Words{});  // no row is touched
    list.userTick(1, true);
    remove({2});
    add("D:\\data");
    wizard.txtFileType.setText(".tmp");
    apply();
    EXPECT_EQ(said(), Words{stillChecking});
    EXPECT_EQ(rowsOf(watched), (Words{"C:\\", "D:\\", "E:\\"}));
    EXPECT_EQ(form1.txtFileType.Text(), ".tmp");
    // What was refused can be applied again.
    EXPECT_EQ(rowsOf(list), (Words{"*C:\\", "E:\\", "*D:\\data"}));
    host.answers = {BoxAnswer::yes};
    apply();
    EXPECT_EQ(said(), (Words{stillChecking, stillChecking}));
    EXPECT_EQ(rowsOf(watched), (Words{"*C:\\", "E:\\", "*D:\\data"}));
    EXPECT_TRUE(watched.Enabled());
}

TEST_F(WizardWatchTest, WhatChangesWhileItAsksIsLookedAtAfterwards) {
    forms.globals.bChecking = true;
    host.onBox = [this](const Box&) { watched.Remove(1); };
    host.answers = {BoxAnswer::yes};
    list.userTick(3, true);
    apply();
    EXPECT_EQ(rowsOf(watched), (Words{"D:\\", "*E:\\"}));
}

TEST_F(WizardWatchTest, AnotherRowThatComesWhileAPathIsAddedIsNotTicked) {
    add("X:\\gone");
    host.onBox = [this](const Box&) { watched.Add("F:\\"); };
    apply();
    EXPECT_EQ(rowsOf(watched), (Words{"C:\\", "D:\\", "E:\\", "X:\\gone", "F:\\"}));
}

TEST_F(WizardWatchTest, TheListMayBeEmptiedWhileAPathIsAdded) {
    add("X:\\gone");
    host.onBox = [this](const Box&) { watched.Clear(); };
    apply();
    EXPECT_EQ(watched.Count(), 0);
}

}  // namespace
}  // namespace velmora::tests
