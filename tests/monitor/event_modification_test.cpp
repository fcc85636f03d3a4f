// Files that are newer than the last scan.
#include <new>

#include "base/errors.h"
#include "monitor/event_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

struct ScannedFolder : EventRig {
    ScannedFolder() {
        watch("C:\\", 5000);
        tickEvent(evt::modification);
        clearRecords();
    }
    /// A file at the root of that drive, written so many milliseconds after now.
    void write(const std::string& path, std::int64_t milliseconds) {
        machine.files[path] = "";
        const std::uint64_t time = present() + static_cast<std::uint64_t>(milliseconds * 10'000);
        machine.times[path] = {.created = 5, .accessed = time, .written = time};
    }
};

const std::string block = "Change Type: Last Write\r\n  ";

TEST(EventModification, ANewerFileRaisesItsAlertAtOnceForTheRow) {
    ScannedFolder rig;
    rig.write("C:\\report.txt", 1);
    rig.pass();
    EXPECT_EQ(rig.alert(1),
              "High | 2026/03/14 15:09:26 | Files modified: " + block + "C:\\report.txt\r\n");
    EXPECT_EQ(ConstWatchRow(rig.list.ListItems(1)).firstAlert(),
              "Files modified: " + block + "C:\\report.txt\r\n");
    EXPECT_EQ(rig.forms.globals.lngHighRatedAlerts, 1);
}

TEST(EventModification, IsNoEventOfTheSummary) {
    ScannedFolder rig;
    rig.write("C:\\report.txt", 1);
    rig.form1.lstAct.setSelected(act::alert, true);
    rig.machine.files[rig.form1.txtAudio[0].Text()] = "";
    rig.pass();
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.form1.txtAlert.Text(), "");
    EXPECT_EQ(rig.forms.dlgAlert.Label1.Text(), "");
    EXPECT_EQ(rig.count("alert dialog"), 0);
    EXPECT_TRUE(rig.machine.played.empty());
}

TEST(EventModification, NothingNewerRaisesNothing) {
    ScannedFolder rig;
    rig.write("C:\\report.txt", 0);
    rig.pass();
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(EventModification, TheSameTextForTheSameRowIsReportedOnce) {
    ScannedFolder rig;
    rig.write("C:\\report.txt", 60'000);
    rig.pass();
    rig.pass();
    EXPECT_EQ(rig.alertCount(), 1);
}

TEST(EventModification, TheReferenceIsThePresentAfterEachScan) {
    ScannedFolder rig;
    rig.forms.globals.lastFileTime = 5;
    rig.machine.advance(3000);
    EXPECT_EQ(rig.events.prcChkFileTimes("C:\\"), "");
    EXPECT_EQ(rig.forms.globals.lastFileTime, rig.present());
}

TEST(EventModification, TheReferenceMovesAlsoWhenTheFolderCantBeRead) {
    ScannedFolder rig;
    rig.forms.globals.lastFileTime = 5;
    EXPECT_EQ(rig.events.prcChkFileTimes("C:\\missing"), "");
    EXPECT_EQ(rig.forms.globals.lastFileTime, rig.present());
}

TEST(EventModification, TheScanItselfUsesTheReferenceOfThePreviousOne) {
    ScannedFolder rig;
    rig.forms.globals.lastFileTime = rig.present();
    rig.write("C:\\report.txt", 1000);
    rig.machine.advance(5000);
    EXPECT_EQ(rig.events.prcChkFileTimes("C:\\"), block + "C:\\report.txt\r\n");
    EXPECT_EQ(rig.events.prcChkFileTimes("C:\\"), "");
}

TEST(EventModification, ARowIsScannedByTheTimeOfTheRowBeforeIt) {
    ScannedFolder rig;
    rig.watch("D:\\", 5000);
    rig.write("C:\\first.txt", 1000);
    rig.write("D:\\second.txt", 1000);
    rig.machine.advance(5000);
    rig.check();
    // The first row's scan has moved the reference past the second file.
    EXPECT_EQ(rig.alertTexts(), Texts{"Files modified: " + block + "C:\\first.txt\r\n"});
}

TEST(EventModification, InRealChecksEachWriteIsReportedOnce) {
    ScannedFolder rig;
    rig.check();
    EXPECT_EQ(rig.alertCount(), 0);
    rig.write("C:\\a.txt", 1000);
    rig.write("C:\\b.txt", 2000);
    rig.machine.advance(10'000);
    rig.check();
    EXPECT_EQ(rig.alertTexts(),
              Texts{"Files modified: " + block + "C:\\a.txt\r\n" + block + "C:\\b.txt\r\n"});
    rig.machine.advance(10'000);
    rig.check();
    EXPECT_EQ(rig.alertCount(), 1);
}

TEST(EventModification, TheStartOfTheProgramIsTheFirstReference) {
    ScannedFolder rig;
    rig.write("C:\\report.txt", 0);
    rig.check();
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(EventModification, AFolderRowIsScannedByItsOwnFolder) {
    ScannedFolder rig;
    rig.list.Clear();
    rig.machine.folders.insert("c:\\data");
    rig.watch("C:\\data", 5000);
    rig.write("C:\\data\\inside.txt", 1000);
    rig.write("C:\\outside.txt", 1000);
    rig.clearRecords();
    rig.pass();
    EXPECT_EQ(rig.alertTexts(), Texts{"Files modified: " + block + "C:\\data\\inside.txt\r\n"});
    EXPECT_EQ(rig.machine.log.calls().front(), "FindFirstFileA C:\\data\\*.*");
}

TEST(EventModification, AnInterruptedScanKeepsTheReferenceAndClosesItsListing) {
    ScannedFolder rig;
    rig.write("C:\\report.txt", 1000);
    rig.forms.globals.lastFileTime = 5;
    rig.machine.onCall = [](const std::string& call) {
        if (call == "FindNextFileA") throw std::bad_alloc();
    };
    EXPECT_THROW(rig.pass(), std::bad_alloc);
    EXPECT_EQ(rig.forms.globals.lastFileTime, 5u);
    EXPECT_EQ(rig.machine.openListings, 0);
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(EventModification, WhenTheAlertCantBeLoggedTheReferenceHasMovedAndTheRowStays) {
    ScannedFolder rig;
    rig.write("C:\\report.txt", 1000);
    rig.form1.chkAutoSave.setValue(1);
    rig.machine.files[rig.form1.lblLog.Caption()] = "";
    rig.machine.lockedFiles[rig.form1.lblLog.Caption()] = 70;
    EXPECT_EQ(errorOf([&] { rig.pass(); }), 70);
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.forms.globals.lastFileTime, rig.present());
}

TEST(EventModification, TheWatchersAlertsBelongToNoRow) {
    ScannedFolder rig;
    rig.watchAlerts.raise("time", "High", "text");
    rig.watchAlerts.raise("time", "High", "text");
    EXPECT_EQ(rig.alert(1), "High | time | text");
    EXPECT_EQ(rig.alertCount(), 2);
}

}  // namespace
}  // namespace velmora::tests
