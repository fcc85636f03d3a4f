// The form of the watch: what it reports of a change, and its buttons.
#include "base/errors.h"
#include "inspect/wait_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

// The fake clock's start, 2026-03-14 15:09:26.
const std::string logged = "Change Logged At: 15:09:26\r\n";
const std::string stamped = "2026/03/14 15:09:26 | High | ";
const std::string undetected =
    " changed but unable to detect changed file(s).  The change may have already been detected in "
    "the last notification.";
const std::string unfound = "Unable to finde changed file.\r\n";

std::string block(const std::string& word, const std::string& name) {
    return "Change Type: " + word + "\r\n  C:\\data\\" + name + "\r\n";
}

// A report as the form and the alert show it.
void expectReport(WaitRig& rig, const std::string& report) {
    EXPECT_EQ(rig.form.txChanges.Text(), logged + report + "\r\n");
    EXPECT_EQ(rig.form.txChanges.SelStart(), rig.form.txChanges.textLength());
    EXPECT_EQ(rig.alerts.texts, Texts{stamped + report});
    EXPECT_EQ(rig.host.beeps, 1);
}

TEST(ReportedChange, ANewNameIsReportedAndKnownFromThenOn) {
    for (const std::int32_t type : {change::name, change::dirName}) {
        WaitRig rig;
        rig.add("a.txt");
        rig.snapshot();
        rig.add("b.txt");
        rig.waitTest.m_oWatchDir_ChangeDetected(type);
        expectReport(rig, block(fChangeTypeText(type), "b.txt"));
        EXPECT_EQ(rig.waitTest.aFiles.size(), 2u);
    }
}

TEST(ReportedChange, WithoutANewNameNoSnapshotIsTaken) {
    WaitRig rig;
    rig.add("a.txt");
    rig.snapshot();
    rig.entries[0].nFileSize = 99;
    rig.waitTest.m_oWatchDir_ChangeDetected(change::name);
    EXPECT_EQ(rig.waitTest.aFiles[0].nFileSize, 5u);
    expectReport(rig, "Name" + undetected);
    EXPECT_EQ(rig.machine.log.countOf("FindFirstFileA"), 1);
}

TEST(ReportedChange, NewNamesKeepNewTimesOutOfTheReport) {
    WaitRig rig;
    rig.add("a.txt");
    rig.snapshot();
    rig.entries[0].ftLastWriteTime = referenceTime + 5;
    rig.add("b.txt", referenceTime + 5);
    rig.waitTest.m_oWatchDir_ChangeDetected(change::name | change::lastWrite);
    expectReport(rig, block("Name & Last Write", "b.txt"));
}

TEST(ReportedChange, WithoutChangedNamesTheTimesAreReportedIfTheirBitIsSet) {
    for (const std::int32_t type :
         {change::name | change::size, change::dirName | change::lastWrite}) {
        WaitRig rig;
        rig.add("a.txt");
        rig.snapshot();
        rig.entries[0].ftLastWriteTime = referenceTime + 5;
        rig.waitTest.m_oWatchDir_ChangeDetected(type);
        expectReport(rig, block(fChangeTypeText(type), "a.txt"));
    }
}

TEST(ReportedChange, WithoutChangedNamesTheLastResortIsReported) {
    WaitRig rig;
    rig.add("a.txt", referenceTime + 5);
    rig.snapshot();
    rig.waitTest.m_oWatchDir_ChangeDetected(change::name | change::dirName);
    expectReport(rig, "Name & Dir Name" + undetected);
}

TEST(ReportedChange, AChangeOfSizeOrTimeLooksAtTheTimesOnly) {
    for (const std::int32_t type :
         {change::size, change::lastWrite, change::size | change::lastWrite}) {
        WaitRig rig;
        rig.add("new name.txt", referenceTime + 5);
        rig.waitTest.m_oWatchDir_ChangeDetected(type);
        expectReport(rig, block(fChangeTypeText(type), "new name.txt"));
        EXPECT_TRUE(rig.waitTest.aFiles.empty());
        EXPECT_EQ(rig.machine.log.countOf("FindFirstFileA"), 1);
    }
}

TEST(ReportedChange, WithoutChangedTimesTheLastResortIsReported) {
    WaitRig rig;
    rig.add("a.txt");
    rig.waitTest.m_oWatchDir_ChangeDetected(change::lastWrite);
    expectReport(rig, "Last Write" + undetected);
}

TEST(ReportedChange, AFolderThatCantBeReadEndsInTheLastResort) {
    for (const std::int32_t type : {1, 2, 4, 8, 15}) {
        WaitRig rig;
        rig.waitTest.sWatchPath = "C:\\missing";
        rig.waitTest.m_oWatchDir_ChangeDetected(type);
        expectReport(rig, fChangeTypeText(type) + undetected);
    }
}

TEST(ReportedChange, AnUnknownKindIsAFileThatCouldntBeFound) {
    for (const std::int32_t type : {0, 16, 256}) {
        WaitRig rig;
        rig.add("a.txt", referenceTime + 5);
        rig.waitTest.m_oWatchDir_ChangeDetected(type);
        expectReport(rig, unfound);
        EXPECT_EQ(rig.machine.log.count(), 0);
    }
}

TEST(ReportedChange, ReportsStandOneAfterTheOther) {
    WaitRig rig;
    rig.form.txChanges.setText("before\r\n");
    rig.waitTest.m_oWatchDir_ChangeDetected(0);
    rig.machine.now = {2026, 11, 2, 3, 4, 5};
    rig.waitTest.m_oWatchDir_ChangeDetected(0);
    EXPECT_EQ(rig.form.txChanges.Text(), "before\r\n" + logged + unfound + "\r\n" +
                                             "Change Logged At: 03:04:05\r\n" + unfound + "\r\n");
    EXPECT_EQ(rig.alerts.texts[1], "2026/11/02 03:04:05 | High | " + unfound);
    EXPECT_EQ(rig.host.beeps, 2);
}

TEST(ReportedChange, TheTextComesBeforeTheAlertAndThatBeforeTheBeep) {
    WaitRig rig;
    rig.alerts.onAlert = [&] {
        EXPECT_EQ(rig.form.txChanges.Text(), logged + unfound + "\r\n");
        EXPECT_EQ(rig.host.beeps, 0);
    };
    rig.waitTest.m_oWatchDir_ChangeDetected(0);
    EXPECT_EQ(rig.host.beeps, 1);
}

TEST(ReportedChange, AnAlertThatFailsIsTheCallersWithTheTextWritten) {
    WaitRig rig;
    rig.alerts.refuses = true;
    EXPECT_EQ(errorOf([&] { rig.waitTest.m_oWatchDir_ChangeDetected(0); }), 70);
    EXPECT_EQ(rig.form.txChanges.Text(), logged + unfound + "\r\n");
    EXPECT_EQ(rig.host.beeps, 0);
}

TEST(ReportedChange, TheReferenceStaysSoThatTheSameFileIsReportedAgain) {
    WaitRig rig;
    rig.add("a.txt", referenceTime + 5);
    rig.waitTest.m_oWatchDir_ChangeDetected(change::lastWrite);
    rig.waitTest.m_oWatchDir_ChangeDetected(change::lastWrite);
    EXPECT_EQ(rig.forms.globals.lastFileTime, referenceTime);
    EXPECT_EQ(rig.alerts.texts, (Texts(2, stamped + block("Last Write", "a.txt"))));
}

TEST(ReportedChange, EveryQuestionMayFailAndNoListingStaysOpen) {
    const auto run = [](int n) {
        WaitRig rig;
        rig.add("a.txt");
        rig.snapshot();
        rig.add("b.txt");
        rig.entries[0].ftLastWriteTime = referenceTime + 5;
        if (n > 0) rig.machine.log.failCall(n, 5);
        rig.waitTest.m_oWatchDir_ChangeDetected(15);
        EXPECT_EQ(rig.machine.openListings, 0);
        EXPECT_EQ(rig.alerts.texts.size(), 1u);
        EXPECT_EQ(rig.host.beeps, 1);
        EXPECT_EQ(rig.forms.globals.lastFileTime, referenceTime);
        return rig.machine.log.count();
    };
    const int questions = run(0);
    ASSERT_EQ(questions, 8);
    for (int n = 1; n <= questions; ++n) {
        SCOPED_TRACE(n);
        run(n);
    }
}

TEST(WatchedFolder, NothingIsWatchedAtTheStart) {
    WaitRig rig;
    EXPECT_EQ(rig.waitTest.m_oWatchDir(), nullptr);
    EXPECT_TRUE(rig.waitTest.aFiles.empty());
    EXPECT_TRUE(rig.form.cmdStartWatch.Enabled());
    EXPECT_FALSE(rig.form.cmdStopWatch.Enabled());
}

TEST(WatchedFolder, ThePollOfAWatcherReportsTheChange) {
    WaitRig rig;
    cWatchForChanges& watcher = rig.watch();
    rig.add("a.txt", referenceTime + 5);
    rig.machine.notifications[13] = 1;
    watcher.prcPollChanges();
    expectReport(rig, block("Last Write", "a.txt"));
}

TEST(WatchedFolder, StoppingEndsTheWatchAndTurnsTheButtonsRound) {
    WaitRig rig;
    rig.watch();
    rig.form.cmdStartWatch.setEnabled(false);
    rig.form.cmdSelectDir.setEnabled(false);
    rig.form.cmdStopWatch.setEnabled(true);
    rig.form.cmdStopWatch.userClick();
    EXPECT_EQ(rig.waitTest.m_oWatchDir(), nullptr);
    EXPECT_TRUE(rig.machine.notifications.empty());
    EXPECT_EQ(rig.machine.log.countOf("DestroyWindow 9"), 1);
    EXPECT_TRUE(rig.form.cmdStartWatch.Enabled());
    EXPECT_TRUE(rig.form.cmdSelectDir.Enabled());
    EXPECT_FALSE(rig.form.cmdStopWatch.Enabled());
}

TEST(WatchedFolder, StoppingKeepsTheSnapshot) {
    WaitRig rig;
    rig.add("a.txt");
    rig.snapshot();
    rig.watch();
    rig.form.cmdStopWatch.Click();
    EXPECT_EQ(rig.waitTest.aFiles.size(), 1u);
}

TEST(WatchedFolder, StoppingWithoutAWatchTurnsTheButtonsOnly) {
    WaitRig rig;
    rig.form.cmdStartWatch.setEnabled(false);
    rig.form.cmdStopWatch.Click();
    EXPECT_TRUE(rig.form.cmdStartWatch.Enabled());
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST(WatchedFolder, TheOtherButtonsDoNothing) {
    WaitRig rig;
    rig.form.cmdStartWatch.userClick();
    rig.form.cmdSelectDir.userClick();
    EXPECT_EQ(rig.waitTest.m_oWatchDir(), nullptr);
    EXPECT_TRUE(rig.form.cmdStartWatch.Enabled());
    EXPECT_TRUE(rig.form.cmdSelectDir.Enabled());
    EXPECT_FALSE(rig.form.cmdStopWatch.Enabled());
    EXPECT_EQ(rig.machine.log.count(), 0);
    EXPECT_TRUE(rig.host.dialogs.empty());
}

TEST(WatchedFolder, AnotherWatcherEndsTheOneBefore) {
    WaitRig rig;
    rig.watch();
    cWatchForChanges& second =
        rig.waitTest.watchBy(std::make_unique<cWatchForChanges>(rig.kernel32, rig.user32));
    EXPECT_EQ(rig.waitTest.m_oWatchDir(), &second);
    EXPECT_TRUE(rig.machine.notifications.empty());
}

TEST(WatchedFolder, UnloadingTheFormReleasesTheWatcherAndErasesTheSnapshot) {
    WaitRig rig;
    rig.add("a.txt");
    rig.snapshot();
    rig.watch();
    rig.form.Show();
    rig.form.userClose();
    EXPECT_EQ(rig.waitTest.m_oWatchDir(), nullptr);
    EXPECT_TRUE(rig.machine.notifications.empty());
    EXPECT_TRUE(rig.waitTest.aFiles.empty());
    EXPECT_FALSE(rig.form.Visible());
}

TEST(WatchedFolder, TheEndOfTheProgramReleasesTheWatcher) {
    WaitRig rig;
    {
        WaitTest other(rig.forms.frmWaitTest, rig.forms.globals, rig.machine.platform(), rig.host,
                       rig.alerts);
        rig.takeHandles(
            other.watchBy(std::make_unique<cWatchForChanges>(rig.kernel32, rig.user32)));
    }
    EXPECT_TRUE(rig.machine.notifications.empty());
}

TEST(WatchedFolder, ScanningNeverShowsTheForm) {
    WaitRig rig;
    rig.add("a.txt", referenceTime + 5);
    EXPECT_NE(rig.changedTimes(), "");
    EXPECT_FALSE(rig.form.Visible());
    EXPECT_EQ(rig.form.txChanges.Text(), "");
    EXPECT_TRUE(rig.alerts.texts.empty());
}

}  // namespace
}  // namespace velmora::tests
