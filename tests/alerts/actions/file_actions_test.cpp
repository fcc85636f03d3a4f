// One file moved, deleted, recycled or moved by choice of a row, and its report.
#include "alerts/actions/action_rig.h"
#include "rows/watch_row.h"

namespace velmora::tests {
namespace {

using Calls = std::vector<std::string>;

struct FileActionsTest : testing::Test, ActionRig {
    std::string perform(std::int16_t iAct, std::string file, std::string path = "") {
        return fileActions.prcFileActOption(iAct, file, path);
    }
    int errorOfAct(std::int16_t iAct, const std::string& file, const std::string& path) {
        return errorNumber([&] { perform(iAct, file, path); });
    }
    /// A file of that length.
    void file(const std::string& path, double bytes) {
        machine.files[path] = "abc";
        machine.sizes[path] = bytes;
    }
    template <typename Statement>
    static int errorNumber(Statement statement) {
        try {
            statement();
            return 0;
        } catch (const RuntimeError& failure) {
            return failure.number();
        }
    }
};

TEST_F(FileActionsTest, MovingJoinsTheNameToTheTarget) {
    machine.folders.insert("d:\\store");
    file("C:\\data\\a.txt", 999);
    EXPECT_EQ(perform(act::move, "C:\\data\\a.txt", "D:\\"), "1");
    EXPECT_EQ(machine.log.calls(),
              (Calls{"DriveExists D:\\", "GetDrive D:\\", "FreeSpace D:", "FileLen C:\\data\\a.txt",
                     "MoveFileA C:\\data\\a.txt > D:\\a.txt"}));
    EXPECT_TRUE(exists("D:\\a.txt"));
    EXPECT_FALSE(exists("C:\\data\\a.txt"));
    EXPECT_EQ(alert(1), medium("Auto Moved File: C:\\data\\a.txt to D:\\ Size: 999\r\n.\r\n"));
    EXPECT_EQ(panel(1), "File Action on: C:\\data\\a.txt");
}

TEST_F(FileActionsTest, ATargetWithoutASeparatorGetsABackSlash) {
    file("C:\\a", 1);
    perform(act::move, "C:\\a", "D:");
    file("C:\\b", 1);
    perform(act::move, "C:\\b", "D:/");
    EXPECT_EQ(machine.log.countOf("MoveFileA C:\\a > D:\\a"), 1);
    EXPECT_EQ(machine.log.countOf("MoveFileA C:\\b > D:/b"), 1);
}

TEST_F(FileActionsTest, MovingComparesFreeKBWithTheFilesBytes) {
    // 1000 KB are free.
    file("C:\\fits", 999);
    file("C:\\equal", 1000);
    EXPECT_EQ(perform(act::move, "C:\\fits", "D:\\"), "1");
    EXPECT_EQ(perform(act::move, "C:\\equal", "D:\\"), "0");
    EXPECT_TRUE(exists("C:\\equal"));
    EXPECT_EQ(alertCount(), 1);
    EXPECT_EQ(panel(1), "File Action on: C:\\equal");
}

TEST_F(FileActionsTest, FreeSpaceIsAWholeNumberOfKB) {
    machine.drives["D:"].freeBytes = 9.5 * KB;
    file("C:\\a", 9.9);
    EXPECT_EQ(perform(act::move, "C:\\a", "D:\\"), "1");
}

TEST_F(FileActionsTest, AMoveThatTheSystemRefusesIsReportedAndNotHandled) {
    file("C:\\a", 5);
    machine.files["D:\\a"] = "other";
    EXPECT_EQ(perform(act::move, "C:\\a", "D:\\"), "0");
    EXPECT_TRUE(exists("C:\\a"));
    EXPECT_EQ(machine.files["D:\\a"], "other");
    EXPECT_EQ(alert(1), medium("Failed Auto Moved File: C:\\a to D:\\ Size: 5\r\n.\r\n"));
}

TEST_F(FileActionsTest, AFolderAsTargetHasNoFreeSpace) {
    machine.folders.insert("d:\\store");
    file("C:\\a", 1);
    for (const std::int16_t iAct : {act::move, act::autoMove}) {
        EXPECT_EQ(errorOfAct(iAct, "C:\\a", "D:\\store"), error::unsupportedMember);
    }
    EXPECT_TRUE(exists("C:\\a"));
    EXPECT_EQ(alertCount(), 0);
}

TEST_F(FileActionsTest, ATargetThatDoesNotExistIsAnErrorWhenMoving) {
    file("C:\\a", 1);
    EXPECT_EQ(errorOfAct(act::move, "C:\\a", "D:\\gone"), error::objectRequired);
    EXPECT_TRUE(exists("C:\\a"));
}

TEST_F(FileActionsTest, ATargetThatDoesNotExistIsNotAvailableInAutoMove) {
    file("C:\\a", 1);
    EXPECT_EQ(perform(act::autoMove, "C:\\a", "D:\\gone"), "n/a");
    EXPECT_TRUE(exists("C:\\a"));
    EXPECT_EQ(alertCount(), 0);
    EXPECT_EQ(panel(1), "File Action on: C:\\a");
}

TEST_F(FileActionsTest, DeletingRemovesAndReports) {
    file("C:\\a", 12345);
    EXPECT_EQ(perform(act::remove, "C:\\a"), "1");
    EXPECT_FALSE(exists("C:\\a"));
    EXPECT_EQ(alert(1), medium("Auto Deleted File: C:\\a to  Size: 12345\r\n.\r\n"));
    EXPECT_EQ(panel(1), "File Action on: C:\\a");
}

TEST_F(FileActionsTest, AMissingFileCantBeDeleted) {
    EXPECT_EQ(perform(act::remove, "C:\\gone"), "0");
    EXPECT_EQ(alertCount(), 0);
    EXPECT_EQ(machine.log.calls(), Calls{"FileExists C:\\gone"});
    EXPECT_EQ(panel(1), "File Action on: C:\\gone");
}

TEST_F(FileActionsTest, RecyclingIsAlwaysHandled) {
    file("C:\\a", 1);
    EXPECT_EQ(perform(act::recycle, "C:\\a"), "1");
    EXPECT_EQ(perform(act::recycle, "C:\\gone"), "1");
    EXPECT_EQ(machine.log.calls(),
              (Calls{"SHFileOperationA 3 64 C:\\a", "SHFileOperationA 3 64 C:\\gone"}));
    EXPECT_EQ(alert(2), medium("Auto Send File to Recycle Bin: C:\\a"));
    EXPECT_EQ(panel(1), "File Action on: C:\\gone");
}

TEST_F(FileActionsTest, WhyAFileIsNotInTheBinIsNotedBehindItsReport) {
    file("C:\\a", 1);
    machine.operationResult = 112;
    EXPECT_EQ(perform(act::recycle, "C:\\a"), "1");
    EXPECT_EQ(alert(1), medium("Auto Send File to Recycle Bin: C:\\a"));
    EXPECT_EQ(host.notes, Calls{"Not sent to the recycle bin: C:\\a: the disk is full (112)"});
    EXPECT_EQ(form1.LVAlert.Count(), 1);
}

TEST_F(FileActionsTest, AProgramThatKeepsRunningAlsoAlertsOfAFileThatIsNotInTheBin) {
    machine.platform().app.Options.keepRunning = true;
    file("C:\\a", 1);
    machine.operationResult = 112;
    EXPECT_EQ(perform(act::recycle, "C:\\a"), "1");
    ASSERT_EQ(form1.LVAlert.Count(), 2);
    EXPECT_EQ(alert(2), medium("Auto Send File to Recycle Bin: C:\\a"));
    const std::string behind = alert(1);
    EXPECT_NE(behind.find("High"), std::string::npos) << behind;
    EXPECT_NE(behind.find("Not sent to the recycle bin: C:\\a: the disk is full (112)"),
              std::string::npos)
        << behind;
    machine.operationResult = 0;
    perform(act::recycle, "C:\\a");
    EXPECT_EQ(form1.LVAlert.Count(), 3);
}

TEST_F(FileActionsTest, AutoMoveComparesKBWithKB) {
    // 1000 KB are free.
    file("C:\\fits", 1000 * KB - 1);
    file("C:\\equal", 1000 * KB);
    EXPECT_EQ(perform(act::autoMove, "C:\\fits", "D:\\"), "1");
    EXPECT_EQ(perform(act::autoMove, "C:\\equal", "D:\\"), "0");
    EXPECT_TRUE(exists("D:\\fits"));
    EXPECT_TRUE(exists("C:\\equal"));
    ASSERT_EQ(alertCount(), 1);
    EXPECT_EQ(alert(1), medium("Auto Moved File: C:\\fits to D:\\ Size: 1023999\r\n.\r\n"));
}

TEST_F(FileActionsTest, AutoMoveShowsTheFileWhileItIsMovedAndThenTheOldText) {
    file("C:\\a", 1);
    form1.StatusBar1.setPanelText(2, "Checking: C:\\");
    std::string during;
    machine.onCall = [&](const std::string& call) {
        if (call.starts_with("MoveFileA")) during = panel(2);
    };
    EXPECT_EQ(perform(act::autoMove, "C:\\a", "D:\\"), "1");
    EXPECT_EQ(during, "Moving file: C:\\a");
    EXPECT_EQ(panel(2), "Checking: C:\\");
}

TEST_F(FileActionsTest, AutoMoveKeepsShowingAFileThatWasRefused) {
    file("C:\\a", 1);
    machine.files["D:\\a"] = "other";
    form1.StatusBar1.setPanelText(2, "Checking: C:\\");
    EXPECT_EQ(perform(act::autoMove, "C:\\a", "D:\\"), "0");
    EXPECT_EQ(panel(2), "Moving file: C:\\a");
    EXPECT_EQ(alert(1), medium("Failed Auto Moved File: C:\\a to D:\\ Size: 1\r\n.\r\n"));
    EXPECT_EQ(panel(1), "File Action on: C:\\a");
}

TEST_F(FileActionsTest, AutoMoveWithoutRoomShowsNothing) {
    file("C:\\a", 2000 * KB);
    form1.StatusBar1.setPanelText(2, "Checking: C:\\");
    EXPECT_EQ(perform(act::autoMove, "C:\\a", "D:\\"), "0");
    EXPECT_EQ(panel(2), "Checking: C:\\");
}

TEST_F(FileActionsTest, AlertsOfFilesBelongToNoRow) {
    WatchRow(list.ListItems(1)).setFirstAlert("Auto Send File to Recycle Bin: C:\\a");
    perform(act::recycle, "C:\\a");
    EXPECT_EQ(alertCount(), 1);
}

TEST_F(FileActionsTest, AnyOtherNumberDoesNothingButShowTheFile) {
    file("C:\\a", 1);
    for (const std::int16_t iAct : {act::alert, act::sound, -1}) {
        EXPECT_EQ(perform(iAct, "C:\\a", "D:\\"), "0");
    }
    EXPECT_TRUE(exists("C:\\a"));
    EXPECT_EQ(machine.log.count(), 0);
    EXPECT_EQ(panel(1), "File Action on: C:\\a");
}

}  // namespace
}  // namespace velmora::tests
