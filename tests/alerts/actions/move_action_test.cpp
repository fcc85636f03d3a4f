// Moving the listed files of the short drive to the root of the specified path.
#include "alerts/actions/action_rig.h"
#include "rows/watch_row.h"

namespace velmora::tests {
namespace {

using Calls = std::vector<std::string>;

struct MoveActionTest : testing::Test, ActionRig {
    MoveActionTest() { selectFiles(); }
    void move() { run(act::move); }
};

TEST_F(MoveActionTest, WithAnEmptyBoxNothingIsMovedHoweverManyRowsAreListed) {
    form1.cboFile.Clear();
    listFile("C:\\a.txt");
    move();
    EXPECT_EQ(strAlert(), "- No Moved File: no file selected.  Drive: C:");
    EXPECT_EQ(alertCount(), 0);
    EXPECT_EQ(listed(), "C:\\a.txt");
    EXPECT_EQ(machine.log.count(), 0);
}

TEST_F(MoveActionTest, ABoxWithEntriesAndNoRowsDoesNothing) {
    move();
    EXPECT_EQ(strAlert(), shortageText);
    EXPECT_EQ(alertCount(), 0);
    EXPECT_EQ(machine.log.count(), 0);
}

TEST_F(MoveActionTest, TheTargetIsTheBareRootSoTheRowIsRemovedAndTheFileStays) {
    listFile("C:\\data\\a.txt", 3, "7 KB");
    move();
    EXPECT_EQ(machine.log.calls(), (Calls{"FileExists C:\\data\\a.txt", "GetDrive D:\\",
                                          "FreeSpace D:", "FileLen C:\\data\\a.txt",
                                          "MoveFileA C:\\data\\a.txt > D:\\"}));
    EXPECT_TRUE(exists("C:\\data\\a.txt"));
    EXPECT_EQ(listed(), "");
    EXPECT_EQ(alert(1),
              medium(" - ALERTAuto Moved File: C:\\data\\a.txt to D:\\ Size: 7 KB\r\n.\r\n"));
    EXPECT_EQ(alertCount(), 1);
    EXPECT_EQ(strAlert(), "");
}

TEST_F(MoveActionTest, ASpecifiedPathWithoutADriveMeansTheRootOfC) {
    form1.txtDrive.setText("store");
    listFile("C:\\a.txt");
    move();
    EXPECT_EQ(machine.log.countOf("MoveFileA C:\\a.txt > c:\\"), 1);
}

TEST_F(MoveActionTest, ASpecifiedPathWithoutASeparatorMovesNothing) {
    form1.txtDrive.setText("D:store");
    listFile("C:\\a.txt");
    EXPECT_EQ(errorOf(act::move), error::invalidCall);
    EXPECT_EQ(machine.log.countOf("GetDrive D:s"), 1);
    EXPECT_EQ(machine.log.countOf("MoveFileA"), 0);
    EXPECT_EQ(listed(), "C:\\a.txt");
    EXPECT_TRUE(exists("C:\\a.txt"));
    EXPECT_EQ(alertCount(), 0);
}

TEST_F(MoveActionTest, WithAnotherRowInItsPlaceNothingIsMoved) {
    watch("D:\\");
    list.Remove(1);
    listFile("D:\\a.txt");
    EXPECT_EQ(errorOf(act::move), error::indexOutOfBounds);
    EXPECT_EQ(machine.log.count(), 0);
    EXPECT_EQ(listed(), "D:\\a.txt");
}

TEST_F(MoveActionTest, RowsAreHandledFromTheLastUpAndOnlyTheFirstAlertHasTheShortage) {
    listFile("C:\\1", 3, "1 KB");
    listFile("C:\\2", 3, "2 KB");
    listFile("C:\\3", 3, "3 KB");
    move();
    ASSERT_EQ(alertCount(), 3);
    EXPECT_EQ(alert(3), medium(" - ALERTAuto Moved File: C:\\3 to D:\\ Size: 3 KB\r\n.\r\n"));
    EXPECT_EQ(alert(2), medium("Auto Moved File: C:\\2 to D:\\ Size: 2 KB\r\n.\r\n"));
    EXPECT_EQ(alert(1), medium("Auto Moved File: C:\\1 to D:\\ Size: 1 KB\r\n.\r\n"));
    EXPECT_EQ(listed(), "");
}

TEST_F(MoveActionTest, AFileThatVanishedKeepsItsRowAndIsReportedEachTime) {
    listMissing("C:\\gone");
    for (int pass = 1; pass <= 3; ++pass) {
        shortOf(1);
        move();
        EXPECT_EQ(alertCount(), pass);
        EXPECT_EQ(alert(1), medium(" - ALERTFailed Moved File; file does not exist: "
                                   "C:\\goneD:\\\r\n.\r\n"));
        EXPECT_EQ(listed(), "C:\\gone");
        EXPECT_EQ(strAlert(), "");
    }
}

TEST_F(MoveActionTest, TooLittleRoomAtTheTargetRemovesTheRowButMovesNoFile) {
    machine.drives["D:"].freeBytes = 500;
    listFile("C:\\a.txt", 501);
    move();
    EXPECT_EQ(alert(1),
              medium(" - ALERTNot enough free space: D:\\ to move file: C:\\a.txt\r\n.\r\n"));
    EXPECT_EQ(listed(), "");
    EXPECT_TRUE(exists("C:\\a.txt"));
    EXPECT_EQ(machine.log.countOf("MoveFileA"), 0);
    EXPECT_EQ(strAlert(), "");
}

TEST_F(MoveActionTest, RoomMustBeGreaterThanTheFile) {
    machine.drives["D:"].freeBytes = 500;
    listFile("C:\\equal", 500);
    listFile("C:\\smaller", 499);
    move();
    EXPECT_EQ(machine.log.countOf("MoveFileA C:\\smaller"), 1);
    EXPECT_EQ(machine.log.countOf("MoveFileA"), 1);
}

TEST_F(MoveActionTest, RowsOfAnotherDriveStayListed) {
    listFile("D:\\1");
    listFile("c:\\2");
    listFile("D:\\3");
    listFile("C:\\4");
    move();
    EXPECT_EQ(listed(), "D:\\1 D:\\3");
    EXPECT_EQ(alertCount(), 2);
    EXPECT_EQ(machine.log.countOf("FileExists D:"), 0);
}

TEST_F(MoveActionTest, TheRowsTextIsComparedWithoutRegardToCase) {
    shortRowWatches("c:\\");
    listFile("C:\\1");
    move();
    EXPECT_EQ(listed(), "");
}

TEST_F(MoveActionTest, ARowOnASubFolderMatchesNoFile) {
    shortRowWatches("C:\\data");
    listFile("C:\\data\\1");
    move();
    EXPECT_EQ(listed(), "C:\\data\\1");
    EXPECT_EQ(alertCount(), 0);
    EXPECT_EQ(strAlert(), shortageText);
}

TEST_F(MoveActionTest, SequentialActionDoesNotMatterHere) {
    form1.chkSeq.setValue(1);
    listFile("C:\\1");
    listFile("C:\\2");
    move();
    EXPECT_EQ(listed(), "");
}

TEST_F(MoveActionTest, TheAlertBelongsToTheShortRow) {
    // A repeat of the row's first alert is dropped; alerts without a row never are.
    listMissing("C:\\gone");
    WatchRow(list.ListItems(1))
        .setFirstAlert(" - ALERTFailed Moved File; file does not exist: C:\\goneD:\\\r\n.\r\n");
    move();
    EXPECT_EQ(alertCount(), 0);
    EXPECT_EQ(strAlert(), "");
}

TEST_F(MoveActionTest, ATargetThatIsNotReadyLeavesTheRow) {
    machine.drives["D:"].ready = false;
    listFile("C:\\1");
    listFile("C:\\2");
    EXPECT_EQ(errorOf(act::move), error::diskNotReady);
    EXPECT_EQ(listed(), "C:\\1 C:\\2");
    EXPECT_EQ(alertCount(), 0);
}

TEST_F(MoveActionTest, AShortRowThatIsGoneFailsBeforeAnythingIsTouched) {
    listFile("C:\\1");
    list.Clear();
    EXPECT_EQ(errorOf(act::move), error::indexOutOfBounds);
    EXPECT_EQ(listed(), "C:\\1");
    EXPECT_EQ(machine.log.count(), 0);
}

TEST_F(MoveActionTest, TenThousandRowsGetOneAlertEachAndTheAlertsDoNotGrow) {
    machine.files["C:\\a.txt"] = "abc";
    for (int i = 0; i < 10'000; ++i) listMissing("C:\\a.txt", "1 KB");
    move();
    EXPECT_EQ(files.Count(), 0);
    ASSERT_EQ(alertCount(), 10'000);
    const std::string text = "Auto Moved File: C:\\a.txt to D:\\ Size: 1 KB\r\n.\r\n";
    EXPECT_EQ(alert(1), medium(text));
    EXPECT_EQ(alert(9999), medium(text));
    EXPECT_EQ(alert(10'000), medium(shortageText + text));
    EXPECT_EQ(machine.log.countOf("MoveFileA"), 10'000);
}

}  // namespace
}  // namespace velmora::tests
