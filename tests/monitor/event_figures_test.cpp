// The figures that a row keeps for the next comparison.
#include "monitor/event_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

struct KeptFigures : EventRig {
    ListItem& item;

    explicit KeptFigures(const std::string& path = "C:\\", const std::string& free = "4,000 KB")
        : item(watch(path, 5000)) {
        machine.folders = {"c:\\sub", "c:\\data"};
        machine.files = {{"C:\\a", ""}, {"C:\\b", ""}, {"C:\\c", ""}};
        at(1).setFreeSpace(free);
        at(1).setPreviousFree("before");
        at(1).setFolderCounts("counts");
        at(1).setStamp("stamp");
        clearRecords();
    }
    int take() { return events.prcSetPrevInfoLV(item); }
    void expectUntouched(const std::string& free) {
        EXPECT_EQ(at(1).freeSpace(), free);
        EXPECT_EQ(at(1).previousFree(), "before");
        EXPECT_EQ(at(1).folderCounts(), "counts");
        EXPECT_EQ(at(1).stamp(), "stamp");
    }
};

TEST(EventFigures, TheOldTextIsKeptAndTheNewOnesReplaceIt) {
    KeptFigures rig;
    EXPECT_EQ(rig.take(), 1);
    EXPECT_EQ(rig.at(1).previousFree(), "4,000");
    EXPECT_EQ(rig.at(1).freeSpace(), "5,000 KB");
    EXPECT_EQ(rig.at(1).folderCounts(), "file:3|fold:2|");
    EXPECT_EQ(rig.at(1).stamp(), "3/14/2026 3:09:26 PM");
}

TEST(EventFigures, TheStampFollowsTheClock) {
    KeptFigures rig;
    rig.take();
    rig.machine.now = {2027, 1, 2, 0, 0, 1};
    rig.take();
    EXPECT_EQ(rig.at(1).stamp(), "1/2/2027 12:00:01 AM");
}

TEST(EventFigures, FolderAndDriveAreLookedUpByTheUnchangedRowText) {
    KeptFigures rig("c:\\");
    EXPECT_EQ(rig.take(), 1);
    EXPECT_EQ(rig.machine.log.calls(), (Texts{"GetFolder c:\\", "GetDrive c:\\", "FreeSpace C:",
                                              "FilesCount c:\\", "SubFoldersCount c:\\"}));
}

TEST(EventFigures, ARowThatIsntAvailableStaysAsItIs) {
    for (const char* free :
         {"N/A, drive not ready", "n/a", "N/A check drive or media", "was N/a once", ""}) {
        SCOPED_TRACE(free);
        KeptFigures rig("C:\\", free);
        EXPECT_EQ(rig.take(), 0);
        rig.expectUntouched(free);
        EXPECT_EQ(rig.machine.log.count(), 0);
    }
}

TEST(EventFigures, AFolderRowIsMarkedAfterItsFirstUpdate) {
    KeptFigures rig("C:\\data");
    EXPECT_EQ(rig.take(), 0);
    EXPECT_EQ(rig.at(1).freeSpace(), "N/A check drive or media");
    EXPECT_EQ(rig.at(1).folderCounts(), "");
    EXPECT_EQ(rig.at(1).previousFree(), "before");
    EXPECT_EQ(rig.at(1).stamp(), "stamp");
}

TEST(EventFigures, AMarkedRowIsLeftAloneWhileTheCheckGoesOnMeasuringItsDrive) {
    KeptFigures rig("C:\\data");
    rig.check();
    EXPECT_EQ(rig.at(1).freeSpace(), "N/A check drive or media");
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    rig.setFree("C:", 7);
    rig.check();
    EXPECT_EQ(rig.at(1).freeSpace(), "N/A check drive or media");
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    EXPECT_EQ(rig.timesChecked(), 2);
}

TEST(EventFigures, AShareIsMeasuredLikeADrive) {
    KeptFigures rig("\\\\server\\data");
    EXPECT_EQ(rig.take(), 1);
    EXPECT_EQ(rig.at(1).freeSpace(), "5,000 KB");
    EXPECT_EQ(rig.at(1).folderCounts(), "file:0|fold:0|");
}

TEST(EventFigures, WithoutAFolderTheCountsAreNotAvailable) {
    KeptFigures rig;
    rig.machine.log.failCall(1, 76);
    EXPECT_EQ(rig.take(), 1);
    EXPECT_EQ(rig.at(1).freeSpace(), "5,000 KB");
    EXPECT_EQ(rig.at(1).previousFree(), "4,000");
    EXPECT_EQ(rig.at(1).folderCounts(), "N/A");
}

TEST(EventFigures, ADriveThatIsntReadyKeepsItsFreeText) {
    KeptFigures rig;
    rig.machine.drives["C:"].ready = false;
    EXPECT_EQ(rig.take(), 0);
    EXPECT_EQ(rig.at(1).freeSpace(), "4,000 KB");
    EXPECT_EQ(rig.at(1).folderCounts(), "counts");
}

TEST(EventFigures, AnyFailureGivesZeroAndErrorFiveAlsoMarksTheRow) {
    for (const int number : {5, 7, 13, 53, 70, 71, 76}) {
        for (int n = 1; n <= 5; ++n) {
            SCOPED_TRACE(std::to_string(number) + " at call " + std::to_string(n));
            KeptFigures rig;
            rig.machine.log.failCall(n, number);
            const bool noFolder = n == 1 && number == 76;
            EXPECT_EQ(rig.take(), noFolder ? 1 : 0);
            if (noFolder) continue;
            // What comes before the failing step is written.
            const bool kept = n >= 3;
            const bool taken = n >= 4;
            EXPECT_EQ(rig.at(1).previousFree(), kept ? "4,000" : "before");
            EXPECT_EQ(rig.at(1).stamp(), taken ? "3/14/2026 3:09:26 PM" : "stamp");
            if (number == 5) {
                EXPECT_EQ(rig.at(1).freeSpace(), "N/A check drive or media");
                EXPECT_EQ(rig.at(1).folderCounts(), "");
            } else {
                EXPECT_EQ(rig.at(1).freeSpace(), taken ? "5,000 KB" : "4,000 KB");
                EXPECT_EQ(rig.at(1).folderCounts(), "counts");
            }
        }
    }
}

TEST(EventFigures, AFailureDoesntEndTheCheck) {
    KeptFigures rig("C:\\data");
    rig.watch("D:\\", 5000);
    rig.check();
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_EQ(rig.alertCount(), 0);
    EXPECT_EQ(rig.at(2).stateIcon(), "ok");
}

}  // namespace
}  // namespace velmora::tests
