// A watched row whose drive isn't ready.
#include "base/errors.h"
#include "monitor/event_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

struct LostDrive : EventRig {
    LostDrive() {
        measured("C:\\", 5000);
        tickEvent(evt::unavailable);
        machine.drives["C:"].ready = false;
    }
};

TEST(EventNotReady, RaisesOneHighAlertForTheRowAndEmptiesBothTags) {
    LostDrive rig;
    rig.check();
    EXPECT_EQ(rig.alert(1),
              std::string("High | ") + stampDateTime + " | Drive Became Unavailable: C:\\");
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.at(1).previousFree(), "");
    EXPECT_EQ(rig.at(1).folderCounts(), "");
    EXPECT_EQ(rig.at(1).freeSpace(), "5,000 KB");
    EXPECT_EQ(rig.at(1).stateIcon(), "");
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_EQ(rig.form1.txtAlert.Text(), "");
}

TEST(EventNotReady, TheAlertBelongsToTheRowWhoseStampIsClearedAfterwards) {
    LostDrive rig;
    rig.events.rowNotReady(1);
    EXPECT_EQ(ConstWatchRow(rig.list.ListItems(1)).firstAlert(), "Drive Became Unavailable: C:\\");
    rig.check();
    EXPECT_EQ(ConstWatchRow(rig.list.ListItems(1)).firstAlert(), "");
}

TEST(EventNotReady, IsReportedOnceUntilTheRowHasBeenMeasuredAgain) {
    LostDrive rig;
    for (int i = 0; i < 3; ++i) rig.check();
    EXPECT_EQ(rig.alertCount(), 1);
    // The drive is back. The entry itself fails on a ready row, so it is unticked while measuring.
    rig.form1.lstEvt.setSelected(evt::unavailable, false);
    rig.machine.drives["C:"].ready = true;
    rig.check();
    EXPECT_EQ(rig.at(1).previousFree(), "5,000");
    EXPECT_EQ(rig.at(1).folderCounts(), "file:0|fold:0|");
    rig.tickEvent(evt::unavailable);
    rig.machine.drives["C:"].ready = false;
    for (int i = 0; i < 3; ++i) rig.check();
    EXPECT_EQ(rig.alertTexts(), Texts(2, "Drive Became Unavailable: C:\\"));
}

TEST(EventNotReady, NothingHappensWhileTheEntryIsntTicked) {
    LostDrive rig;
    rig.form1.lstEvt.setSelected(evt::unavailable, false);
    rig.tickEvents({evt::stagnancy, evt::change, evt::quantity, evt::modification});
    rig.check();
    EXPECT_EQ(rig.alertCount(), 0);
    EXPECT_EQ(rig.at(1).previousFree(), "5,000");
    EXPECT_EQ(rig.at(1).folderCounts(), "file:0|fold:0|");
}

TEST(EventNotReady, BothTagsMustBeSet) {
    for (const int empty : {1, 2, 3}) {
        LostDrive rig;
        if ((empty & 1) != 0) rig.at(1).setPreviousFree("");
        if ((empty & 2) != 0) rig.at(1).setFolderCounts("");
        rig.check();
        EXPECT_EQ(rig.alertCount(), 0);
        EXPECT_EQ(rig.at(1).previousFree(), (empty & 1) != 0 ? "" : "5,000");
        EXPECT_EQ(rig.at(1).folderCounts(), (empty & 2) != 0 ? "" : "file:0|fold:0|");
    }
}

TEST(EventNotReady, CountsThatAreUnavailableAreEnough) {
    LostDrive rig;
    rig.at(1).setFolderCounts("N/A");
    rig.check();
    EXPECT_EQ(rig.alertCount(), 1);
}

TEST(EventNotReady, TheNextRowsAreStillChecked) {
    LostDrive rig;
    rig.watch("D:\\", 5000);
    rig.machine.drives["D:"].ready = false;
    rig.at(2).setPreviousFree("1");
    rig.at(2).setFolderCounts("file:1|fold:1|");
    rig.check();
    EXPECT_EQ(rig.alertTexts(),
              (Texts{"Drive Became Unavailable: D:\\", "Drive Became Unavailable: C:\\"}));
}

TEST(EventNotReady, WhenTheAlertCantBeLoggedTheTagsAreKept) {
    LostDrive rig;
    rig.form1.chkAutoSave.setValue(1);
    rig.form1.lblLog.setCaption("E:\\log.dat");
    rig.drive("E:", 10, 10);
    rig.machine.files["E:\\log.dat"] = "";
    rig.machine.lockedFiles["E:\\log.dat"] = 70;
    EXPECT_EQ(errorOf([&] { rig.events.rowNotReady(1); }), 70);
    EXPECT_EQ(rig.at(1).previousFree(), "5,000");
    EXPECT_EQ(rig.at(1).folderCounts(), "file:0|fold:0|");
}

}  // namespace
}  // namespace velmora::tests
