// Paths dropped on the watch list.
#include "monitor/dropped_folders.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "monitor/rig.h"

namespace velmora::tests {
namespace {

using DroppedPaths = std::vector<std::string>;

struct DroppedFoldersTest : testing::Test {
    DroppedFoldersTest() {
        rig.load();
        rig.drive("C:", 1234567, 9876543);
        rig.drive("D:", 10, 20);
        for (const char* folder : {"c:\\data", "d:\\data"}) rig.machine.folders.insert(folder);
        rig.clearRecords();
    }
    void drop(const DroppedPaths& paths) { rig.list.userDrop(paths); }
    ConstWatchRow row(int index) { return ConstWatchRow(rig.list.ListItems(index)); }
    DroppedPaths paths() {
        DroppedPaths all;
        for (int i = 1; i <= rig.list.Count(); ++i) all.push_back(row(i).path());
        return all;
    }
    DroppedPaths selectedPaths() {
        DroppedPaths all;
        for (int i = 1; i <= rig.list.Count(); ++i) {
            if (row(i).selected()) all.push_back(row(i).path());
        }
        return all;
    }
    bool timerRuns() { return rig.form1.Timer1.Enabled(); }

    Rig rig;
};

TEST_F(DroppedFoldersTest, AFolderIsAddedWithTheSizesOfItsDriveAndNotTicked) {
    drop({"C:\\data"});
    ASSERT_EQ(paths(), DroppedPaths{"C:\\data"});
    EXPECT_EQ(row(1).freeSpace(), "1234567 KB");
    EXPECT_EQ(row(1).totalSize(), "9876543 KB");
    EXPECT_FALSE(row(1).watched());
    EXPECT_EQ(rig.host.boxes.size(), 0u);
    EXPECT_EQ(rig.host.dialogs.size(), 0u);
}

TEST_F(DroppedFoldersTest, SeveralAreAddedInTheirOrderBelowTheOthers) {
    rig.row("E:\\");
    drop({"D:\\data", "C:\\", "C:\\data"});
    EXPECT_EQ(paths(), (DroppedPaths{"E:\\", "D:\\data", "C:\\", "C:\\data"}));
    EXPECT_EQ(row(2).freeSpace(), "10 KB");
}

TEST_F(DroppedFoldersTest, TheTimerIsOffWhileTheDriveIsAskedAndRunsAfterwards) {
    int asked = 0;
    rig.machine.onCall = [&](const std::string& call) {
        if (!call.starts_with("FreeSpace")) return;
        ++asked;
        EXPECT_FALSE(timerRuns());
    };
    drop({"C:\\data", "D:\\data"});
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(timerRuns());
}

TEST_F(DroppedFoldersTest, WithNothingToAddTheTimerStaysAsItIs) {
    rig.row("C:\\data");
    rig.form1.Timer1.setEnabled(false);
    drop({"C:\\data"});
    EXPECT_FALSE(timerRuns());
    EXPECT_EQ(rig.list.Count(), 1);
}

TEST_F(DroppedFoldersTest, DuringACheckOneQuestionComesFirstAndNoEndsTheDrop) {
    rig.forms.globals.bChecking = true;
    rig.list.setEnabled(false);
    rig.host.answers = {BoxAnswer::no};
    EXPECT_TRUE(rig.list.takesDrops());
    drop({"C:\\data", "D:\\data"});
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text,
              "The program is still checking. Performing this action may cause errors.\r\n"
              "Do you wish to continue?");
    EXPECT_EQ(rig.list.Count(), 0);
    EXPECT_FALSE(rig.list.Enabled());
    EXPECT_TRUE(timerRuns());
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST_F(DroppedFoldersTest, DuringACheckYesAddsThemAndEnablesTheList) {
    rig.forms.globals.bChecking = true;
    rig.list.setEnabled(false);
    rig.host.answers = {BoxAnswer::yes};
    drop({"C:\\data", "D:\\data"});
    EXPECT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(paths(), (DroppedPaths{"C:\\data", "D:\\data"}));
    EXPECT_TRUE(rig.list.Enabled());
}

TEST_F(DroppedFoldersTest, OfAFileTheFolderIsOffered) {
    rig.machine.files["C:\\data\\a.txt"] = "x";
    rig.host.answers = {BoxAnswer::yes};
    drop({"C:\\data\\a.txt"});
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text,
              "Only drives and folders can be watched, not files.\r\n"
              "Add the folder of what was dropped instead?\r\n\r\nC:\\data");
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::question);
    EXPECT_EQ(rig.host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_EQ(paths(), DroppedPaths{"C:\\data"});
    EXPECT_EQ(row(1).freeSpace(), "1234567 KB");
    // The question must not be hidden by a window that stays on top.
    EXPECT_EQ(rig.calls, (DroppedPaths{"drop", "restore"}));
}

TEST_F(DroppedFoldersTest, OfAFileInARootTheDriveIsOffered) {
    rig.machine.files["D:\\a.txt"] = "x";
    rig.host.answers = {BoxAnswer::yes};
    drop({"D:\\a.txt"});
    EXPECT_EQ(paths(), DroppedPaths{"D:\\"});
}

TEST_F(DroppedFoldersTest, ARefusedOfferLeavesOutTheFilesAlone) {
    rig.machine.files["C:\\data\\a.txt"] = "x";
    rig.host.answers = {BoxAnswer::no};
    drop({"C:\\data\\a.txt", "D:\\data"});
    EXPECT_EQ(paths(), DroppedPaths{"D:\\data"});
}

TEST_F(DroppedFoldersTest, FilesAreAskedForOnceAndAFolderIsNamedOnce) {
    for (const char* file : {"C:\\data\\a", "C:\\data\\b", "D:\\data\\c"}) {
        rig.machine.files[file] = "x";
    }
    rig.host.answers = {BoxAnswer::yes};
    drop({"C:\\data\\a", "C:\\data\\b", "D:\\data\\c"});
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text,
              "Only drives and folders can be watched, not files.\r\n"
              "Add the folders of what was dropped instead?\r\n\r\nC:\\data\r\nD:\\data");
    EXPECT_EQ(paths(), (DroppedPaths{"C:\\data", "D:\\data"}));
}

TEST_F(DroppedFoldersTest, AQuestionOfManyFoldersStaysShort) {
    DroppedPaths files;
    for (int i = 10; i < 22; ++i) {
        files.push_back("C:\\data\\" + std::to_string(i) + "\\a");
        rig.machine.files[files.back()] = "x";
    }
    rig.host.answers = {BoxAnswer::no};
    drop(files);
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    const std::string& text = rig.host.boxes[0].text;
    EXPECT_NE(text.find("C:\\data\\19\r\nand 2 more"), std::string::npos) << text;
    EXPECT_EQ(text.find("C:\\data\\20"), std::string::npos) << text;
}

TEST_F(DroppedFoldersTest, APathThatIsGoneIsReportedAndStaysListed) {
    drop({"X:\\gone", "C:\\data"});
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text,
              "The selected item is not found or unavailable. Check configuration.");
    EXPECT_EQ(paths(), (DroppedPaths{"X:\\gone", "C:\\data"}));
    EXPECT_TRUE(timerRuns());
}

TEST_F(DroppedFoldersTest, AnErrorEndsTheAddingOfItsFolderOnly) {
    rig.machine.folders.insert("\\\\host\\share\\data");
    drop({"\\\\host\\share\\data", "D:\\data"});
    EXPECT_EQ(rig.alertTexts(),
              DroppedPaths{"Drive/Path Button Error Button Index:0 | Object doesn't support this "
                           "property or method"});
    EXPECT_EQ(paths(), (DroppedPaths{"\\\\host\\share\\data", "D:\\data"}));
    EXPECT_EQ(row(2).freeSpace(), "10 KB");
    EXPECT_EQ(rig.host.boxes.size(), 0u);
}

TEST_F(DroppedFoldersTest, NoErrorOfACallLeavesADrop) {
    for (int n = 1; n <= 12; ++n) {
        Rig fresh;
        fresh.load();
        fresh.drive("C:", 10, 20);
        fresh.machine.log.failCall(n, error::outOfMemory);
        EXPECT_EQ(errorOf([&] { fresh.list.userDrop({"C:\\", "C:\\data"}); }), 0) << n;
        EXPECT_EQ(fresh.host.boxes.size(), 0u) << n;
    }
}

TEST_F(DroppedFoldersTest, APathThatIsListedOrDroppedTwiceIsAddedOnce) {
    rig.row("C:\\data");
    drop({"D:\\data", "C:\\data", "D:\\data"});
    EXPECT_EQ(paths(), (DroppedPaths{"C:\\data", "D:\\data"}));
}

TEST_F(DroppedFoldersTest, WhatWasDroppedIsSelectedAndNothingElse) {
    for (const char* path : {"E:\\", "C:\\data"}) rig.row(path);
    rig.list.userSelect({1});
    drop({"D:\\data", "C:\\data"});
    EXPECT_EQ(selectedPaths(), (DroppedPaths{"C:\\data", "D:\\data"}));
}

TEST_F(DroppedFoldersTest, ADropOfNothingKeepsTheSelection) {
    rig.row("E:\\");
    rig.list.userSelect({1});
    drop({});
    EXPECT_EQ(selectedPaths(), DroppedPaths{"E:\\"});
}

}  // namespace
}  // namespace velmora::tests
