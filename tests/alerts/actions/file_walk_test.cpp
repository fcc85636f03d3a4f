// The walk over the listed files of one root: which file it takes, and where it ends.
#include "alerts/actions/action_rig.h"
#include "rows/watch_row.h"

namespace velmora::tests {
namespace {

using Calls = std::vector<std::string>;

struct FileWalkTest : testing::Test, ActionRig {
    std::int16_t iMaxFiles = 100;
    std::string strDrv = "C:\\";
    std::string strPath = "D:\\";
    std::string strFile;

    FileWalkTest() { watch("D:\\"); }
    void walk(std::int16_t iAct) {
        fileActions.prcFileAct(iAct, list.ListItems(2), iMaxFiles, strDrv, strPath, strFile);
    }
    int errorOfWalk(std::int16_t iAct) {
        try {
            walk(iAct);
            return 0;
        } catch (const RuntimeError& failure) {
            return failure.number();
        }
    }
};

TEST_F(FileWalkTest, ANegativeActionDoesNothingAtAll) {
    strPath = "";
    listFile("C:\\1");
    walk(-1);
    EXPECT_EQ(strPath, "");
    EXPECT_EQ(host.yields, 0);
    EXPECT_EQ(machine.log.count(), 0);
}

TEST_F(FileWalkTest, AnEmptyPathIsFilledWithTheRootOfTheSpecifiedOne) {
    strPath = "";
    walk(act::move);
    EXPECT_EQ(strPath, "D:\\");
}

TEST_F(FileWalkTest, AGivenNameEndsTheCallAfterThePathWasFilled) {
    strPath = "";
    strFile = "x";
    listFile("C:\\1");
    walk(act::move);
    EXPECT_EQ(strPath, "D:\\");
    EXPECT_EQ(strFile, "x");
    EXPECT_EQ(host.yields, 0);
    EXPECT_EQ(listed(), "C:\\1");
}

// Only a row that a handler adds lets the walk go on to the next.
TEST_F(FileWalkTest, ARowOfAnotherRootIsPassedOver) {
    listFile("C:\\1");
    listFile("D:\\2");
    host.onYield = [this](int yields) {
        if (yields == 1) listFile("D:\\3");
    };
    walk(act::remove);
    EXPECT_EQ(listed(), "D:\\2 D:\\3");
    EXPECT_FALSE(exists("C:\\1"));
}

TEST_F(FileWalkTest, AnEmptyListIsNoError) {
    walk(act::move);
    EXPECT_EQ(host.yields, 0);
    EXPECT_EQ(strFile, "");
}

TEST_F(FileWalkTest, AtMostTheLastRowIsHandledWithAnyTickAndFreeSpace) {
    for (const int sequential : {0, 1}) {
        for (const double freeKB : {0.0, 1e6}) {
            ActionRig rig;
            rig.watch("D:\\");
            rig.form1.chkSeq.setValue(sequential);
            rig.machine.drives["C:"].freeBytes = freeKB * KB;
            for (const char* path : {"C:\\1", "C:\\2", "C:\\3"}) rig.listFile(path);
            std::int16_t iAct = act::remove, most = 100;
            std::string root = "C:\\", path = "D:\\", file;
            rig.fileActions.prcFileAct(iAct, rig.list.ListItems(2), most, root, path, file);
            EXPECT_EQ(rig.listed(), "C:\\1 C:\\2");
            EXPECT_FALSE(rig.exists("C:\\3"));
            EXPECT_EQ(file, "C:\\3");
            EXPECT_EQ(rig.host.yields, 1);
        }
    }
}

TEST_F(FileWalkTest, ALastRowOfAnotherDriveEndsTheCallWithNothingDone) {
    listFile("C:\\1");
    listFile("D:\\2");
    for (const int sequential : {0, 1}) {
        form1.chkSeq.setValue(sequential);
        walk(act::remove);
        EXPECT_EQ(listed(), "C:\\1 D:\\2");
        EXPECT_EQ(machine.log.count(), 0);
        EXPECT_EQ(strFile, "");
    }
}

TEST_F(FileWalkTest, RootsAreComparedWithoutRegardToCase) {
    strDrv = "c:\\";
    listFile("C:\\1");
    walk(act::remove);
    EXPECT_EQ(listed(), "");
}

TEST_F(FileWalkTest, AMissingFileKeepsItsRowAndIsNotReported) {
    listFile("C:\\1");
    listMissing("C:\\gone");
    walk(act::move);
    EXPECT_EQ(listed(), "C:\\1 C:\\gone");
    EXPECT_EQ(alertCount(), 0);
    EXPECT_EQ(strFile, "");
}

TEST_F(FileWalkTest, MovingTakesThePathGiven) {
    strPath = "E:\\";
    form1.chkSeq.setValue(1);
    listFile("C:\\1");
    walk(act::move);
    EXPECT_TRUE(exists("E:\\1"));
    EXPECT_EQ(alert(1), medium("Auto Moved File: C:\\1 to E:\\ Size: 3\r\n.\r\n"));
}

TEST_F(FileWalkTest, DeletingAndRecyclingTakeNoPath) {
    form1.chkSeq.setValue(1);
    listFile("C:\\1");
    walk(act::remove);
    EXPECT_EQ(alert(1), medium("Auto Deleted File: C:\\1 to  Size: 3\r\n.\r\n"));
    strFile = "";
    listFile("C:\\2");
    walk(act::recycle);
    EXPECT_EQ(machine.recycled, Calls{"C:\\2"});
    EXPECT_EQ(strPath, "D:\\");
}

TEST_F(FileWalkTest, TheRowIsRemovedWithAnyResult) {
    machine.files["D:\\1"] = "other";
    listFile("C:\\1");
    walk(act::autoMove);
    EXPECT_EQ(listed(), "");
    EXPECT_TRUE(exists("C:\\1"));
    EXPECT_EQ(alert(1), medium("Failed Auto Moved File: C:\\1 to D:\\ Size: 3\r\n.\r\n"));
}

TEST_F(FileWalkTest, AnotherNumberLeavesTheRowButNamesTheFile) {
    listFile("C:\\1");
    walk(act::alert);
    EXPECT_EQ(listed(), "C:\\1");
    EXPECT_EQ(strFile, "C:\\1");
    EXPECT_EQ(machine.log.calls(), Calls{"FileExists C:\\1"});
}

TEST_F(FileWalkTest, SequentialActionDoesNotReadTheSpace) {
    form1.chkSeq.setValue(1);
    listFile("C:\\1");
    walk(act::remove);
    EXPECT_EQ(machine.log.countOf("DriveExists"), 0);
}

TEST_F(FileWalkTest, WithoutItTheSpaceOfTheDriveIsRead) {
    listFile("C:\\1");
    walk(act::remove);
    EXPECT_EQ(machine.log.calls(),
              (Calls{"FileExists C:\\1", "FileExists C:\\1", "FileLen C:\\1", "remove C:\\1",
                     "DriveExists C:\\", "GetDrive C:\\", "FreeSpace C:"}));
}

TEST_F(FileWalkTest, AfterAFileThatWasNotHandledTheSpaceIsNotRead) {
    machine.files["D:\\1"] = "other";
    listFile("C:\\1");
    walk(act::move);
    EXPECT_EQ(machine.log.countOf("GetDrive C:"), 0);
}

TEST_F(FileWalkTest, WithoutADriveTheSpaceIsNotRead) {
    strDrv = "z:\\";
    listFile("Z:\\1");
    walk(act::remove);
    EXPECT_FALSE(exists("Z:\\1"));
    EXPECT_EQ(listed(), "");
    EXPECT_EQ(machine.log.countOf("DriveExists z:\\"), 1);
    EXPECT_EQ(machine.log.countOf("GetDrive"), 0);
}

TEST_F(FileWalkTest, TheRowOfTheSentFileIsRemovedEvenIfTheListWasSortedMeanwhile) {
    for (const char* path : {"C:\\1", "C:\\2", "C:\\3"}) listFile(path);
    machine.onCall = [this](const std::string& call) {
        if (call.starts_with("SHFileOperationA")) files.sortBy(0, 1);
    };
    form1.chkSeq.setValue(1);
    walk(act::recycle);
    EXPECT_EQ(machine.recycled, Calls{"C:\\3"});
    EXPECT_EQ(listed(), "C:\\2 C:\\1");
}

// Rows added during the yield let the walk go on, so that its other ends can be tested.
struct FileWalkOnTest : FileWalkTest {
    FileWalkOnTest() {
        for (const char* path : {"C:\\1", "C:\\2", "C:\\3"}) listFile(path);
        machine.drives["C:"].freeBytes = 99 * KB;
        form1.txtSpace.setText("100");
        host.onYield = [this](int n) {
            if (n == 1) {
                for (int i = 0; i < 9; ++i) listMissing("E:\\x");
            }
        };
    }
    /// How many of the three files are left.
    int left() {
        int count = 0;
        for (const char* path : {"C:\\1", "C:\\2", "C:\\3"}) count += exists(path);
        return count;
    }
};

TEST_F(FileWalkOnTest, TheWalkGoesOnWhileSpaceIsShort) {
    walk(act::remove);
    EXPECT_EQ(left(), 0);
    EXPECT_EQ(host.yields, 3);
    EXPECT_EQ(strFile, "C:\\1");
}

TEST_F(FileWalkOnTest, SequentialActionEndsItAfterOneFile) {
    form1.chkSeq.setValue(1);
    walk(act::remove);
    EXPECT_EQ(left(), 2);
    EXPECT_TRUE(exists("C:\\1") && exists("C:\\2"));
}

TEST_F(FileWalkOnTest, EnoughSpaceEndsIt) {
    machine.drives["C:"].freeBytes = 99.5 * KB;
    walk(act::remove);
    EXPECT_EQ(left(), 2);
}

TEST_F(FileWalkOnTest, TheMaximumOfFilesEndsIt) {
    iMaxFiles = 2;
    walk(act::remove);
    EXPECT_EQ(left(), 1);
}

TEST_F(FileWalkOnTest, AFileThatWasNotHandledEndsIt) {
    machine.files["D:\\3"] = "other";
    walk(act::autoMove);
    EXPECT_EQ(left(), 3);
    EXPECT_EQ(host.yields, 1);
}

TEST_F(FileWalkOnTest, WithTheSecondOptionTheRowsOwnThresholdCounts) {
    WatchRow(list.ListItems(2)).setTrigger("99");
    form1.OpDriv[1].choose();
    form1.txtSpace.setText("100");
    walk(act::remove);
    EXPECT_EQ(left(), 2);
}

TEST_F(FileWalkOnTest, AnEmptyThresholdOfTheRowMeansThatOfTheBox) {
    form1.OpDriv[1].choose();
    form1.txtSpace.setText("99");
    walk(act::remove);
    EXPECT_EQ(left(), 2);
}

TEST_F(FileWalkOnTest, WithTheFirstOptionTheRowsOwnThresholdDoesNotCount) {
    WatchRow(list.ListItems(2)).setTrigger("99");
    walk(act::remove);
    EXPECT_EQ(left(), 0);
}

TEST_F(FileWalkOnTest, WithoutADriveAllFilesAreTaken) {
    machine.drives.erase("C:");
    walk(act::remove);
    EXPECT_EQ(left(), 0);
    EXPECT_EQ(machine.log.countOf("GetDrive"), 0);
}

TEST_F(FileWalkOnTest, AThresholdThatIsNoNumberIsAnErrorAfterTheFile) {
    form1.txtSpace.setText("much");
    EXPECT_EQ(errorOfWalk(act::remove), error::typeMismatch);
    EXPECT_EQ(left(), 2);
    EXPECT_EQ(strFile, "C:\\3");
}

}  // namespace
}  // namespace velmora::tests
