// Deleting the first listed file of the short drive, and listed folders before it.
#include "alerts/actions/action_rig.h"

namespace velmora::tests {
namespace {

using Calls = std::vector<std::string>;

struct DeleteActionTest : testing::Test, ActionRig {
    int remove() { return errorOf(act::remove); }
};

TEST_F(DeleteActionTest, AnEmptyListIsReportedInTheRunningTextOnly) {
    EXPECT_EQ(remove(), 0);
    EXPECT_EQ(strAlert(), "- No Deleted File: no file selected.  Drive: C:");
    EXPECT_EQ(alertCount(), 0);
}

TEST_F(DeleteActionTest, AnEmptyListIsReportedAlsoWhenTheCheckWasStopped) {
    forms.globals.bChecking = false;
    EXPECT_EQ(remove(), 0);
    EXPECT_EQ(strAlert(), "- No Deleted File: no file selected.  Drive: C:");
    EXPECT_NE(panel(2), "Ready (e3): ");
}

TEST_F(DeleteActionTest, TheFirstFileIsDeletedAndReportedInAnAlertAndInTheRunningText) {
    listFile("C:\\a.txt", 3, "7 KB");
    EXPECT_EQ(remove(), 0);
    EXPECT_EQ(machine.log.calls(),
              (Calls{"GetFolder C:\\", "FileExists C:\\a.txt", "remove C:\\a.txt"}));
    EXPECT_FALSE(exists("C:\\a.txt"));
    EXPECT_EQ(listed(), "");
    EXPECT_EQ(alertCount(), 1);
    EXPECT_EQ(alert(1), medium("Auto Deleted Specified File: C:\\a.txt"));
    EXPECT_EQ(strAlert(), " - ALERT\r\n.\r\nAuto Deleted Specified File: C:\\a.txt Size: 7 KB");
}

TEST_F(DeleteActionTest, TheRowOfADeletedFileIsRemovedEvenIfItsAlertCantBeLogged) {
    listFile("C:\\a.txt", 3, "7 KB");
    listFile("C:\\b.txt", 3, "7 KB");
    const std::string log = "C:\\Program Files\\Velmora\\log.dat";
    machine.files[log] = "";
    machine.lockedFiles[log] = error::permissionDenied;
    forms.form1.lblLog.setCaption(log);
    forms.form1.chkAutoSave.setValue(1);
    EXPECT_EQ(remove(), error::permissionDenied);
    EXPECT_FALSE(exists("C:\\a.txt"));
    EXPECT_TRUE(exists("C:\\b.txt"));
    EXPECT_EQ(listed(), "C:\\b.txt");
}

TEST_F(DeleteActionTest, EachPassDeletesOneFileOfAnySizeFirstRowFirst) {
    listFile("C:\\small", 1);
    listFile("C:\\large", 1e6);
    listFile("C:\\middle", 1e3);
    remove();
    EXPECT_EQ(listed(), "C:\\large C:\\middle");
    remove();
    EXPECT_EQ(listed(), "C:\\middle");
    remove();
    EXPECT_EQ(listed(), "");
    EXPECT_EQ(machine.log.countOf("remove"), 3);
    EXPECT_FALSE(exists("C:\\small") || exists("C:\\large") || exists("C:\\middle"));
}

TEST_F(DeleteActionTest, RowsOfAnotherDriveAreSkippedAndStay) {
    listFile("D:\\1");
    listFile("c:\\2");
    listFile("C:\\3");
    remove();
    EXPECT_EQ(listed(), "D:\\1 C:\\3");
    EXPECT_TRUE(exists("D:\\1"));
    EXPECT_FALSE(exists("c:\\2"));
}

TEST_F(DeleteActionTest, ARowOnASubFolderMatchesNoFile) {
    machine.folders.insert("c:\\data");
    shortRowWatches("C:\\data");
    listFile("C:\\data\\1");
    EXPECT_EQ(remove(), 0);
    EXPECT_EQ(listed(), "C:\\data\\1");
    EXPECT_TRUE(exists("C:\\data\\1"));
    EXPECT_EQ(strAlert(), shortageText);
    EXPECT_EQ(alertCount(), 0);
}

TEST_F(DeleteActionTest, ARowWithoutItsFolderIsAnErrorBeforeAnythingIsTouched) {
    shortRowWatches("C:\\gone");
    listFile("C:\\1");
    EXPECT_EQ(remove(), error::pathNotFound);
    EXPECT_TRUE(exists("C:\\1"));
    EXPECT_EQ(listed(), "C:\\1");
}

TEST_F(DeleteActionTest, ACheckThatWasStoppedDeletesNothing) {
    forms.globals.bChecking = false;
    listFile("C:\\1");
    EXPECT_EQ(remove(), 0);
    EXPECT_EQ(panel(2), "Ready (e3): ");
    EXPECT_EQ(listed(), "C:\\1");
    EXPECT_EQ(machine.log.count(), 0);
    EXPECT_EQ(strAlert(), shortageText);
}

TEST_F(DeleteActionTest, TheStopIsCheckedBeforeEveryRow) {
    listMissing("C:\\gone");
    listFile("C:\\2");
    machine.onCall = [this](const std::string& call) {
        if (call == "FolderExists C:\\gone") forms.globals.bChecking = false;
    };
    EXPECT_EQ(remove(), 0);
    EXPECT_EQ(panel(2), "Ready (e3): ");
    EXPECT_TRUE(exists("C:\\2"));
    EXPECT_EQ(listed(), "C:\\gone C:\\2");
}

TEST_F(DeleteActionTest, APathThatIsNeitherFileNorFolderStaysAndTheNextIsTaken) {
    listMissing("C:\\gone");
    listFile("C:\\2");
    EXPECT_EQ(remove(), 0);
    EXPECT_EQ(listed(), "C:\\gone");
    EXPECT_FALSE(exists("C:\\2"));
}

TEST_F(DeleteActionTest, WithoutAnyFileNothingIsReported) {
    listMissing("C:\\gone");
    listFile("D:\\1");
    EXPECT_EQ(remove(), 0);
    EXPECT_EQ(alertCount(), 0);
    EXPECT_EQ(strAlert(), shortageText);
    EXPECT_EQ(listed(), "C:\\gone D:\\1");
}

TEST_F(DeleteActionTest, AFolderWithFilesIsDeletedOnTheWayToTheFile) {
    listFolder("C:\\old", {"a", "b"});
    machine.sizes["C:\\old\\a"] = 2048;
    machine.sizes["C:\\old\\b"] = 512;
    listFile("C:\\1");
    listFile("C:\\2", 3, "7 KB");
    EXPECT_EQ(remove(), 0);
    // The row after the folder took its place and is skipped.
    EXPECT_EQ(listed(), "C:\\1");
    EXPECT_FALSE(exists("C:\\old\\a") || exists("C:\\old\\b") || exists("C:\\2"));
    EXPECT_TRUE(exists("C:\\1"));
    ASSERT_EQ(alertCount(), 2);
    EXPECT_EQ(alert(2),
              medium(" - ALERT\r\n.\r\nAuto Deleted Specified Folder: C:\\old | [2.5 KB]"));
    EXPECT_EQ(alert(1), medium("Auto Deleted Specified File: C:\\2"));
    EXPECT_EQ(strAlert(), "\r\n.\r\nAuto Deleted Specified File: C:\\2 Size: 7 KB");
}

TEST_F(DeleteActionTest, AFolderIsDeletedWithForce) {
    listFolder("C:\\old", {"a"});
    machine.readOnly.insert("c:\\old\\a");
    listFile("C:\\1");
    listFile("C:\\2");
    EXPECT_EQ(remove(), 0);
    EXPECT_EQ(machine.log.countOf("Delete force C:\\old"), 1);
    EXPECT_FALSE(exists("C:\\old\\a"));
}

TEST_F(DeleteActionTest, TheFoldersSizeIsFormattedByItsPicture) {
    listFolder("C:\\old", {"a"});
    machine.sizes["C:\\old\\a"] = 3072;
    listMissing("D:\\1");
    EXPECT_EQ(remove(), error::indexOutOfBounds);
    EXPECT_EQ(alert(1),
              medium(" - ALERT\r\n.\r\nAuto Deleted Specified Folder: C:\\old | [3. KB]"));
}

TEST_F(DeleteActionTest, AnEmptyFolderLeavesTheListAndStaysOnTheDisk) {
    listFolder("C:\\empty", {});
    listMissing("D:\\1");
    EXPECT_EQ(remove(), error::indexOutOfBounds);
    EXPECT_EQ(alert(1),
              medium(" - ALERT\r\n.\r\n- No Folder Found or No Content in Folder: C:\\empty"));
    EXPECT_EQ(strAlert(), "");
    EXPECT_EQ(listed(), "D:\\1");
    EXPECT_EQ(machine.folders.count("c:\\empty"), 1u);
    EXPECT_EQ(machine.log.countOf("Delete"), 0);
}

TEST_F(DeleteActionTest, AFolderWithEmptyFilesOnlyHasNoContent) {
    listFolder("C:\\old", {"a"});
    machine.sizes["C:\\old\\a"] = 0;
    remove();
    EXPECT_TRUE(exists("C:\\old\\a"));
    EXPECT_EQ(listed(), "");
    EXPECT_EQ(machine.log.countOf("Delete"), 0);
}

TEST_F(DeleteActionTest, AFolderWithFilesOnlyFurtherBelowHasNoContent) {
    listFolder("C:\\old", {});
    machine.folders.insert("c:\\old\\deep");
    machine.files["C:\\old\\deep\\a"] = "abc";
    remove();
    EXPECT_TRUE(exists("C:\\old\\deep\\a"));
    EXPECT_EQ(listed(), "");
}

TEST_F(DeleteActionTest, ARemovedFolderBeforeTheLastRowMakesTheWalkPassTheEnd) {
    listFolder("C:\\old", {"a"});
    listFile("C:\\1");
    EXPECT_EQ(remove(), error::indexOutOfBounds);
    EXPECT_FALSE(exists("C:\\old\\a"));
    EXPECT_TRUE(exists("C:\\1"));
    EXPECT_EQ(listed(), "C:\\1");
    EXPECT_EQ(alertCount(), 1);
}

TEST_F(DeleteActionTest, ASingleFolderEndsTheWalkWithoutAnError) {
    listFolder("C:\\old", {"a"});
    EXPECT_EQ(remove(), 0);
    EXPECT_EQ(listed(), "");
    EXPECT_EQ(strAlert(), "");
}

TEST_F(DeleteActionTest, AWholeDriveIsNeverDeleted) {
    listMissing("C:\\");
    machine.files["C:\\precious"] = "abc";
    EXPECT_EQ(remove(), error::permissionDenied);
    EXPECT_TRUE(exists("C:\\precious"));
    EXPECT_EQ(machine.log.countOf("Delete"), 0);
    EXPECT_EQ(listed(), "C:\\");
}

TEST_F(DeleteActionTest, AReadOnlyFileStaysAndKeepsItsRow) {
    listFile("C:\\a");
    machine.readOnly.insert("c:\\a");
    EXPECT_EQ(remove(), error::pathFileAccess);
    EXPECT_TRUE(exists("C:\\a"));
    EXPECT_EQ(listed(), "C:\\a");
    EXPECT_EQ(alertCount(), 0);
}

TEST_F(DeleteActionTest, AFolderThatCantBeRemovedKeepsItsRow) {
    listFolder("C:\\old", {"a"});
    machine.lockedFiles["C:\\old\\a"] = error::permissionDenied;
    EXPECT_EQ(remove(), error::permissionDenied);
    EXPECT_EQ(listed(), "C:\\old");
    EXPECT_EQ(alertCount(), 0);
}

TEST_F(DeleteActionTest, TenThousandRowsOfOtherDrivesNeedNoCallOfTheMachine) {
    for (int i = 0; i < 10'000; ++i) listMissing("D:\\x");
    listFile("C:\\a");
    EXPECT_EQ(remove(), 0);
    EXPECT_EQ(machine.log.calls(), (Calls{"GetFolder C:\\", "FileExists C:\\a", "remove C:\\a"}));
    EXPECT_EQ(files.Count(), 10'000);
}

TEST_F(DeleteActionTest, WithAnotherRowInItsPlaceNothingIsDeleted) {
    watch("D:\\");
    list.Remove(1);
    listFile("D:\\a.txt");
    EXPECT_EQ(errorOf(act::remove), error::indexOutOfBounds);
    EXPECT_EQ(machine.log.count(), 0);
    EXPECT_EQ(listed(), "D:\\a.txt");
    EXPECT_TRUE(exists("D:\\a.txt"));
}

}  // namespace
}  // namespace velmora::tests
