// The label that asks for a folder and watches it.
#include <gtest/gtest.h>

#include "base/errors.h"
#include "monitor/rig.h"

namespace velmora::tests {
namespace {

struct AddPathTest : testing::Test {
    AddPathTest() { rig.load(); }
    void add(const std::string& path) {
        rig.host.paths = {path};
        rig.form1.lblDP[watch_button::add].userClick();
    }
    WatchRow row(int index = 1) { return WatchRow(rig.list.ListItems(index)); }
    bool timerRuns() { return rig.form1.Timer1.Enabled(); }

    Rig rig;
};

TEST_F(AddPathTest, AsksForAFolder) {
    add("");
    EXPECT_EQ(rig.host.dialogs, std::vector<std::string>{"Select Folder/Path"});
}

TEST_F(AddPathTest, ADismissedDialogAddsNothingAndLeavesTheTimerOff) {
    add("");
    EXPECT_EQ(rig.list.Count(), 0);
    EXPECT_FALSE(timerRuns());
    EXPECT_EQ(rig.host.boxes.size(), 0u);
    EXPECT_EQ(rig.alertTexts().size(), 0u);
}

TEST_F(AddPathTest, AddsTheFolderWithTheSizesOfItsDriveWithoutDigitGroups) {
    rig.drive("C:", 1234567, 9876543);
    add("C:\\data\\deep");
    ASSERT_EQ(rig.list.Count(), 1);
    EXPECT_EQ(row().path(), "C:\\data\\deep");
    EXPECT_EQ(row().freeSpace(), "1234567 KB");
    EXPECT_EQ(row().totalSize(), "9876543 KB");
    EXPECT_EQ(row().trigger(), "");
    EXPECT_EQ(row().lastChecked(), "");
    EXPECT_FALSE(row().watched());
    EXPECT_TRUE(timerRuns());
}

TEST_F(AddPathTest, TheTimerIsOffWhileTheProgramAsksTheDrive) {
    rig.drive("C:", 1, 2);
    int asked = 0;
    rig.machine.onCall = [&](const std::string&) {
        ++asked;
        EXPECT_FALSE(timerRuns());
    };
    add("C:\\");
    EXPECT_GT(asked, 0);
    EXPECT_TRUE(timerRuns());
}

TEST_F(AddPathTest, ATimerThatWasOffRunsAfterwards) {
    rig.drive("C:", 1, 2);
    rig.form1.Timer1.setEnabled(false);
    add("C:\\");
    EXPECT_TRUE(timerRuns());
}

TEST_F(AddPathTest, RoundsSizesWithTiesAwayFromZero) {
    rig.machine.drives["C:"] = {1536, 2560};
    add("C:\\");
    EXPECT_EQ(row().freeSpace(), "2 KB");
    EXPECT_EQ(row().totalSize(), "3 KB");
}

TEST_F(AddPathTest, TheTextOfANotReadyDriveEndsInAFullStop) {
    rig.machine.drives["D:"] = {.ready = false};
    add("D:\\data");
    EXPECT_EQ(row().freeSpace(), "N/A, drive not ready.");
    EXPECT_EQ(row().totalSize(), "");
    EXPECT_TRUE(timerRuns());
}

TEST_F(AddPathTest, AMissingPathIsReportedAndStaysListed) {
    add("X:\\gone");
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text,
              "The selected item is not found or unavailable. Check configuration.");
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::critical);
    EXPECT_EQ(rig.host.boxes[0].buttons, BoxButtons::ok);
    ASSERT_EQ(rig.list.Count(), 1);
    EXPECT_EQ(row().path(), "X:\\gone");
    EXPECT_EQ(row().freeSpace(), "");
    EXPECT_FALSE(timerRuns());
    EXPECT_EQ(rig.alertTexts().size(), 0u);
}

TEST_F(AddPathTest, AFolderWithoutAKnownDriveCantBeReadyAndEndsWithAnAlert) {
    rig.machine.folders.insert("\\\\host\\share\\data");
    add("\\\\host\\share\\data");
    EXPECT_EQ(rig.machine.log.calls(),
              (std::vector<std::string>{
                  "GetDriveName \\\\host\\share\\data", "DriveExists \\\\host\\share",
                  "FolderExists \\\\host\\share\\data", "GetFolder \\\\host\\share\\data"}));
    EXPECT_EQ(rig.list.Count(), 1);
    EXPECT_EQ(row().freeSpace(), "");
    EXPECT_EQ(rig.host.boxes.size(), 0u);
    EXPECT_EQ(rig.alertTexts(),
              std::vector<std::string>{"Drive/Path Button Error Button Index:0 | Object doesn't "
                                       "support this property or method"});
    EXPECT_FALSE(timerRuns());
}

TEST_F(AddPathTest, AFolderThatDisappearsMeanwhileEndsWithAnAlert) {
    rig.machine.folders.insert("\\\\host\\share\\data");
    rig.machine.onCall = [this](const std::string& call) {
        if (call.compare(0, 9, "GetFolder") == 0) rig.machine.folders.clear();
    };
    add("\\\\host\\share\\data");
    EXPECT_EQ(rig.alertTexts(),
              std::vector<std::string>{"Drive/Path Button Error Button Index:0 | Path not found"});
}

TEST_F(AddPathTest, AKnownShareIsADrive) {
    rig.drive("\\\\host\\share", 5, 6);
    add("\\\\host\\share\\data");
    EXPECT_EQ(row().path(), "\\\\host\\share\\data");
    EXPECT_EQ(row().freeSpace(), "5 KB");
}

TEST_F(AddPathTest, AnErrorOfTheDriveLeavesTheRowAndTheTimerOff) {
    rig.drive("C:", 1, 2);
    rig.machine.onCall = [this](const std::string& call) {
        if (call == "FreeSpace C:") rig.machine.log.failCall(1, error::diskNotReady);
    };
    add("C:\\");
    EXPECT_EQ(rig.list.Count(), 1);
    EXPECT_FALSE(timerRuns());
    EXPECT_EQ(rig.alertTexts().size(), 1u);
}

TEST_F(AddPathTest, TheSamePathMayBeAddedTwice) {
    rig.drive("C:", 1, 2);
    add("C:\\");
    add("C:\\");
    EXPECT_EQ(rig.list.Count(), 2);
}

TEST_F(AddPathTest, TakesAnyNameAsItIs) {
    rig.drive("C:", 1, 2);
    const std::vector<std::string> names{"C:\\my files ", "C:\\say \"hi\"",
                                         "C:\\\u00DCn\u00EFc\u00F6d\u00E9 \u6587\u4EF6",
                                         "C:\\" + std::string(300, 'x')};
    for (const std::string& name : names) {
        add(name);
        EXPECT_EQ(row(rig.list.Count()).path(), name);
        EXPECT_EQ(row(rig.list.Count()).freeSpace(), "1 KB");
    }
}

TEST_F(AddPathTest, ATextThatIsNoPathIsAMissingPath) {
    for (const char* name : {" ", "?", "C", ":", "\\", "\\\\\\", "data"}) {
        rig.clearRecords();
        add(name);
        EXPECT_EQ(rig.host.boxes.size(), 1u) << name;
    }
}

}  // namespace
}  // namespace velmora::tests
