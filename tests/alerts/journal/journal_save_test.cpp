// Saving the journal to the log file: the new part at the end of a check, and the whole journal
// when the alert dialog has hidden itself.
#include "alerts/journal/log_rig.h"

#include <algorithm>
#include <chrono>

#include "alerts/journal/alert_list.h"

namespace velmora::tests {
namespace {

TEST(JournalSave, TheFirstSaveOfARunSavesTheWholeJournal) {
    LogRig rig;
    EXPECT_EQ(rig.mark(), "0");
    rig.enter("first");
    rig.log.saveNewEntries();
    EXPECT_EQ(rig.file(), "first\r\n . \r\n\r\n");
    EXPECT_EQ(rig.mark(), "12");
}

TEST(JournalSave, AMarkThatIsEmptyIsATypeMismatchAndSavesNothing) {
    for (const char* mark : {"", "x"}) {
        LogRig rig;
        rig.enter("first");
        rig.journal.setTag(mark);
        EXPECT_EQ(errorOf([&] { rig.log.saveNewEntries(); }), error::typeMismatch) << mark;
        EXPECT_FALSE(rig.hasFile());
        EXPECT_EQ(rig.mark(), mark);
        EXPECT_EQ(rig.steps, LogRig::Steps{});
    }
}

TEST(JournalSave, LaterSavesAppendOnlyWhatIsNewNewestFirst) {
    LogRig rig;
    rig.enter("1");
    rig.log.saveNewEntries();
    rig.enter("2");
    rig.enter("3");
    rig.log.saveNewEntries();
    EXPECT_EQ(rig.file(),
              "1\r\n . \r\n\r\n"
              "3\r\n . \r\n2\r\n . \r\n\r\n");
    EXPECT_EQ(rig.mark(), "24");
}

TEST(JournalSave, NothingNewTouchesNoFile) {
    LogRig rig;
    rig.log.saveNewEntries();
    rig.enter("1");
    rig.log.saveNewEntries();
    rig.steps.clear();
    rig.log.saveNewEntries();
    EXPECT_EQ(rig.steps, LogRig::Steps{});
    EXPECT_EQ(rig.mark(), "8");
}

TEST(JournalSave, CountsCharactersNotBytes) {
    LogRig rig;
    rig.enter("Größe 日本");
    rig.log.saveNewEntries();
    EXPECT_EQ(rig.mark(), "15");
    rig.enter("Zoë 🙂");
    rig.log.saveNewEntries();
    EXPECT_EQ(rig.file(),
              "Größe 日本\r\n . \r\n\r\n"
              "Zoë 🙂\r\n . \r\n\r\n");
    EXPECT_EQ(rig.mark(), "27");
}

TEST(JournalSave, AfterClearOnlyTheExcessOverTheOldLengthIsSaved) {
    LogRig rig;
    rig.journal.setText(std::string(500, 'o'));
    rig.log.saveNewEntries();
    rig.machine.files.clear();
    rig.click("Clear");
    rig.journal.prepend(std::string(499, 'a'));
    rig.log.saveNewEntries();
    rig.journal.prepend("b");
    rig.log.saveNewEntries();
    EXPECT_FALSE(rig.hasFile());
    EXPECT_EQ(rig.mark(), "500");
    rig.journal.prepend("0123456789ABCDEFGHIJ");
    rig.log.saveNewEntries();
    EXPECT_EQ(rig.file(), "0123456789ABCDEFGHIJ\r\n");
    EXPECT_EQ(rig.mark(), "520");
}

TEST(JournalSave, WithAutoSaveOffNothingReachesTheFileByItselfButTheButtonStillSaves) {
    LogRig rig;
    rig.form1.chkAutoSave.setValue(0);
    rig.enter("1");
    rig.log.saveNewEntries();
    rig.log.prcSaveLog();
    EXPECT_FALSE(rig.hasFile());
    EXPECT_EQ(rig.mark(), "0");
    EXPECT_EQ(rig.steps, LogRig::Steps{});
    rig.answer(BoxAnswer::yes);
    rig.click("Save");
    EXPECT_EQ(rig.file(), "1\r\n . \r\n\r\n");
}

TEST(JournalSave, AMissingFileIsNotCreatedByAnAlertLineButByTheSaveAtTheEndOfACheck) {
    LogRig rig;
    fake::FakeNotifyArea notifyArea;
    AlertList alerts{rig.forms, rig.machine.platform(), rig.logFile, notifyArea};
    alerts.prcAlertInfo("20260314 15:09", rating::high, "text", {}, nullptr);
    EXPECT_FALSE(rig.hasFile());
    rig.enter("1");
    rig.log.saveNewEntries();
    alerts.prcAlertInfo("20260314 15:09", rating::high, "text", {}, nullptr);
    EXPECT_EQ(rig.file(),
              "1\r\n . \r\n\r\n"
              "20260314 15:09 | High | text\r\n");
}

TEST(JournalSave, AnEntryWithLineBreaksStaysWholeInTheAlertLine) {
    LogRig rig;
    fake::FakeNotifyArea notifyArea;
    AlertList alerts{rig.forms, rig.machine.platform(), rig.logFile, notifyArea};
    rig.machine.files[rig.path] = "";
    alerts.prcAlertInfo("03/14/26 15:09:26", rating::high, "one\r\n.\r\ntwo", {}, nullptr);
    EXPECT_EQ(rig.file(), "03/14/26 15:09:26 | High | one\r\n.\r\ntwo\r\n");
}

TEST(JournalSave, GoesToTheFileThatTheLabelNames) {
    LogRig rig;
    rig.machine.folders.insert("d:\\logs");
    rig.form1.lblLog.setCaption("D:\\logs\\mine.txt");
    rig.enter("1");
    rig.log.saveNewEntries();
    EXPECT_FALSE(rig.hasFile());
    EXPECT_EQ(rig.machine.files["D:\\logs\\mine.txt"], "1\r\n . \r\n\r\n");
}

TEST(JournalSave, AFailureKeepsTheMarkSoThatTheNextSaveIncludesTheRest) {
    for (const int failure : {error::permissionDenied, error::pathFileAccess}) {
        LogRig rig;
        rig.machine.files[rig.path] = "old\r\n";
        rig.enter("1");
        rig.machine.lockedFiles[rig.path] = failure;
        EXPECT_EQ(errorOf([&] { rig.log.saveNewEntries(); }), failure);
        EXPECT_EQ(rig.mark(), "0");
        EXPECT_EQ(rig.file(), "old\r\n");
        rig.machine.lockedFiles.clear();
        rig.enter("2");
        rig.log.saveNewEntries();
        EXPECT_EQ(rig.file(), "old\r\n2\r\n . \r\n1\r\n . \r\n\r\n");
        EXPECT_EQ(rig.mark(), "16");
    }
}

TEST(JournalSave, AFullDiskLosesNothing) {
    LogRig rig;
    rig.machine.files[rig.path] = "old\r\n";
    rig.enter("1");
    rig.machine.diskFull = true;
    EXPECT_EQ(errorOf([&] { rig.log.saveNewEntries(); }), error::diskFull);
    EXPECT_EQ(errorOf([&] { rig.log.prcSaveLog(); }), error::diskFull);
    EXPECT_EQ(rig.file(), "old\r\n");
    EXPECT_EQ(rig.mark(), "0");
    EXPECT_EQ(rig.journal.Text(), "1\r\n . \r\n");
    rig.machine.diskFull = false;
    rig.log.saveNewEntries();
    EXPECT_EQ(rig.file(), "old\r\n1\r\n . \r\n\r\n");
}

TEST(JournalSave, EachSaveIsOneStep) {
    LogRig rig;
    rig.enter("1");
    rig.log.saveNewEntries();
    EXPECT_EQ(rig.steps, LogRig::Steps{"appendLine " + rig.path});
}

// The fastest of several runs: other work of the machine only makes a run slower.
std::chrono::nanoseconds costOfOneEntry(LogRig& rig) {
    auto best = std::chrono::nanoseconds::max();
    for (int i = 0; i < 20; ++i) {
        rig.enter(std::string(100, 'n'));
        const auto begin = std::chrono::steady_clock::now();
        rig.log.saveNewEntries();
        best = std::min<std::chrono::nanoseconds>(best, std::chrono::steady_clock::now() - begin);
    }
    return best;
}

TEST(JournalSave, CostsAsMuchAsTheNewTextHoweverLongTheJournal) {
    LogRig rig;
    rig.machine.onCall = {};
    for (int i = 0; i < 10; ++i) rig.enter(std::string(100, 'x'));
    rig.log.saveNewEntries();
    const auto atTen = costOfOneEntry(rig);
    for (int i = 0; i < 100'000; ++i) rig.enter(std::string(100, 'x'));
    rig.log.saveNewEntries();
    // Joining ten million characters takes a millisecond and more.
    EXPECT_LT(costOfOneEntry(rig), 10 * atTen + std::chrono::microseconds(300));
    EXPECT_EQ(rig.mark(), std::to_string(100'050 * 107));
}

TEST(JournalSave, TheDialogsSaveWritesTheWholeJournalOnceMoreAndLeavesTheMark) {
    LogRig rig;
    rig.enter("1");
    rig.log.saveNewEntries();
    rig.enter("2");
    rig.log.prcSaveLog();
    EXPECT_EQ(rig.file(),
              "1\r\n . \r\n\r\n"
              "2\r\n . \r\n1\r\n . \r\n\r\n");
    EXPECT_EQ(rig.mark(), "8");
}

TEST(JournalSave, TheDialogsSaveGoesToTheProgramsFolderEvenIfTheLabelNamesAnother) {
    LogRig rig;
    rig.machine.folders.insert("d:\\logs");
    rig.form1.lblLog.setCaption("D:\\logs\\mine.txt");
    rig.enter("1");
    rig.log.prcSaveLog();
    EXPECT_EQ(rig.file(), "1\r\n . \r\n\r\n");
    EXPECT_EQ(rig.machine.files.count("D:\\logs\\mine.txt"), 0u);
}

TEST(JournalSave, TheDialogsSaveAcceptsEveryTextAlsoCharactersThatNoFileNameHas) {
    for (const std::string text :
         {"", "C:\\Program Files\\Velmora\\log.dat", "a*?<>|\":/\r\n\t", "C:\\gone.txt"}) {
        LogRig rig;
        rig.machine.files[rig.path] = "";
        rig.journal.setText(text);
        EXPECT_NO_THROW(rig.log.prcSaveLog()) << text;
        EXPECT_EQ(rig.file(), text + "\r\n");
        EXPECT_EQ(rig.steps, LogRig::Steps{"appendLine " + rig.path});
    }
}

TEST(JournalSave, TheDialogsSavePassesItsFailureOn) {
    LogRig rig;
    rig.enter("1");
    rig.machine.lockedFiles[rig.path] = error::permissionDenied;
    EXPECT_EQ(errorOf([&] { rig.log.prcSaveLog(); }), error::permissionDenied);
    EXPECT_EQ(rig.mark(), "0");
    EXPECT_EQ(rig.journal.Text(), "1\r\n . \r\n");
}

}  // namespace
}  // namespace velmora::tests
