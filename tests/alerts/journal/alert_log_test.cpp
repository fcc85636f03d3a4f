// Writing alerts into the log file.
#include "alerts/alert_rig.h"

namespace velmora::tests {
namespace {

TEST(AlertLog, AnAlertIsALineOfTimeRatingAndText) {
    AlertRig rig;
    rig.keepLog();
    rig.raise("some text", "Medium");
    EXPECT_EQ(rig.log(), "20260314 15:09 | Medium | some text\r\n");
}

TEST(AlertLog, LinesAreAppendedToWhatIsThere) {
    AlertRig rig;
    rig.keepLog();
    rig.machine.files[rig.path] = "before\r\n";
    rig.raise("A");
    rig.raise("B", "Medium");
    EXPECT_EQ(rig.log(), "before\r\n20260314 15:09 | High | A\r\n20260314 15:09 | Medium | B\r\n");
}

TEST(AlertLog, LineBreaksAndQuotesAreWrittenUnchanged) {
    AlertRig rig;
    rig.keepLog();
    rig.raise("a \"b\"\r\n.\r\n");
    EXPECT_EQ(rig.log(), "20260314 15:09 | High | a \"b\"\r\n.\r\n\r\n");
}

TEST(AlertLog, AMissingFileIsNotCreatedAndTheAlertIsListed) {
    AlertRig rig;
    rig.keepLog();
    rig.machine.files.clear();
    rig.raise("A");
    EXPECT_TRUE(rig.machine.files.empty());
    EXPECT_EQ(rig.texts(), "A");
    EXPECT_EQ(rig.raised(), 1);
    EXPECT_TRUE(rig.blinks());
}

TEST(AlertLog, WithoutAutoSaveTheFileIsNotEvenLookedFor) {
    AlertRig rig;
    rig.keepLog();
    rig.form1.chkAutoSave.setValue(0);
    rig.raise("A");
    EXPECT_EQ(rig.log(), "");
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST(AlertLog, TheFileIsTheOneThatTheLabelNames) {
    AlertRig rig;
    rig.keepLog();
    rig.machine.folders.insert("d:\\logs");
    rig.machine.files["D:\\logs\\mine.txt"] = "";
    rig.form1.lblLog.setCaption("D:\\logs\\mine.txt");
    rig.raise("A");
    EXPECT_EQ(rig.log(), "");
    EXPECT_EQ(rig.machine.files["D:\\logs\\mine.txt"], "20260314 15:09 | High | A\r\n");
}

TEST(AlertLog, AnEmptyLabelNamesNoFile) {
    AlertRig rig;
    rig.form1.chkAutoSave.setValue(1);
    rig.raise("A");
    EXPECT_EQ(rig.texts(), "A");
}

TEST(AlertLog, EveryAlertOpensTheFileOnce) {
    AlertRig rig;
    rig.keepLog();
    rig.raiseMany(3);
    EXPECT_EQ(rig.machine.log.countOf("FileExists"), 3);
    EXPECT_EQ(rig.machine.log.countOf("appendLine"), 3);
}

TEST(AlertLog, ALockedFileIsTheCallersErrorWithTheRowAddedAndCounted) {
    AlertRig rig;
    rig.keepLog();
    for (const int number : {70, 75, 61, 57}) {
        rig.machine.lockedFiles[rig.path] = number;
        const int before = rig.raised();
        EXPECT_EQ(errorOf([&] { rig.raise("A"); }), number);
        EXPECT_EQ(rig.raised(), before + 1);
        EXPECT_EQ(rig.high(), before + 1);
        EXPECT_EQ(rig.list.Count(), before + 1);
    }
    // The tray comes after the file.
    EXPECT_FALSE(rig.blinks());
    EXPECT_EQ(rig.log(), "");
}

TEST(AlertLog, AnAlertThatALockedFileRefusedIsARepeatAfterwards) {
    AlertRig rig;
    rig.keepLog();
    rig.machine.lockedFiles[rig.path] = 70;
    EXPECT_EQ(errorOf([&] { rig.raise("A", "High", &rig.row); }), 70);
    rig.machine.lockedFiles.clear();
    rig.raise("A", "High", &rig.row);
    EXPECT_EQ(rig.log(), "");
    rig.raise("B", "High", &rig.row);
    EXPECT_EQ(rig.log(), "20260314 15:09 | High | B\r\n");
}

TEST(AlertLog, WhenACounterOverflowsNoLineIsWritten) {
    AlertRig rig;
    rig.keepLog();
    rig.forms.globals.lngAlertsRaised = 2147483647;
    EXPECT_EQ(errorOf([&] { rig.raise("A"); }), 6);
    EXPECT_EQ(rig.log(), "");
}

}  // namespace
}  // namespace velmora::tests
