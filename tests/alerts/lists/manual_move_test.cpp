// Moving the specified files by hand, and the path to which they are moved.
#include "alerts/lists/lists_rig.h"
#include "base/text.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

const std::string moveQuestion =
    "Move Selected File(s) to Specified Path: E:\\spare\\ ? click no to select another path";
const std::string moveFailure =
    "File was moved unsuccessfully, check for sufficient resources (disk space) and try again.";

struct ManualMoveTest : testing::Test, ListsRig {
    void move(std::deque<BoxAnswer> answers = {BoxAnswer::yes}) {
        host.answers = std::move(answers);
        form1.cmdMove.userClick();
    }
    void expectNothingMoved() {
        EXPECT_TRUE(machine.moved.empty());
        EXPECT_EQ(machine.log.countOf("MoveFileA"), 0);
        EXPECT_TRUE(alertRows().empty());
        EXPECT_EQ(journal(), "");
        EXPECT_EQ(dialogText(), "");
        EXPECT_EQ(count("dialog shown"), 0);
    }
};

TEST_F(ManualMoveTest, TheSpecifiedPathIsTheFolderOfTheChosenFile) {
    host.paths = {"E:\\archive\\old\\a.txt"};
    form1.cmdFolder.userClick();
    EXPECT_EQ(form1.txtDrive.Text(), "E:\\archive\\old\\");
    ASSERT_EQ(host.fileDialogs.size(), 1u);
    EXPECT_EQ(host.fileDialogs[0].DialogTitle, "Select Path by choosing a file within the folder");
    EXPECT_EQ(host.fileDialogs[0].Filter, "All Files (*.*)|*.*");
    EXPECT_EQ(host.fileDialogs[0].Flags & file_dialog::allowMultiselect, 0);
}

TEST_F(ManualMoveTest, TheFolderOfAFileWithLettersOfSeveralBytesIsWhole) {
    host.paths = {"E:\\größer\\日本\\ä.txt"};
    form1.cmdFolder.userClick();
    EXPECT_EQ(form1.txtDrive.Text(), "E:\\größer\\日本\\");
}

TEST_F(ManualMoveTest, CancellingTheDialogKeepsThePath) {
    form1.cmdFolder.userClick();
    EXPECT_EQ(form1.txtDrive.Text(), "E:\\spare\\");
}

TEST_F(ManualMoveTest, YesMovesTheSelectedFileAndReportsItEverywhere) {
    listedFile("C:\\data\\a.txt");
    listedFile("C:\\data\\b.txt", true);
    form1.txtAlert.setText("older");
    move();
    EXPECT_EQ(machine.moved, (std::vector<std::pair<std::string, std::string>>{
                                 {"C:\\data\\b.txt", "E:\\spare\\b.txt"}}));
    EXPECT_EQ(tags(), Texts{"C:\\data\\a.txt"});
    EXPECT_EQ(alertRows(), Texts{mediumAlert("- Moved File: C:\\data\\b.txt")});
    EXPECT_EQ(journal(), entry("- Moved File: C:\\data\\b.txt") + "older");
    EXPECT_EQ(dialogText(), entry("- Moved File: C:\\data\\b.txt"));
    EXPECT_EQ(order, (Texts{"drop", "box: " + moveQuestion, "restore", "FileExists C:\\data\\b.txt",
                            "MoveFileA C:\\data\\b.txt > E:\\spare\\b.txt", "dialog shown"}));
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_TRUE(host.dialogs.empty());
    EXPECT_FALSE(forms.sysWorkSystray.tmrSystray.Enabled());
}

// Each saving and reading of the settings adds one line end to the path.
TEST_F(ManualMoveTest, LineEndsAfterTheSpecifiedPathAreNotPartOfTheNewName) {
    listedFile("C:\\data\\b.txt", true);
    form1.txtDrive.setText(form1.txtDrive.Text() + "\r\n\r\n");
    move();
    EXPECT_EQ(machine.moved, (std::vector<std::pair<std::string, std::string>>{
                                 {"C:\\data\\b.txt", "E:\\spare\\b.txt"}}));
    EXPECT_EQ(host.boxes[0].text, moveQuestion);
}

TEST_F(ManualMoveTest, OfSeveralSelectedRowsOnlyTheFirstMoves) {
    listedFile("C:\\a");
    listedFile("C:\\b", true);
    listedFile("C:\\c", true);
    move();
    EXPECT_EQ(machine.moved,
              (std::vector<std::pair<std::string, std::string>>{{"C:\\b", "E:\\spare\\b"}}));
    EXPECT_EQ(tags(), (Texts{"C:\\a", "C:\\c"}));
    EXPECT_EQ(said(), Texts{moveQuestion});
}

TEST_F(ManualMoveTest, TheRowIsRemovedAfterTheReport) {
    listedFile("C:\\a", true);
    int listedAtAlert = -1;
    alerts.Raised.connect([&](const ListItem&) { listedAtAlert = list.Count(); });
    move();
    EXPECT_EQ(listedAtAlert, 1);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(ManualMoveTest, AnEmptyListIsReported) {
    move();
    EXPECT_EQ(order, Texts{"box: No file listed."});
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::ok);
    expectNothingMoved();
}

TEST_F(ManualMoveTest, NoOpensTheFolderBrowserOnceTheWindowIsOnTopAgain) {
    listedFile("C:\\a.txt", true);
    machine.folders.insert("e:\\other");
    host.paths = {"E:\\other\\"};
    machine.folders.insert("e:\\other\\");
    move({BoxAnswer::no});
    EXPECT_EQ(host.dialogs, Texts{"Select Folder/Path"});
    EXPECT_EQ(machine.moved[0].second, "E:\\other\\a.txt");
    EXPECT_EQ(order, (Texts{"drop", "box: " + moveQuestion, "restore", "browse: Select Folder/Path",
                            "FolderExists E:\\other\\", "FileExists C:\\a.txt",
                            "MoveFileA C:\\a.txt > E:\\other\\a.txt", "dialog shown"}));
    EXPECT_EQ(form1.txtDrive.Text(), "E:\\spare\\");
}

TEST_F(ManualMoveTest, ABrowsedFolderGetsNoSeparator) {
    listedFile("C:\\a.txt", true);
    host.paths = {"E:\\spare"};
    move({BoxAnswer::no});
    EXPECT_EQ(machine.moved[0].second, "E:\\sparea.txt");
}

TEST_F(ManualMoveTest, ABrowsedPathThatIsNoFolderLeavesTheDestinationEmpty) {
    listedFile("C:\\a.txt", true);
    host.paths = {"E:\\gone"};
    move({BoxAnswer::no});
    EXPECT_EQ(machine.log.countOf("MoveFileA C:\\a.txt > a.txt"), 1);
}

TEST_F(ManualMoveTest, AnEmptySpecifiedPathIsAFailedMove) {
    listedFile("C:\\a.txt", true);
    form1.txtDrive.setText("\r\n");
    move();
    EXPECT_EQ(said().back(), moveFailure);
    EXPECT_TRUE(machine.moved.empty());
    EXPECT_EQ(alertRows(), Texts{mediumAlert("- Failed Moved File: C:\\a.txt")});
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(ManualMoveTest, SoIsOneOfBlanks) {
    listedFile("C:\\a.txt", true);
    form1.txtDrive.setText("   ");
    move();
    EXPECT_EQ(machine.log.countOf("MoveFileA C:\\a.txt >    a.txt"), 1);
    EXPECT_EQ(said().back(), moveFailure);
    EXPECT_TRUE(machine.moved.empty());
    EXPECT_EQ(alertRows(), Texts{mediumAlert("- Failed Moved File: C:\\a.txt")});
}

TEST_F(ManualMoveTest, LinksInABrowsedFolderLeadToWhereItLies) {
    listedFile("C:\\a.txt", true);
    for (const char* folder : {"e:\\way", "e:\\way\\", "e:\\real"}) machine.folders.insert(folder);
    machine.withoutLinks = [](const std::string& path) {
        return replaceAll(path, "E:\\way\\", "E:\\real\\");
    };
    host.paths = {"E:\\way\\"};
    move({BoxAnswer::no});
    EXPECT_EQ(machine.moved.at(0).second, "E:\\real\\a.txt");
}

TEST_F(ManualMoveTest, TheQuestionNamesThePlaceThatYesMeans) {
    listedFile("C:\\data\\b.txt", true);
    const auto detailFor = [this](const std::string& path) {
        forget();
        form1.txtDrive.setText(path);
        move({BoxAnswer::no});
        return host.boxes.at(0).detail;
    };
    EXPECT_EQ(detailFor("E:\\spare\\"), "Yes moves it to: E:\\spare\\b.txt");
    EXPECT_EQ(detailFor("E:\\spare"), "Yes moves it to: E:\\spareb.txt");
    EXPECT_EQ(detailFor("E:\\gone\r\n"), "Yes moves it to: E:\\goneb.txt");
    EXPECT_EQ(detailFor("\\\\host\\share\\x\\"), "Yes moves it to: \\\\host\\share\\x\\b.txt");
    for (const char* nowhere : {"", "   ", " \r\n", "\r\n", "spare\\", ".", "E:"})
        EXPECT_EQ(detailFor(nowhere), "Yes moves nothing: the specified path names no folder.");
    list.ListItems(1).setSelected(false);
    EXPECT_EQ(detailFor("E:\\spare\\"), "");
}

TEST_F(ManualMoveTest, LinksInTheTypedPathLeadToWhereItLies) {
    listedFile("C:\\a.txt", true);
    machine.folders.insert("e:\\real");
    machine.withoutLinks = [](const std::string& path) {
        return replaceAll(path, "E:\\way\\", "E:\\real\\");
    };
    form1.txtDrive.setText("E:\\way\\");
    move();
    EXPECT_EQ(host.boxes[0].detail, "Yes moves it to: E:\\real\\a.txt");
    EXPECT_EQ(said(), Texts{replaceAll(moveQuestion, "spare", "way")});
    EXPECT_EQ(machine.moved.at(0).second, "E:\\real\\a.txt");
}

TEST_F(ManualMoveTest, TheProgramIsBusyWhileAFileMovesAndNotWhileItAsks) {
    listedFile("C:\\a.txt", true);
    int busyAtMove = 0;
    machine.onCall = [&](const std::string& call) {
        if (call.starts_with("MoveFileA")) busyAtMove = host.busy;
    };
    host.onBox = [&](const Box&) { EXPECT_EQ(host.busy, 0); };
    machine.diskFull = true;
    move();
    EXPECT_EQ(busyAtMove, 1);
    EXPECT_EQ(host.busy, 0);
}

TEST_F(ManualMoveTest, NoAndACancelledBrowserMoveNothingAndRaiseNoAlert) {
    listedFile("C:\\a.txt", true);
    move({BoxAnswer::no});
    EXPECT_EQ(host.dialogs, Texts{"Select Folder/Path"});
    EXPECT_EQ(tags(), Texts{"C:\\a.txt"});
    EXPECT_EQ(order,
              (Texts{"drop", "box: " + moveQuestion, "restore", "browse: Select Folder/Path"}));
    expectNothingMoved();
}

TEST_F(ManualMoveTest, NoSelectionOrARowWithoutAPathIsReportedAfterTheQuestion) {
    listedFile("C:\\a.txt");
    move();
    EXPECT_EQ(said(), (Texts{moveQuestion, "no file listed."}));
    list.Clear();
    forget();
    row("", true);
    move();
    EXPECT_EQ(said(), (Texts{moveQuestion, "no file listed."}));
    EXPECT_EQ(list.Count(), 1);
    expectNothingMoved();
}

TEST_F(ManualMoveTest, AMissingFileOrAFolderLeavesItsRowAndNothingMoreHappens) {
    row("C:\\gone.txt", true);
    move();
    list.Clear();
    fullFolder("C:\\data\\old");
    row("C:\\data\\old", true);
    move();
    EXPECT_EQ(tags(), Texts{"C:\\data\\old"});
    EXPECT_EQ(said(), Texts(2, moveQuestion));
    expectNothingMoved();
}

TEST_F(ManualMoveTest, AFailureIsReportedAndTheRowIsStillRemoved) {
    listedFile("C:\\a.txt", true);
    machine.diskFull = true;
    move();
    EXPECT_EQ(said(), (Texts{moveQuestion, moveFailure}));
    EXPECT_EQ(host.boxes[1].buttons, BoxButtons::ok);
    EXPECT_EQ(alertRows(), Texts{mediumAlert("- Failed Moved File: C:\\a.txt")});
    EXPECT_EQ(journal(), entry("- Failed Moved File: C:\\a.txt"));
    EXPECT_EQ(dialogText(), journal());
    EXPECT_EQ(count("dialog shown"), 1);
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(machine.files.count("C:\\a.txt"), 1u);
}

TEST_F(ManualMoveTest, ATextThatTheDialogShowsIsNotReportedAgain) {
    listedFile("C:\\a.txt", true);
    const std::string held = "before " + entry("- Moved File: C:\\a.txt") + "after";
    forms.dlgAlert.Label1.setText(held);
    move();
    EXPECT_EQ(machine.moved.size(), 1u);
    EXPECT_TRUE(alertRows().empty());
    EXPECT_EQ(journal(), "");
    EXPECT_EQ(dialogText(), held);
    EXPECT_EQ(count("dialog shown"), 0);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(ManualMoveTest, APathThatIsTheBeginningOfAReportedOneIsReportedToo) {
    listedFile("C:\\a.txt", true);
    move();
    listedFile("C:\\a", true);
    move();
    EXPECT_EQ(alertRows(),
              (Texts{mediumAlert("- Moved File: C:\\a"), mediumAlert("- Moved File: C:\\a.txt")}));
    EXPECT_EQ(dialogText(), entry("- Moved File: C:\\a") + entry("- Moved File: C:\\a.txt"));
    EXPECT_EQ(journal(), dialogText());
}

TEST_F(ManualMoveTest, ATextWithAnotherStampIsReportedAgain) {
    listedFile("C:\\a.txt", true);
    forms.dlgAlert.Label1.setText("03/14/26 15:09:25- Moved File: C:\\a.txt\r\n . \r\n");
    move();
    EXPECT_EQ(alertRows(), Texts{mediumAlert("- Moved File: C:\\a.txt")});
    EXPECT_EQ(journal(), entry("- Moved File: C:\\a.txt"));
    EXPECT_EQ(count("dialog shown"), 1);
}

TEST_F(ManualMoveTest, TheConfirmationSettingChangesNothing) {
    for (const int safe : {0, 1}) {
        form1.chkSafeM.setValue(safe);
        listedFile("C:\\a.txt", true);
        move();
        machine.files.erase("E:\\spare\\a.txt");
    }
    EXPECT_EQ(said(), Texts(2, moveQuestion));
}

TEST_F(ManualMoveTest, RowsRemovedDuringTheQuestionDoNotChangeWhichRowIsMoved) {
    for (const char* tag : {"C:\\a", "C:\\b"}) listedFile(tag);
    list.ListItems(2).setSelected(true);
    host.onBox = [this](const Box&) { list.Remove(1); };
    move();
    EXPECT_EQ(machine.moved[0].first, "C:\\b");
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(ManualMoveTest, RowsRemovedWhileAFailureIsReportedLeaveTheOthers) {
    for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag);
    list.ListItems(2).setSelected(true);
    machine.diskFull = true;
    host.onBox = [this](const Box& box) {
        if (box.text == moveFailure) list.Remove(1);
    };
    move();
    EXPECT_EQ(tags(), Texts{"C:\\c"});
}

TEST_F(ManualMoveTest, ARowAlreadyRemovedWhileItsFailureIsReportedRemovesNoOther) {
    for (const char* tag : {"C:\\a", "C:\\b"}) listedFile(tag);
    list.ListItems(1).setSelected(true);
    machine.diskFull = true;
    host.onBox = [this](const Box& box) {
        if (box.text == moveFailure) list.Remove(1);
    };
    move();
    EXPECT_EQ(tags(), Texts{"C:\\b"});
}

TEST_F(ManualMoveTest, AllMovesFromTheLastRowToTheFirst) {
    for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag);
    list.ListItems(1).setSelected(true);
    host.answers = {BoxAnswer::yes, BoxAnswer::yes, BoxAnswer::yes};
    form1.cmdMoveAll.userClick();
    Texts from;
    for (const auto& each : machine.moved) from.push_back(each.first);
    EXPECT_EQ(from, (Texts{"C:\\c", "C:\\b", "C:\\a"}));
    EXPECT_EQ(said(), Texts(3, moveQuestion));
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(journal(), entry("- Moved File: C:\\a") + entry("- Moved File: C:\\b") +
                             entry("- Moved File: C:\\c"));
}

TEST_F(ManualMoveTest, OnlyTheRowInHandIsSelected) {
    for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag, true);
    host.answers = {BoxAnswer::yes, BoxAnswer::yes, BoxAnswer::yes};
    Texts selected;
    host.onBox = [&](const Box&) {
        for (int i = 1; i <= list.Count(); ++i) {
            if (list.ListItems(i).Selected()) selected.push_back(list.ListItems(i).Tag());
        }
    };
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(selected, (Texts{"C:\\c", "C:\\b", "C:\\a"}));
}

TEST_F(ManualMoveTest, ARowRemovedDuringMoveAllDoesNotSkipTheOthers) {
    for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag);
    host.answers = {BoxAnswer::yes, BoxAnswer::yes, BoxAnswer::yes};
    host.onBox = [this](const Box&) {
        if (list.Count() == 3) list.Remove(1);
    };
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(machine.moved, (std::vector<std::pair<std::string, std::string>>{
                                 {"C:\\c", "E:\\spare\\c"}, {"C:\\b", "E:\\spare\\b"}}));
    EXPECT_EQ(said(), Texts(2, moveQuestion));
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(ManualMoveTest, ARowThatStaysIsAskedAboutOnceEvenIfOthersAreRemoved) {
    for (const char* tag : {"C:\\a", "C:\\b"}) listedFile(tag);
    row("C:\\gone");
    host.answers = {BoxAnswer::yes, BoxAnswer::yes, BoxAnswer::yes};
    host.onBox = [this](const Box&) {
        if (list.Count() == 3) list.Remove(1);
    };
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(said(), Texts(2, moveQuestion));
    EXPECT_EQ(tags(), Texts{"C:\\gone"});
    EXPECT_EQ(machine.moved.size(), 1u);
}

TEST_F(ManualMoveTest, AllGoesOnAfterAMissingFileAndACancelledBrowser) {
    listedFile("C:\\a");
    row("C:\\gone");
    listedFile("C:\\b");
    listedFile("C:\\c");
    host.answers = {BoxAnswer::yes, BoxAnswer::no, BoxAnswer::yes, BoxAnswer::yes};
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(tags(), (Texts{"C:\\gone", "C:\\b"}));
    EXPECT_EQ(machine.moved.size(), 2u);
    EXPECT_EQ(machine.moved[1].first, "C:\\a");
}

TEST_F(ManualMoveTest, EachQuestionButTheLastOffersItsAnswerForTheRest) {
    for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag);
    host.answers = {BoxAnswer::yes, BoxAnswer::yes, BoxAnswer::yes};
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(host.offers,
              (Texts{"Do the same with the other 2 files", "Do the same with the other file"}));
    EXPECT_EQ(said(), Texts(3, moveQuestion));
}

TEST_F(ManualMoveTest, AYesThatIsTakenForTheRestMovesThemWithoutAQuestion) {
    for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag);
    host.answers = {BoxAnswer::yes, BoxAnswer::yes};
    host.takesOffer = [](const Box& box) { return box.detail.ends_with("\\b"); };
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(said(), Texts(2, moveQuestion));
    EXPECT_EQ(
        machine.moved,
        (std::vector<std::pair<std::string, std::string>>{
            {"C:\\c", "E:\\spare\\c"}, {"C:\\b", "E:\\spare\\b"}, {"C:\\a", "E:\\spare\\a"}}));
    EXPECT_EQ(alertRows().size(), 3u);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(ManualMoveTest, TheFolderChosenForTheRestIsAskedForOnce) {
    for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag);
    machine.folders.insert("e:\\other\\");
    machine.folders.insert("e:\\other");
    host.answers = {BoxAnswer::no};
    host.paths = {"E:\\other\\"};
    host.takesOffer = [](const Box&) { return true; };
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(host.dialogs, Texts{"Select Folder/Path"});
    ASSERT_EQ(machine.moved.size(), 3u);
    EXPECT_EQ(machine.moved[2].second, "E:\\other\\a");
}

TEST_F(ManualMoveTest, ACancelledBrowserForTheRestMovesNothingAndAsksNoMore) {
    for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag);
    host.answers = {BoxAnswer::no};
    host.takesOffer = [](const Box&) { return true; };
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(said(), Texts{moveQuestion});
    EXPECT_EQ(list.Count(), 3);
    expectNothingMoved();
}

TEST_F(ManualMoveTest, FailuresAreToldOnceWhereTheUserWantsIt) {
    for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag);
    machine.diskFull = true;
    host.answers = {BoxAnswer::yes, BoxAnswer::ok};
    host.takesOffer = [](const Box&) { return true; };
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(said(), (Texts{moveQuestion, moveFailure}));
    EXPECT_EQ(host.offers, (Texts{"Do the same with the other 2 files",
                                  "Don't show this again for the other 2 files"}));
    EXPECT_EQ(alertRows().size(), 3u);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(ManualMoveTest, AnAnswerForTheRestIsForgottenAtTheNextRun) {
    for (const char* tag : {"C:\\a", "C:\\b"}) listedFile(tag);
    host.answers = {BoxAnswer::yes, BoxAnswer::yes, BoxAnswer::yes};
    host.takesOffer = [](const Box&) { return true; };
    form1.cmdMoveAll.userClick();
    for (const char* tag : {"C:\\d", "C:\\e"}) listedFile(tag);
    host.takesOffer = {};
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(said(), Texts(3, moveQuestion));
}

TEST_F(ManualMoveTest, AllOnAnEmptyListIsReported) {
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(order, Texts{"box: No item listed."});
}

TEST_F(ManualMoveTest, AFailureEndsTheRunOfAllWithAMessage) {
    for (const char* tag : {"C:\\a", "C:\\b", "C:\\c"}) listedFile(tag);
    host.answers = {BoxAnswer::yes, BoxAnswer::yes, BoxAnswer::yes};
    machine.log.failCall(3, error::deviceIo);  // whether the second file exists
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(said(),
              (Texts{moveQuestion, moveQuestion, "Unable to move all.  A file may be invalid."}));
    EXPECT_EQ(tags(), (Texts{"C:\\a", "C:\\b"}));
    EXPECT_EQ(machine.moved.size(), 1u);
}

TEST_F(ManualMoveTest, AMoveThatFailsDoesNotEndTheRunOfAll) {
    for (const char* tag : {"C:\\a", "C:\\b"}) listedFile(tag);
    machine.lockedFiles["C:\\b"] = error::permissionDenied;
    host.answers = {BoxAnswer::yes, BoxAnswer::ok, BoxAnswer::yes};
    form1.cmdMoveAll.userClick();
    EXPECT_EQ(said(), (Texts{moveQuestion, moveFailure, moveQuestion}));
    EXPECT_EQ(machine.moved.size(), 1u);
    EXPECT_EQ(list.Count(), 0);
}

}  // namespace
}  // namespace velmora::tests
