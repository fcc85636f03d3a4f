// The buttons of the log page, and the script for the system's event log.
#include "alerts/journal/log_rig.h"

namespace velmora::tests {
namespace {

using Steps = LogRig::Steps;

TEST(LogButtons, HaveTheirCaptionsAndTips) {
    LogRig rig;
    const struct {
        const char* caption;
        const char* tip;
    } expected[] = {{"Save", "Save the log data"},
                    {"Open Log", "Delete the Log file"},
                    {"Clear", "Clear the present log"},
                    {"Delete Log", "Delete the Log file"}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(rig.form1.lblAl[i].Caption(), expected[i].caption);
        EXPECT_EQ(rig.form1.lblAl[i].ToolTipText(), expected[i].tip);
    }
}

TEST(LogButtons, SaveAsksWithTheWindowNotOnTopAndAppendsTheWholeJournal) {
    LogRig rig;
    rig.machine.files[rig.path] = "old\r\n";
    rig.enter("1");
    rig.enter("2");
    rig.answer(BoxAnswer::yes);
    rig.click("Save");
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, "Save the current Log content?");
    EXPECT_EQ(rig.host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::question);
    EXPECT_EQ(rig.host.boxes[0].title, "Velmora");
    EXPECT_EQ(rig.steps, (Steps{"drop", "box", "restore", "appendLine " + rig.path}));
    EXPECT_EQ(rig.file(), "old\r\n2\r\n . \r\n1\r\n . \r\n\r\n");
}

TEST(LogButtons, SaveCreatesTheFileAndLeavesTheMarkSoThatACheckSavesTheSameOnceMore) {
    LogRig rig;
    rig.enter("1");
    rig.answer(BoxAnswer::yes);
    rig.click("Save");
    EXPECT_EQ(rig.mark(), "0");
    rig.log.saveNewEntries();
    EXPECT_EQ(rig.file(),
              "1\r\n . \r\n\r\n"
              "1\r\n . \r\n\r\n");
}

TEST(LogButtons, SaveOfAnEmptyJournalIsAnEmptyLine) {
    LogRig rig;
    rig.answer(BoxAnswer::yes);
    rig.click("Save");
    EXPECT_EQ(rig.file(), "\r\n");
}

TEST(LogButtons, NoPutsTheWindowBackAndChangesNothing) {
    for (const char* caption : {"Save", "Delete Log"}) {
        LogRig rig;
        rig.machine.files[rig.path] = "old\r\n";
        rig.enter("1");
        rig.answer(BoxAnswer::no);
        rig.click(caption);
        EXPECT_EQ(rig.steps, (Steps{"drop", "box", "restore"}));
        EXPECT_EQ(rig.file(), "old\r\n");
    }
}

TEST(LogButtons, WhatTheJournalGainsDuringTheQuestionIsSavedToo) {
    LogRig rig;
    rig.enter("1");
    rig.answer(BoxAnswer::yes);
    rig.host.onBox = [&](const Box&) { rig.enter("2"); };
    rig.click("Save");
    EXPECT_EQ(rig.file(), "2\r\n . \r\n1\r\n . \r\n\r\n");
}

TEST(LogButtons, OpenLogPassesTheFileToTheEditorWithoutReadingIt) {
    LogRig rig;
    rig.click("Open Log");
    EXPECT_EQ(rig.steps, Steps{"Shell Notepad.exe " + rig.path + " | 1"});
    EXPECT_EQ(rig.machine.started, Steps{"Notepad.exe " + rig.path});
    EXPECT_FALSE(rig.hasFile());
}

TEST(LogButtons, AnEditorThatCantBeStartedIsTheCallersError) {
    LogRig rig;
    rig.machine.startError = error::fileNotFound;
    EXPECT_EQ(errorOf([&] { rig.click("Open Log"); }), error::fileNotFound);
}

TEST(LogButtons, ClearEmptiesJournalAndListAndKeepsFileMarkAndCounters) {
    LogRig rig;
    rig.machine.files[rig.path] = "old\r\n";
    rig.enter("1");
    rig.log.saveNewEntries();
    rig.form1.LVAlert.Add("High");
    rig.form1.LVAlert.Add("Medium");
    rig.forms.globals.lngAlertsRaised = 2;
    rig.forms.globals.lngHighRatedAlerts = 1;
    rig.forms.dlgAlert.Label1.setText("kept");
    const std::string before = rig.file();
    rig.steps.clear();
    rig.click("Clear");
    EXPECT_TRUE(rig.journal.empty());
    EXPECT_EQ(rig.form1.LVAlert.Count(), 0);
    EXPECT_EQ(rig.forms.globals.lngAlertsRaised, 2);
    EXPECT_EQ(rig.forms.globals.lngHighRatedAlerts, 1);
    EXPECT_EQ(rig.mark(), "8");
    EXPECT_EQ(rig.file(), before);
    EXPECT_EQ(rig.forms.dlgAlert.Label1.Text(), "kept");
    EXPECT_EQ(rig.steps, Steps{});
}

TEST(LogButtons, DeleteLogAsksWithTheWindowNotOnTopAndRemovesTheFile) {
    LogRig rig;
    rig.machine.files[rig.path] = "old\r\n";
    rig.enter("1");
    rig.answer(BoxAnswer::yes);
    rig.click("Delete Log");
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, "Proceeding will delete the log file.  Are you sure?");
    EXPECT_EQ(rig.host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::question);
    EXPECT_EQ(rig.steps, (Steps{"drop", "box", "restore", "remove " + rig.path}));
    EXPECT_FALSE(rig.hasFile());
    EXPECT_EQ(rig.journal.Text(), "1\r\n . \r\n");
}

TEST(LogButtons, DeletingAFileThatIsNotThereOrInUseIsAnError) {
    LogRig missing;
    missing.answer(BoxAnswer::yes);
    EXPECT_EQ(errorOf([&] { missing.click("Delete Log"); }), error::fileNotFound);
    LogRig locked;
    locked.machine.files[locked.path] = "old\r\n";
    locked.machine.lockedFiles[locked.path] = error::permissionDenied;
    locked.answer(BoxAnswer::yes);
    EXPECT_EQ(errorOf([&] { locked.click("Delete Log"); }), error::permissionDenied);
    EXPECT_EQ(locked.file(), "old\r\n");
    EXPECT_EQ(locked.steps, (Steps{"drop", "box", "restore", "remove " + locked.path}));
}

TEST(LogButtons, SavingToALockedFileIsAnErrorAndChangesNothing) {
    LogRig rig;
    rig.machine.files[rig.path] = "old\r\n";
    rig.machine.lockedFiles[rig.path] = error::permissionDenied;
    rig.enter("1");
    rig.answer(BoxAnswer::yes);
    EXPECT_EQ(errorOf([&] { rig.click("Save"); }), error::permissionDenied);
    EXPECT_EQ(rig.file(), "old\r\n");
    EXPECT_EQ(rig.mark(), "0");
}

TEST(LogButtons, TheWindowIsOnTopAgainHoweverTheQuestionEnds) {
    for (const char* caption : {"Save", "Delete Log"}) {
        LogRig failing;
        failing.machine.files[failing.path] = "old\r\n";
        failing.host.onBox = [&](const Box&) { throw RuntimeError(error::outOfMemory); };
        EXPECT_EQ(errorOf([&] { failing.click(caption); }), error::outOfMemory);
        EXPECT_EQ(failing.steps, (Steps{"drop", "restore"}));
        EXPECT_EQ(failing.file(), "old\r\n");

        LogRig ending;
        ending.host.onBox = [&](const Box&) { throw ProgramEnd{0}; };
        EXPECT_THROW(ending.click(caption), ProgramEnd);
        EXPECT_EQ(ending.steps, (Steps{"drop", "restore"}));

        LogRig stuck;
        stuck.onTop.failsToDrop = true;
        EXPECT_EQ(errorOf([&] { stuck.click(caption); }), error::invalidCall);
        EXPECT_EQ(stuck.steps, (Steps{"drop", "restore"}));
    }
}

TEST(EventScript, HasThreeLinesWithDoubleQuotesThroughout) {
    LogRig rig;
    const std::string script = "C:\\Program Files\\Velmora\\tmpLogNTEvt.vbs";
    rig.machine.files[script] = std::string(500, 'x');
    EXPECT_EQ(rig.log.prcSetEvt(4, "'It's full'"), "1");
    EXPECT_EQ(rig.machine.files[script],
              "Const EVENT_SUCCESS = 4\r\n"
              "Set objShell = Wscript.CreateObject(\"Wscript.Shell\")\r\n"
              "objShell.LogEvent EVENT_SUCCESS, \"It\"s full\"\r\n");
    ASSERT_EQ(rig.machine.executed.size(), 1u);
    EXPECT_EQ(rig.machine.executed[0].owner, "Form1");
    EXPECT_EQ(rig.machine.executed[0].verb, "open");
    EXPECT_EQ(rig.machine.executed[0].file, script);
    EXPECT_EQ(rig.machine.executed[0].parameters, "0");
    EXPECT_EQ(rig.machine.executed[0].directory, "");
    EXPECT_EQ(rig.machine.executed[0].showCommand, 1);
    EXPECT_EQ(rig.steps, (Steps{"writeOver " + script, "ShellExecuteA open " + script}));
}

TEST(EventScript, LiesWithTheLog) {
    LogRig rig;
    rig.machine.platform().app.DataPath = "C:\\data";
    rig.machine.folders.insert("c:\\data");
    EXPECT_EQ(rig.log.prcSetEvt(4, "x"), "1");
    EXPECT_EQ(rig.machine.files.count("C:\\data\\tmpLogNTEvt.vbs"), 1U);
    EXPECT_EQ(rig.machine.files.count("C:\\Program Files\\Velmora\\tmpLogNTEvt.vbs"), 0U);
    rig.enter("an entry");
    rig.log.prcSaveLog();
    EXPECT_EQ(rig.machine.files.count("C:\\data\\log.dat"), 1U);
    EXPECT_EQ(rig.machine.files.count(rig.path), 0U);
}

TEST(EventScript, AnyAnswerButOneGivesNoAndKeepsTheScript) {
    const std::string script = "C:\\Program Files\\Velmora\\tmpLogNTEvt.vbs";
    for (const int answer : {2, 33, 41, 43}) {
        LogRig rig;
        rig.machine.log.failCall(2, answer);
        EXPECT_EQ(rig.log.prcSetEvt(-1, "''"), "0") << answer;
        ASSERT_EQ(rig.machine.files.count(script), 1u);
        EXPECT_TRUE(rig.machine.files[script].starts_with("Const EVENT_SUCCESS = -1\r\n"));
    }
}

TEST(EventScript, IsNotStartedWhenItCantBeWritten) {
    LogRig rig;
    rig.machine.lockedFiles["C:\\Program Files\\Velmora\\tmpLogNTEvt.vbs"] =
        error::permissionDenied;
    EXPECT_EQ(errorOf([&] { rig.log.prcSetEvt(0, "'x'"); }), error::permissionDenied);
    EXPECT_TRUE(rig.machine.executed.empty());
}

}  // namespace
}  // namespace velmora::tests
