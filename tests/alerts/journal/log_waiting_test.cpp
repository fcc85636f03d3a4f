// A program that keeps running: what can't be written to the log file waits.
#include "alerts/alert_rig.h"
#include "alerts/journal/log_rig.h"

namespace velmora::tests {
namespace {

struct WaitingLog : testing::Test, AlertRig {
    WaitingLog() {
        machine.platform().app.Options.keepRunning = true;
        keepLog();
    }

    static std::string lineOf(const std::string& text, const std::string& rating = "High") {
        return "20260314 15:09 | " + rating + " | " + text + "\r\n";
    }
    const std::string trouble =
        "Log file can't be written: Disk full: C:\\Program Files\\Velmora\\log.dat. Its lines wait "
        "until it can.";
};

TEST_F(WaitingLog, AnAlertIsListedAndTheLineIsWrittenWhenThereIsRoomAgain) {
    machine.diskFull = true;
    raise("A");
    EXPECT_EQ(text(2), "A");
    EXPECT_EQ(raised(), 2);
    EXPECT_EQ(log(), "");
    machine.diskFull = false;
    raise("B");
    EXPECT_EQ(log(), lineOf("A") + lineOf(trouble) + lineOf("B"));
    EXPECT_EQ(logFile.waiting(), 0u);
}

TEST_F(WaitingLog, ItIsToldOnceAndAgainOnlyAfterItWasWritten) {
    machine.diskFull = true;
    for (const char* each : {"A", "B", "C"}) raise(each);
    EXPECT_EQ(texts(), "C B " + trouble + " A");
    EXPECT_EQ(ConstAlertRow(list.ListItems(3)).rating(), "High");
    machine.diskFull = false;
    raise("D");
    machine.diskFull = true;
    raise("E");
    EXPECT_EQ(texts(), trouble + " E D C B " + trouble + " A");
}

TEST_F(WaitingLog, AFolderThatCantBeWrittenIsNoDifferent) {
    machine.lockedFiles[path] = error::permissionDenied;
    raise("A");
    EXPECT_EQ(text(1).substr(0, 47), "Log file can't be written: Permission denied: C");
    machine.lockedFiles.clear();
    raise("B");
    EXPECT_EQ(logFile.waiting(), 0u);
}

TEST_F(WaitingLog, AThousandLinesWaitAndTheOldestAreLostBeyond) {
    machine.diskFull = true;
    raiseMany(1002);
    EXPECT_EQ(logFile.waiting(), 1000u);
    machine.diskFull = false;
    raise("last");
    // With the line of the trouble, which follows the first, three are lost.
    EXPECT_TRUE(log().starts_with(lineOf("3", "Medium"))) << log().substr(0, 100);
    const std::string end = lineOf("1002", "Medium") +
                            lineOf("Log file is written again; lost lines: 3", "Medium") +
                            lineOf("last");
    EXPECT_TRUE(log().ends_with(end)) << log().substr(log().size() - 200);
}

TEST_F(WaitingLog, AsMuchIsWrittenAsThereIsRoomFor) {
    machine.diskFull = true;
    raise("A");
    raise("B");
    machine.diskFull = false;
    machine.log.failCall(3, error::diskFull);  // after the existence of the file and one line
    raise("C");
    EXPECT_EQ(log(), lineOf("A"));
    raise("D");
    EXPECT_EQ(log(), lineOf("A") + lineOf(trouble) + lineOf("B") + lineOf("C") + lineOf("D"));
}

TEST_F(WaitingLog, AProgramThatWasStartedPlainlyFailsAsEver) {
    machine.platform().app.Options.keepRunning = false;
    machine.diskFull = true;
    EXPECT_EQ(errorOf([this] { raise("A"); }), error::diskFull);
    EXPECT_EQ(texts(), "A");
    EXPECT_EQ(logFile.waiting(), 0u);
    EXPECT_EQ(attemptOf([this] { raise("B"); }), "write to the log file " + path);
}

struct WaitingJournal : testing::Test, LogRig {
    WaitingJournal() {
        machine.platform().app.Options.keepRunning = true;
        machine.files[path] = "";
        logFile.Trouble.connect(
            [this](const LogTrouble& trouble) { told.push_back(trouble.text); });
    }
    std::vector<std::string> told;
};

TEST_F(WaitingJournal, NewEntriesAreSavedLaterAndNoneTwice) {
    machine.diskFull = true;
    enter("one");
    log.saveNewEntries();
    EXPECT_EQ(mark(), "0");
    enter("two");
    log.saveNewEntries();
    EXPECT_EQ(told.size(), 1u);
    machine.diskFull = false;
    log.saveNewEntries();
    log.saveNewEntries();
    EXPECT_EQ(file(), "two\r\n . \r\none\r\n . \r\n\r\n");
}

TEST_F(WaitingJournal, AJournalThatWasOwedIsSavedAtTheNextCheck) {
    machine.diskFull = true;
    enter("one");
    log.prcSaveLog();
    EXPECT_EQ(file(), "");
    machine.diskFull = false;
    log.saveNewEntries();
    EXPECT_EQ(file(), "one\r\n . \r\n\r\none\r\n . \r\n\r\n") << "whole, and then what is new";
    log.saveNewEntries();
    EXPECT_EQ(file(), "one\r\n . \r\n\r\none\r\n . \r\n\r\n");
}

TEST_F(WaitingJournal, ShortLinesThatFitDontTellTheSameTroubleAgain) {
    machine.diskFull = true;
    enter("one");
    log.saveNewEntries();
    for (int check = 0; check < 3; ++check) {
        machine.diskFull = false;
        logFile.appendLine(path, "short");
        machine.diskFull = true;
        log.saveNewEntries();
    }
    EXPECT_EQ(told.size(), 1u);
}

TEST_F(WaitingJournal, LinesOfADeletedLogDontMakeItAgain) {
    machine.diskFull = true;
    logFile.appendLine(path, "a line");
    log.prcSaveLog();
    machine.diskFull = false;
    answer(BoxAnswer::yes);
    click("Delete Log");
    log.saveNewEntries();
    EXPECT_FALSE(hasFile());
}

TEST_F(WaitingJournal, NobodyIsToldOfLostLinesOfADeletedLog) {
    machine.diskFull = true;
    for (int i = 0; i < 1001; ++i) logFile.appendLine(path, "a line");
    machine.diskFull = false;
    answer(BoxAnswer::yes);
    click("Delete Log");
    logFile.appendLine(path, "a line");
    ASSERT_EQ(told.size(), 1u);
    EXPECT_TRUE(told[0].starts_with("Log file can't be written")) << told[0];
}

TEST_F(WaitingJournal, SaveByHandFailsWithWhatWasTriedAndTheFile) {
    machine.diskFull = true;
    enter("one");
    answer(BoxAnswer::yes);
    try {
        click("Save");
        FAIL();
    } catch (const RuntimeError& failure) {
        EXPECT_EQ(failure.number(), error::diskFull);
        EXPECT_EQ(failure.tried(), "save the journal");
        EXPECT_EQ(failure.file(), path);
    }
}

}  // namespace
}  // namespace velmora::tests
