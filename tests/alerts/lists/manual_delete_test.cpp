// Deleting the specified files by hand, one by one and all of them.
#include "alerts/lists/lists_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

const std::string binQuestion =
    "Do you want to delete files or put in recycle bin? Yes = Recycle Bin, No = Permanent Deletion";

struct ManualDeleteTest : testing::Test, ListsRig {
    ManualDeleteTest() {
        forms.hints.Said.connect([this](const Hint& hint) { hints.push_back(hint); });
    }
    std::vector<Hint> hints;
    void remove() { form1.cmdDelete.userClick(); }
    void removeAll(std::deque<BoxAnswer> answers) {
        host.answers = std::move(answers);
        form1.cmdDeleteAll.userClick();
    }
    /// One report in alert list, journal and dialog, and then the check's tick.
    void expectReported(const std::string& text) {
        EXPECT_EQ(alertRows(), Texts{mediumAlert(text)});
        EXPECT_EQ(journal(), entry(text));
        EXPECT_EQ(dialogText(), entry(text));
        ASSERT_GE(order.size(), 2u);
        EXPECT_EQ(order[order.size() - 2], "dialog shown");
        EXPECT_EQ(order.back(), "tick");
        EXPECT_EQ(count("tick"), 1);
    }
};

TEST_F(ManualDeleteTest, AFileIsDeletedAtOnceWithoutAQuestion) {
    listedFile("C:\\a.txt");
    listedFile("C:\\b.txt", true);
    form1.chkSafeM.setValue(1);
    remove();
    EXPECT_EQ(machine.files.count("C:\\a.txt"), 1u);
    EXPECT_EQ(machine.files.count("C:\\b.txt"), 0u);
    EXPECT_EQ(tags(), Texts{"C:\\a.txt"});
    expectReported("- Deleted File: C:\\b.txt");
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(order, (Texts{"FileExists C:\\b.txt", "remove C:\\b.txt", "dialog shown", "tick"}));
}

TEST_F(ManualDeleteTest, AFolderWithContentIsDeletedWhole) {
    fullFolder("C:\\data\\old", 1536);
    file("C:\\data\\old\\deep\\x", 512);
    machine.folders.insert("c:\\data\\old\\deep");
    file("C:\\data\\kept");
    row("C:\\data\\old", true);
    remove();
    EXPECT_EQ(machine.files, (std::map<std::string, std::string>{{"C:\\data\\kept", "xxx"}}));
    EXPECT_EQ(machine.log.countOf("Delete force C:\\data\\old"), 1);
    expectReported("\r\n.\r\n- Deleted Folder: C:\\data\\old | [2. KB]");
    EXPECT_EQ(list.Count(), 0);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(ManualDeleteTest, AFoldersSizeHasTwoDecimalsAtMost) {
    fullFolder("C:\\data\\old", 1300);
    row("C:\\data\\old", true);
    remove();
    expectReported("\r\n.\r\n- Deleted Folder: C:\\data\\old | [1.27 KB]");
}

TEST_F(ManualDeleteTest, AnEmptyFolderIsReportedAndItsRowRemoved) {
    machine.folders.insert("c:\\data\\old");
    row("C:\\data\\old", true);
    remove();
    EXPECT_EQ(machine.folders.count("c:\\data\\old"), 1u);
    EXPECT_EQ(machine.log.countOf("Delete"), 0);
    EXPECT_EQ(list.Count(), 0);
    expectReported("- No Folder Found or No Content in Folder: C:\\data\\old");
}

TEST_F(ManualDeleteTest, AFolderWithFilesBelowItOnlyStays) {
    machine.folders.insert("c:\\data\\old");
    machine.folders.insert("c:\\data\\old\\deep");
    file("C:\\data\\old\\deep\\x", 512);
    row("C:\\data\\old", true);
    remove();
    EXPECT_EQ(machine.files.size(), 1u);
    expectReported("- No Folder Found or No Content in Folder: C:\\data\\old");
}

TEST_F(ManualDeleteTest, AFolderOfEmptyFilesStays) {
    fullFolder("C:\\data\\old", 0);
    row("C:\\data\\old", true);
    remove();
    EXPECT_EQ(machine.files.size(), 1u);
    expectReported("- No Folder Found or No Content in Folder: C:\\data\\old");
}

TEST_F(ManualDeleteTest, AWholeDriveIsRefusedBeforeItIsRead) {
    file("C:\\a");
    row("C:\\", true);
    const auto before = disk();
    remove();
    EXPECT_EQ(disk(), before);
    EXPECT_EQ(machine.log.calls(),
              (Texts{"FileExists C:\\", "FolderExists C:\\", "GetFolder C:\\"}));
    EXPECT_EQ(list.Count(), 0);
    expectReported("- File access error (Listing Removed): C:\\");
}

TEST_F(ManualDeleteTest, AWholeShareIsRefusedToo) {
    machine.drives["\\\\host\\share"] = {1e9, 2e9};
    file("\\\\host\\share\\a");
    row("\\\\host\\share", true);
    remove();
    EXPECT_EQ(machine.files.size(), 1u);
    EXPECT_EQ(machine.log.countOf("Size"), 0);
    EXPECT_EQ(machine.log.countOf("Delete"), 0);
    expectReported("- File access error (Listing Removed): \\\\host\\share");
}

TEST_F(ManualDeleteTest, APathThatIsNeitherFileNorFolderIsReportedAndItsRowRemoved) {
    row("C:\\gone.txt", true);
    remove();
    EXPECT_EQ(list.Count(), 0);
    expectReported("- No Folder Found or No Content in Folder: C:\\gone.txt");
}

TEST_F(ManualDeleteTest, ARowWithoutAPathIsReportedAndRemoved) {
    fullFolder("C:\\data\\old");
    row("", true);
    const auto before = disk();
    remove();
    EXPECT_EQ(disk(), before);
    EXPECT_EQ(list.Count(), 0);
    expectReported("- No Folder Found or No Content in Folder: ");
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(ManualDeleteTest, OfSeveralSelectedRowsOnlyTheFirstIsDeleted) {
    listedFile("C:\\a");
    listedFile("C:\\b", true);
    listedFile("C:\\c", true);
    remove();
    EXPECT_EQ(tags(), (Texts{"C:\\a", "C:\\c"}));
    EXPECT_EQ(machine.files,
              (std::map<std::string, std::string>{{"C:\\a", "xxx"}, {"C:\\c", "xxx"}}));
    expectReported("- Deleted File: C:\\b");
}

TEST_F(ManualDeleteTest, AnEmptyListAndNoSelectionAreReported) {
    remove();
    listedFile("C:\\a.txt");
    remove();
    EXPECT_EQ(order, (Texts{"box: No item listed.", "box: No file selected."}));
    EXPECT_EQ(tags(), Texts{"C:\\a.txt"});
    EXPECT_EQ(machine.files.size(), 1u);
}

TEST_F(ManualDeleteTest, TheRowIsRemovedBeforeTheReport) {
    listedFile("C:\\a", true);
    int listedAtAlert = -1;
    alerts.Raised.connect([&](const ListItem&) { listedAtAlert = list.Count(); });
    remove();
    EXPECT_EQ(listedAtAlert, 0);
}

TEST_F(ManualDeleteTest, ATextThatTheDialogShowsIsNotReportedAgainButTheTickRuns) {
    listedFile("C:\\a.txt", true);
    forms.dlgAlert.Label1.setText("before " + entry("- Deleted File: C:\\a.txt"));
    remove();
    EXPECT_EQ(machine.files.size(), 0u);
    EXPECT_TRUE(alertRows().empty());
    EXPECT_EQ(journal(), "");
    EXPECT_EQ(order.back(), "tick");
    EXPECT_EQ(count("dialog shown"), 0);
}

TEST_F(ManualDeleteTest, APathThatIsTheBeginningOfAReportedOneIsReportedToo) {
    listedFile("C:\\a", true);
    listedFile("C:\\a.txt", true);
    list.userSelect({2});
    remove();
    list.userSelect({1});
    remove();
    EXPECT_EQ(alertRows(), (Texts{mediumAlert("- Deleted File: C:\\a"),
                                  mediumAlert("- Deleted File: C:\\a.txt")}));
    EXPECT_EQ(journal(), entry("- Deleted File: C:\\a") + entry("- Deleted File: C:\\a.txt"));
    EXPECT_EQ(dialogText(), journal());
    EXPECT_EQ(count("dialog shown"), 2);
}

TEST_F(ManualDeleteTest, TheSamePathIsReportedAgainASecondLaterButNotInTheSameSecond) {
    const auto deleteOnce = [this] {
        listedFile("C:\\a", true);
        remove();
    };
    deleteOnce();
    deleteOnce();
    EXPECT_EQ(machine.log.countOf("remove C:\\a"), 2);
    EXPECT_EQ(journal(), entry("- Deleted File: C:\\a"));
    machine.advance(1000);
    deleteOnce();
    EXPECT_EQ(alertRows(), Texts(2, mediumAlert("- Deleted File: C:\\a")));
    EXPECT_EQ(journal(),
              "03/14/26 15:09:27- Deleted File: C:\\a\r\n . \r\n" + entry("- Deleted File: C:\\a"));
    EXPECT_EQ(dialogText(), journal());
    EXPECT_EQ(count("dialog shown"), 2);
}

TEST_F(ManualDeleteTest, AnAccessErrorOnAFileRemovesTheListing) {
    for (const int number : {error::permissionDenied, error::pathFileAccess}) {
        ListsRig rig;
        rig.listedFile("C:\\a.txt", true);
        rig.machine.lockedFiles["C:\\a.txt"] = number;
        rig.form1.cmdDelete.userClick();
        const std::string text = "- File access error (Listing Removed): C:\\a.txt";
        EXPECT_EQ(rig.alertRows(), Texts{mediumAlert(text)});
        EXPECT_EQ(rig.journal(), entry(text));
        EXPECT_EQ(rig.dialogText(), entry(text));
        EXPECT_EQ(rig.count("dialog shown"), 1);
        EXPECT_EQ(rig.list.Count(), 0);
        EXPECT_EQ(rig.machine.files.size(), 1u);
        EXPECT_TRUE(rig.host.boxes.empty());
        EXPECT_EQ(rig.order.back(), "tick");
    }
}

TEST_F(ManualDeleteTest, AnAccessErrorOnAFolderRemovesTheListing) {
    fullFolder("C:\\data\\old");
    machine.lockedFiles["C:\\data\\old\\inside.bin"] = error::permissionDenied;
    row("C:\\data\\old", true);
    remove();
    EXPECT_EQ(machine.files.size(), 1u);
    EXPECT_EQ(list.Count(), 0);
    expectReported("- File access error (Listing Removed): C:\\data\\old");
}

TEST_F(ManualDeleteTest, AnotherErrorIsReportedAndTheRowStays) {
    listedFile("C:\\a.txt", true);
    machine.lockedFiles["C:\\a.txt"] = error::deviceIo;
    remove();
    EXPECT_EQ(said(), Texts{"Device I/O error\r\nFile: C:\\a.txt\r\n"});
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::critical);
    EXPECT_EQ(tags(), Texts{"C:\\a.txt"});
    EXPECT_TRUE(alertRows().empty());
    EXPECT_EQ(journal(), "");
    EXPECT_EQ(count("tick"), 0);
}

TEST_F(ManualDeleteTest, AnErrorInTheReportIsNotReportedAsAFailedDeletion) {
    listedFile("C:\\a.txt", true);
    form1.txtAlert.Change.connect([] { throw RuntimeError(error::permissionDenied); });
    EXPECT_THROW(remove(), RuntimeError);
    EXPECT_EQ(alertRows(), Texts{mediumAlert("- Deleted File: C:\\a.txt")});
}

TEST_F(ManualDeleteTest, ALogFileThatCannotBeWrittenStopsNothing) {
    form1.chkAutoSave.setValue(1);
    form1.lblLog.setCaption("C:\\log.dat");
    file("C:\\log.dat");
    machine.lockedFiles["C:\\log.dat"] = error::permissionDenied;
    listedFile("C:\\a.txt", true);
    listedFile("C:\\b.txt");
    remove();
    expectReported("- Deleted File: C:\\a.txt");
    removeAll({BoxAnswer::no});
    EXPECT_EQ(said(), Texts{binQuestion});
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(alertRows()[0], mediumAlert("- Deleted File: C:\\b.txt"));
}

TEST_F(ManualDeleteTest, DeleteAllAsksWithThreeAnswers) {
    listedFile("C:\\a");
    removeAll({BoxAnswer::cancel});
    ASSERT_EQ(said(), Texts{binQuestion});
    EXPECT_EQ(host.boxes[0].title, "RecycleBin");
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::yesNoCancel);
}

TEST_F(ManualDeleteTest, DeleteAllDeletesNothingOnCancel) {
    for (const char* tag : {"C:\\a", "C:\\b"}) listedFile(tag);
    form1.cboFile.AddItem("C:\\a");
    removeAll({BoxAnswer::cancel});
    removeAll({});  // dismissed
    EXPECT_EQ(machine.files.size(), 2u);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(machine.log.count(), 0);
    EXPECT_EQ(form1.cboFile.ListCount(), 1);
    EXPECT_TRUE(alertRows().empty());
}

TEST_F(ManualDeleteTest, AllOnAnEmptyListIsReported) {
    removeAll({BoxAnswer::no});
    EXPECT_EQ(order, Texts{"box: No item listed."});
}

TEST_F(ManualDeleteTest, AnswerNoDeletesAllForGoodFromTheLastToTheFirst) {
    for (const char* tag : {"C:\\a", "C:\\b"}) listedFile(tag);
    file("C:\\kept");
    removeAll({BoxAnswer::no});
    EXPECT_EQ(machine.files, (std::map<std::string, std::string>{{"C:\\kept", "xxx"}}));
    EXPECT_EQ(order, (Texts{"box: " + binQuestion, "FileExists C:\\b", "remove C:\\b",
                            "FileExists C:\\a", "remove C:\\a"}));
    EXPECT_EQ(alertRows(),
              (Texts{mediumAlert("- Deleted File: C:\\a"), mediumAlert("- Deleted File: C:\\b")}));
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(journal(), "");
    EXPECT_EQ(dialogText(), "");
}

TEST_F(ManualDeleteTest, AnswerYesSendsAllToTheBin) {
    for (const char* tag : {"C:\\a", "C:\\b"}) listedFile(tag);
    form1.cboFile.AddItem("C:\\a");
    removeAll({BoxAnswer::yes});
    EXPECT_EQ(machine.recycled, (Texts{"C:\\b", "C:\\a"}));
    ASSERT_EQ(machine.operations.size(), 2u);
    EXPECT_EQ(machine.operations[0].fFlags, 64);
    EXPECT_EQ(machine.operations[0].wFunc, 3u);
    EXPECT_EQ(machine.log.countOf("remove"), 0);
    EXPECT_EQ(alertRows(), (Texts{mediumAlert("- Sended File to Recycle Bin: C:\\a"),
                                  mediumAlert("- Sended File to Recycle Bin: C:\\b")}));
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(form1.cboFile.ListCount(), 1);
}

TEST_F(ManualDeleteTest, TheAnswerOfTheBinIsIgnored) {
    listedFile("C:\\a");
    machine.operationResult = 5;
    removeAll({BoxAnswer::yes});
    EXPECT_EQ(alertRows(), Texts{mediumAlert("- Sended File to Recycle Bin: C:\\a")});
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(machine.files.size(), 1u);
    EXPECT_EQ(host.notes, Texts{"Not sent to the recycle bin: C:\\a: it may not be removed, or its "
                                "drive has no recycle bin (5)"});
}

TEST_F(ManualDeleteTest, InAProgramThatKeepsRunningEachFailureOfTheBinIsAnAlertBehindItsReport) {
    machine.platform().app.Options.keepRunning = true;
    for (const char* tag : {"C:\\a", "C:\\b"}) listedFile(tag);
    machine.operationResult = 32;
    removeAll({BoxAnswer::yes});
    const auto why = [](const std::string& tag) {
        return "Not sent to the recycle bin: " + tag + ": a program has it open (32)";
    };
    const Texts rows = alertRows();
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_NE(rows[0].find(why("C:\\a")), std::string::npos) << rows[0];
    EXPECT_NE(rows[0].find("High"), std::string::npos) << rows[0];
    EXPECT_EQ(rows[1], mediumAlert("- Sended File to Recycle Bin: C:\\a"));
    EXPECT_NE(rows[2].find(why("C:\\b")), std::string::npos) << rows[2];
    EXPECT_EQ(rows[3], mediumAlert("- Sended File to Recycle Bin: C:\\b"));
    EXPECT_EQ(host.notes, (Texts{why("C:\\b"), why("C:\\a")}));
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(ManualDeleteTest, AllShowsOneMessageForAMissingFileRemovesItsRowAndGoesOn) {
    for (const BoxAnswer answer : {BoxAnswer::yes, BoxAnswer::no}) {
        ListsRig rig;
        rig.listedFile("C:\\a");
        rig.row("C:\\gone");
        rig.listedFile("C:\\b");
        for (const char* entry : {"C:\\one", "C:\\two"}) rig.form1.cboFile.AddItem(entry);
        rig.host.answers = {answer};
        rig.form1.cmdDeleteAll.userClick();
        EXPECT_EQ(rig.said(), (Texts{binQuestion, "file does not exits: C:\\gone"}));
        EXPECT_EQ(rig.host.boxes[1].buttons, BoxButtons::ok);
        EXPECT_EQ(rig.list.Count(), 0);
        EXPECT_TRUE(rig.machine.files.empty());
        EXPECT_EQ(rig.alertRows().size(), 2u);
        ASSERT_EQ(rig.form1.cboFile.ListCount(), 1);
        EXPECT_EQ(rig.form1.cboFile.List(0), "C:\\two");
    }
}

TEST_F(ManualDeleteTest, DeleteAllTreatsAFolderAsAMissingFile) {
    fullFolder("C:\\data\\old");
    row("C:\\data\\old");
    form1.cboFile.AddItem("C:\\one");
    removeAll({BoxAnswer::no});
    EXPECT_EQ(said()[1], "file does not exits: C:\\data\\old");
    EXPECT_EQ(machine.files.size(), 1u);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(ManualDeleteTest, AMissingFileWithAnEmptyBoxEndsTheRunOfAll) {
    listedFile("C:\\a");
    row("C:\\gone");
    removeAll({BoxAnswer::no});
    EXPECT_EQ(said(), (Texts{binQuestion, "file does not exits: C:\\gone"}));
    EXPECT_EQ(tags(), (Texts{"C:\\a", "C:\\gone"}));
    EXPECT_EQ(machine.files.size(), 1u);
    EXPECT_TRUE(alertRows().empty());
    const std::string reason =
        "\"Delete All\" ends at a file that is missing: the box of files (cboFile) is empty, so "
        "that "
        "no entry can be removed with the row. Remove the row, then start again.";
    EXPECT_EQ(host.boxes.back().detail, reason);
    EXPECT_EQ(
        hints,
        (std::vector<Hint>{{.field = "cboFile", .text = reason, .about = HintAbout::working}}));
    EXPECT_TRUE(host.notes.empty()) << "the console says the hint";
    removeAll({BoxAnswer::no});
    EXPECT_EQ(hints.size(), 1u) << "once a start";
    EXPECT_EQ(host.boxes.back().detail, reason);
}

TEST_F(ManualDeleteTest, AMissingFileIsDroppedWithoutAReasonWhileTheBoxHasEntries) {
    row("C:\\gone 1");
    row("C:\\gone 2");
    listedFile("C:\\a");
    form1.cboFile.AddItem("C:\\one");
    removeAll({BoxAnswer::no});
    // The box's one entry goes with the first of the missing ones; the next ends the run.
    EXPECT_EQ(said(), (Texts{binQuestion, "file does not exits: C:\\gone 2",
                             "file does not exits: C:\\gone 1"}));
    EXPECT_EQ(host.boxes[1].detail, "");
    EXPECT_EQ(hints.size(), 1u);
    EXPECT_EQ(tags(), Texts{"C:\\gone 1"});
    EXPECT_TRUE(machine.files.empty());
}

struct RefusedDeletion : ManualDeleteTest {
    const std::string text =
        "An error was raised when deleting was attempted: Permission denied\r\nFile: C:\\b\r\n";
    void run(BoxAnswer skip) {
        for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag);
        machine.lockedFiles["C:\\b"] = error::permissionDenied;
        removeAll({BoxAnswer::no, skip});
        EXPECT_EQ(said(),
                  (Texts{binQuestion, text + "Do you want to skip this file and continue?"}));
        EXPECT_EQ(host.boxes[1].buttons, BoxButtons::yesNo);
        EXPECT_TRUE(forms.sysWorkSystray.tmrSystray.Enabled());
    }
    std::string highAlert() const { return "20260314 15:09 | High | " + text; }
};

TEST_F(RefusedDeletion, YesSkipsTheFileAndGoesOn) {
    run(BoxAnswer::yes);
    EXPECT_EQ(tags(), Texts{"C:\\b"});
    EXPECT_EQ(machine.files.size(), 1u);
    EXPECT_EQ(alertRows(), (Texts{mediumAlert("- Deleted File: C:\\a"), highAlert(),
                                  mediumAlert("- Deleted File: C:\\c")}));
}

TEST_F(RefusedDeletion, NoEndsTheRun) {
    run(BoxAnswer::no);
    EXPECT_EQ(tags(), (Texts{"C:\\a", "C:\\b"}));
    EXPECT_EQ(machine.files.size(), 2u);
    EXPECT_EQ(alertRows(), (Texts{highAlert(), mediumAlert("- Deleted File: C:\\c")}));
}

TEST_F(ManualDeleteTest, ARefusedFileIsAskedAboutOnceEvenIfOtherRowsAreRemovedMeanwhile) {
    for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag);
    machine.lockedFiles["C:\\c"] = error::permissionDenied;
    host.onBox = [this](const Box& box) {
        if (box.text != binQuestion) list.Remove(1);
    };
    removeAll({BoxAnswer::no, BoxAnswer::yes, BoxAnswer::yes});
    EXPECT_EQ(said().size(), 2u);  // how, and whether to skip
    EXPECT_EQ(machine.files,
              (std::map<std::string, std::string>{{"C:\\a", "xxx"}, {"C:\\c", "xxx"}}));
    EXPECT_EQ(tags(), Texts{"C:\\c"});
}

TEST_F(ManualDeleteTest, AnotherErrorEndsTheRunOfAllAndIsReported) {
    for (const char* tag : {"C:\\a", "C:\\b"}) listedFile(tag);
    machine.lockedFiles["C:\\b"] = error::pathFileAccess;
    removeAll({BoxAnswer::no});
    EXPECT_EQ(said(), (Texts{binQuestion, "Path/File access error\r\nFile: C:\\b\r\n"}));
    EXPECT_EQ(host.boxes[1].icon, BoxIcon::critical);
    EXPECT_EQ(tags(), (Texts{"C:\\a", "C:\\b"}));
    EXPECT_EQ(machine.files.size(), 2u);
    EXPECT_TRUE(alertRows().empty());
}

TEST_F(ManualDeleteTest, RowsRemovedWhileAMessageIsShownRemoveNoOther) {
    for (const char* tag : {"C:\\a", "C:\\b"}) listedFile(tag);
    row("C:\\gone");
    form1.cboFile.AddItem("C:\\one");
    host.onBox = [this](const Box& box) {
        if (box.text != binQuestion) list.Remove(1);
    };
    removeAll({BoxAnswer::no});
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(machine.files, (std::map<std::string, std::string>{{"C:\\a", "xxx"}}));
}

}  // namespace
}  // namespace velmora::tests
