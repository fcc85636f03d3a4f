// Recycling, sound, bin, programs, mail, cleaner, pause, and the entries without an action.
#include "alerts/actions/action_rig.h"
#include "rows/listed_file.h"
#include "rows/watch_row.h"

namespace velmora::tests {
namespace {

using Calls = std::vector<std::string>;

struct SmallActionsTest : testing::Test, ActionRig {};

TEST_F(SmallActionsTest, EntriesWithoutAnActionOfTheirOwnDoNothing) {
    listFile("C:\\a");
    selectFiles();
    for (const int action : {act::alert, act::progressDialog, 12, 15, -1}) {
        EXPECT_EQ(errorOf(action), 0);
    }
    EXPECT_EQ(machine.log.count(), 0);
    EXPECT_EQ(alertCount(), 0);
    EXPECT_EQ(strAlert(), shortageText);
    EXPECT_EQ(listed(), "C:\\a");
    EXPECT_TRUE(done.empty());
}

TEST_F(SmallActionsTest, TheFirstListedFileGoesToTheBinWhicheverDriveItLiesOn) {
    listFile("D:\\1");
    listFile("C:\\2");
    run(act::recycle);
    EXPECT_EQ(machine.log.calls(), Calls{"SHFileOperationA 3 64 D:\\1"});
    EXPECT_EQ(machine.recycled, Calls{"D:\\1"});
    EXPECT_EQ(listed(), "C:\\2");
    EXPECT_TRUE(host.notes.empty());
}

TEST_F(SmallActionsTest, TheNoteOfTheBinNamesTheFileAtTheShortRowsOwnIndex) {
    watch("D:\\");
    shortOf(2);
    for (const char* path : {"C:\\1", "C:\\2", "C:\\3"}) listFile(path);
    run(act::recycle);
    EXPECT_EQ(machine.recycled, Calls{"C:\\1"});
    EXPECT_EQ(alert(1), note("Auto send file to recycle bin: C:\\3"));
    EXPECT_EQ(alertCount(), 1);
    EXPECT_EQ(shortage->strNote, "");
    EXPECT_EQ(strAlert(), shortageText);
}

TEST_F(SmallActionsTest, AListThatIsTooShortForTheNoteFailsAfterTheFileWasSent) {
    listFile("C:\\1");
    EXPECT_EQ(errorOf(act::recycle), error::indexOutOfBounds);
    EXPECT_EQ(machine.recycled, Calls{"C:\\1"});
    EXPECT_EQ(listed(), "");
    EXPECT_EQ(alertCount(), 0);
}

TEST_F(SmallActionsTest, AnEmptyListFailsBeforeAnythingIsSent) {
    EXPECT_EQ(errorOf(act::recycle), error::indexOutOfBounds);
    EXPECT_EQ(machine.log.count(), 0);
}

TEST_F(SmallActionsTest, TheBinsResultIsIgnored) {
    machine.operationResult = 1223;
    listFile("C:\\1");
    listFile("C:\\2");
    EXPECT_EQ(errorOf(act::recycle), 0);
    EXPECT_EQ(listed(), "C:\\2");
    EXPECT_TRUE(exists("C:\\1"));
    EXPECT_EQ(alert(1), note("Auto send file to recycle bin: C:\\2"));
    EXPECT_EQ(host.notes, Calls{"Not sent to the recycle bin: C:\\1: it was cancelled (1223)"});
}

TEST_F(SmallActionsTest, AFailureOfTheBinIsNotedAlsoWhereTheAlertFails) {
    machine.operationResult = 5;
    listFile("C:\\1");
    EXPECT_EQ(errorOf(act::recycle), error::indexOutOfBounds);
    EXPECT_EQ(host.notes, Calls{"Not sent to the recycle bin: C:\\1: it may not be removed, or its "
                                "drive has no recycle bin (5)"});
}

TEST_F(SmallActionsTest, InAProgramThatKeepsRunningAFailureOfTheBinIsAnAlertBehindTheReport) {
    machine.platform().app.Options.keepRunning = true;
    machine.operationResult = 5;
    const std::string why =
        "Not sent to the recycle bin: C:\\1: it may not be removed, or its drive "
        "has no recycle bin (5)";
    listFile("C:\\1");
    listFile("C:\\2");
    run(act::recycle);
    EXPECT_EQ(alertCount(), 2);
    EXPECT_EQ(alert(2), note("Auto send file to recycle bin: C:\\2"));
    const ConstAlertRow added(forms.form1.LVAlert.ListItems(1));
    EXPECT_EQ(added.time(), minutes);
    EXPECT_EQ(added.rating(), rating::high);
    EXPECT_EQ(added.text(), why);
    EXPECT_EQ(host.notes, Calls{why});
}

TEST_F(SmallActionsTest, ThereIsNoSuchAlertAfterASuccess) {
    machine.platform().app.Options.keepRunning = true;
    listFile("C:\\1");
    listFile("C:\\2");
    run(act::recycle);
    EXPECT_EQ(alertCount(), 1);
    EXPECT_TRUE(host.notes.empty());
}

TEST_F(SmallActionsTest, ADrivesRootIsNeverSentToTheBinAndKeepsNoOtherFromItsTurn) {
    listMissing("D:\\");
    for (const char* path : {"C:\\2", "C:\\3"}) listFile(path);
    run(act::recycle);
    EXPECT_TRUE(machine.operations.empty());
    EXPECT_EQ(listed(), "C:\\2 C:\\3");
    EXPECT_EQ(alert(1), note("Auto send file to recycle bin: C:\\2"));
    EXPECT_EQ(host.notes, Calls{"Not sent to the recycle bin: D:\\: it may not be removed, or its "
                                "drive has no recycle bin (5)"});
    run(act::recycle);
    EXPECT_EQ(machine.recycled, Calls{"C:\\2"});
}

// None of them is sent, and the row behind each has its turn at the next check.
TEST_F(SmallActionsTest, WhatIsNeverSentToTheBinIsPassedOverInAnySpelling) {
    machine.folders.insert("c:\\...");
    machine.files["C:\\data\\..\\2"] = "x";
    const std::string twoPaths("C:\\2\0C:\\3", 9);
    for (const std::string& path :
         {std::string("\\\\server\\share"), std::string("//server/share"),
          std::string("\\\\server/share/"), std::string("\\\\?\\UNC\\server\\share"),
          std::string("\\\\.\\C:\\2"), std::string("\\\\server"), std::string("C:\\..."),
          std::string("C:\\data\\..\\2"), std::string("C:\\*"), std::string("2"), twoPaths}) {
        files.Clear();
        listMissing(path);
        for (const char* next : {"C:\\2", "C:\\3"}) listFile(next);
        host.notes.clear();
        EXPECT_EQ(errorOf(act::recycle), 0) << path;
        EXPECT_EQ(listed(), "C:\\2 C:\\3") << path;
        EXPECT_EQ(host.notes.size(), 1u) << path;
    }
    EXPECT_TRUE(machine.operations.empty());
    EXPECT_TRUE(exists("C:\\2"));
    EXPECT_TRUE(exists("C:\\3"));
}

TEST_F(SmallActionsTest, TheRowOfTheSentFileIsRemovedEvenIfTheListWasSortedMeanwhile) {
    for (const char* path : {"C:\\1", "C:\\2", "C:\\3"}) listFile(path);
    machine.onCall = [this](const std::string& call) {
        if (call.starts_with("SHFileOperationA")) files.sortBy(0, 1);
    };
    run(act::recycle);
    EXPECT_EQ(machine.recycled, Calls{"C:\\1"});
    EXPECT_EQ(listed(), "C:\\3 C:\\2");
}

TEST_F(SmallActionsTest, NoOtherRowIsRemovedWhenThatOfTheSentFileIsGoneAlready) {
    for (const char* path : {"C:\\1", "C:\\2", "C:\\3"}) listFile(path);
    machine.onCall = [this](const std::string& call) {
        if (call.starts_with("SHFileOperationA")) files.Remove(1);
    };
    run(act::recycle);
    EXPECT_EQ(machine.recycled, Calls{"C:\\1"});
    EXPECT_EQ(listed(), "C:\\2 C:\\3");
}

TEST_F(SmallActionsTest, NotesBelongToNoRow) {
    // A repeat of the row's first alert would be dropped.
    WatchRow(list.ListItems(1)).setFirstAlert("Recycle Bin Content Emptied.");
    run(act::emptyBin);
    EXPECT_EQ(alertCount(), 1);
}

TEST_F(SmallActionsTest, TheChosenSoundIsPlayedToItsEnd) {
    form1.txtAudio[0].setText("C:\\ring.wav");
    machine.files["C:\\ring.wav"] = "";
    run(act::sound);
    ASSERT_EQ(machine.played.size(), 1u);
    EXPECT_EQ(machine.played[0].first, "C:\\ring.wav");
    EXPECT_EQ(machine.played[0].second, 2);
    EXPECT_EQ(alertCount(), 0);
    EXPECT_EQ(strAlert(), shortageText);
}

TEST_F(SmallActionsTest, WithoutTheChosenSoundTheOneInTheProgramsFolderIsPlayed) {
    form1.txtAudio[1].setText("C:\\second.wav");
    machine.files["C:\\second.wav"] = "";
    for (const char* name : {"C:\\gone.wav", ""}) {
        machine.played.clear();
        form1.txtAudio[0].setText(name);
        run(act::sound);
        ASSERT_EQ(machine.played.size(), 1u);
        EXPECT_EQ(machine.played[0].first, "C:\\Program Files\\Velmora\\sound\\alert.WAV");
        EXPECT_EQ(machine.played[0].second, 2);
    }
}

TEST_F(SmallActionsTest, EmptyingTheBinLetsTheSystemAskForAllDrives) {
    run(act::emptyBin);
    ASSERT_EQ(machine.emptied.size(), 1u);
    EXPECT_EQ(machine.emptied[0].root, "");
    EXPECT_EQ(machine.emptied[0].flags, 0u);
    EXPECT_EQ(alert(1), note("Recycle Bin Content Emptied."));
    EXPECT_EQ(shortage->strNote, "");
    EXPECT_EQ(strAlert(), shortageText);
}

TEST_F(SmallActionsTest, EveryListedFileIsOpenedAndStaysListed) {
    listFile("D:\\a.exe");
    listMissing("C:\\gone.exe");
    form1.LVProg.Add("program").setTag("C:\\prog.exe");
    form1.cboProg.AddItem("C:\\prog.exe");
    machine.files["C:\\prog.exe"] = "";
    run(act::run);
    ASSERT_EQ(machine.executed.size(), 1u);
    const fake::FakeExecution& order = machine.executed[0];
    EXPECT_EQ(order.owner, "Form1");
    EXPECT_EQ(order.verb, "open");
    EXPECT_EQ(order.file, "D:\\a.exe");
    EXPECT_EQ(order.parameters, "0");
    EXPECT_EQ(order.directory, "");
    EXPECT_EQ(order.showCommand, 1);
    const std::string text =
        " - ALERT - Specified Program Executed: \r\nD:\\a.exe\r\n"
        " - Specified Program Execution Failed (File Does Not Exist): \r\nC:\\gone.exe\r\n";
    EXPECT_EQ(strAlert(), text);
    EXPECT_EQ(alert(1), note(text));
    EXPECT_EQ(alertCount(), 1);
    EXPECT_EQ(shortage->strNote, "");
    EXPECT_EQ(listed(), "D:\\a.exe C:\\gone.exe");
}

TEST_F(SmallActionsTest, AListedFolderIsNoProgram) {
    listFolder("C:\\tools", {});
    run(act::run);
    EXPECT_TRUE(machine.executed.empty());
    EXPECT_EQ(alert(1), note(" - ALERT - Specified Program Execution Failed (File Does Not "
                             "Exist): \r\nC:\\tools\r\n"));
}

TEST_F(SmallActionsTest, WithoutListedFilesTheRunningTextIsRepeatedUnchanged) {
    run(act::run);
    EXPECT_EQ(alert(1), note(shortageText));
    EXPECT_EQ(strAlert(), shortageText);
}

TEST_F(SmallActionsTest, AProgramThatTheSystemRefusesCountsAsExecuted) {
    machine.executes = false;
    listFile("C:\\a.exe");
    EXPECT_EQ(errorOf(act::run), 0);
    EXPECT_EQ(strAlert(), " - ALERT - Specified Program Executed: \r\nC:\\a.exe\r\n");
}

TEST_F(SmallActionsTest, TheMailIsSentOnceAndReportedThen) {
    int sendings = 0;
    forms.frmNotify.SendEmail.connect([&] {
        ++sendings;
        EXPECT_EQ(alertCount(), 0);
    });
    run(act::mail);
    EXPECT_EQ(sendings, 1);
    EXPECT_EQ(alert(1), note("Notification Email Sent."));
    EXPECT_EQ(alertCount(), 1);
    EXPECT_EQ(strAlert(), shortageText);
}

TEST_F(SmallActionsTest, AnErrorOfTheSendingGoesToTheCallerWithoutAReport) {
    forms.frmNotify.SendEmail.connect([] { throw RuntimeError(error::overflow); });
    EXPECT_EQ(errorOf(act::mail), error::overflow);
    EXPECT_EQ(alertCount(), 0);
}

TEST_F(SmallActionsTest, NoOtherActionSendsMail) {
    forms.frmNotify.SendEmail.connect([] { ADD_FAILURE(); });
    for (const int action : {act::sound, act::emptyBin, act::cleaner, act::pause}) run(action);
}

TEST_F(SmallActionsTest, TheCleanerGetsTheLetterOfTheRowsDrive) {
    machine.folders.insert("c:\\data");
    for (const char* path : {"C:\\", "c:\\", "C:\\data"}) {
        shortRowWatches(path);
        run(act::cleaner);
        EXPECT_EQ(machine.executed.back().file, "cleanmgr");
        EXPECT_EQ(machine.executed.back().parameters, " /d C  /sagerun: 12");
        EXPECT_EQ(alert(1), note("Clean Manager Called."));
    }
    EXPECT_EQ(alertCount(), 3);
    EXPECT_EQ(strAlert(), shortageText);
}

TEST_F(SmallActionsTest, TheCleanerGetsATextThatNamesNothingUnchanged) {
    for (const char* path : {"C:\\gone", "//host/share"}) {
        shortRowWatches(path);
        machine.log.clear();
        run(act::cleaner);
        EXPECT_EQ(machine.executed.back().parameters,
                  " /d " + std::string(path) + "  /sagerun: 12");
        EXPECT_EQ(machine.log.countOf("GetDrive"), 0);
    }
}

TEST_F(SmallActionsTest, ATextWithTwoSlashesInFrontIsNotLookedUp) {
    shortRowWatches("//host/share");
    run(act::cleaner);
    EXPECT_EQ(machine.log.countOf("F"), 0);
}

TEST_F(SmallActionsTest, AShareHasNoLetterForTheCleaner) {
    machine.drives["\\\\host\\share"] = {};
    shortRowWatches("\\\\host\\share");
    run(act::cleaner);
    EXPECT_EQ(machine.executed.back().parameters, "  /sagerun: 12");
}

TEST_F(SmallActionsTest, PausingStopsTheTimerAndThenClicksThePauseButton) {
    EXPECT_TRUE(form1.Timer1.Enabled());
    run(act::pause);
    EXPECT_EQ(done, Calls{"pause, stopped"});
    EXPECT_EQ(alert(1), note("Program paused by user option to pause on alert event."));
    EXPECT_EQ(alertCount(), 1);
    EXPECT_EQ(shortage->strNote, "");
    EXPECT_EQ(strAlert(), shortageText);
}

TEST_F(SmallActionsTest, NotesAreStampedWithTheirOwnTime) {
    machine.now = {2027, 11, 5, 6, 7, 8};
    run(act::emptyBin);
    EXPECT_EQ(alert(1), "High | 11/05/27 06:07:08 | Recycle Bin Content Emptied.");
}

TEST_F(SmallActionsTest, ARowThatIsGoneHasNoCleaner) {
    list.Clear();
    EXPECT_EQ(errorOf(act::cleaner), error::indexOutOfBounds);
    EXPECT_TRUE(machine.executed.empty());
}

TEST_F(SmallActionsTest, WithAnotherRowInItsPlaceNoCleanerIsStarted) {
    watch("D:\\");
    list.Remove(1);
    EXPECT_EQ(errorOf(act::cleaner), error::indexOutOfBounds);
    EXPECT_TRUE(machine.executed.empty());
}

}  // namespace
}  // namespace velmora::tests
