// The trigger of a watched row: KB or percent, for all rows or for each by itself.
#include "monitor/recorded_check.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* overHundred = "Cannot check over 100% of space";

TEST(RowTrigger, FreeSpaceEqualToTheTriggerIsNoShortage) {
    CheckRig rig;
    rig.watch("C:\\", 1000);
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.alertCount(), 0);
}

TEST(RowTrigger, AKilobyteBelowTheTriggerIsAShortage) {
    CheckRig rig;
    rig.watch("C:\\", 999);
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    EXPECT_EQ(rig.alertCount(), 1);
}

TEST(RowTrigger, AKilobyteAboveTheTriggerIsNoShortage) {
    CheckRig rig;
    rig.watch("C:\\", 1001);
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
}

TEST(RowTrigger, FreeSpaceIsRoundedToWholeKilobytesFirst) {
    CheckRig rig;
    rig.watch("C:\\", 1000);
    rig.machine.drives["C:"].freeBytes = 1000 * KB - 512;  // half a kilobyte goes up
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    rig.machine.drives["C:"].freeBytes = 1000 * KB - 513;
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
}

TEST(RowTrigger, FreeSpaceBeyondThirtyTwoBitsIsNoProblem) {
    CheckRig rig;
    rig.watch("C:\\", 8e12);
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.timesChecked(), 1);
}

TEST(RowTrigger, ATriggerOfZeroIsNeverAShortage) {
    CheckRig rig;
    rig.form1.txtSpace.setText("0");
    rig.watch("C:\\", 0);
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
}

TEST(RowTrigger, IndividualTriggersReplaceTheCommonOne) {
    CheckRig rig;
    rig.watch("C:\\", 500);
    rig.watch("D:\\", 500);
    rig.watch("E:\\", 500);
    rig.useIndividualTriggers({"501", "500", "1,000"});
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    EXPECT_EQ(rig.at(2).stateIcon(), "ok");
    EXPECT_EQ(rig.at(3).stateIcon(), "alert");
    EXPECT_EQ(rig.alertTexts(), (Texts{" - ALERT: Space Shortage < 1000 KB Drive: E:[500 KB]",
                                       " - ALERT: Space Shortage < 501 KB Drive: C:[500 KB]"}));
}

TEST(RowTrigger, AnEmptyIndividualTriggerEndsTheCheckAtThatRow) {
    CheckRig rig;
    rig.watch("C:\\", 500);
    rig.watch("D:\\", 500);
    rig.watch("E:\\", 5);
    rig.useIndividualTriggers({"100", "", "100"});
    rig.setInterval(0, 0, 5);
    rig.tick();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.at(2).lastChecked(), "");
    EXPECT_EQ(rig.at(3).lastChecked(), "");
    EXPECT_EQ(rig.alert(1), std::string("High | ") + stampDateTime + " | Error: Type mismatch");
    EXPECT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.timesChecked(), 0);
    EXPECT_EQ(rig.panel(1), "Ready. Check in: 5 (sec.)");
    rig.expectRest();
}

TEST(RowTrigger, PercentIsTakenOfTheDrivesTotalSize) {
    CheckRig rig;
    rig.watch("C:\\", 1000, 10000);
    rig.usePercent("10");
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    rig.machine.drives["C:"].freeBytes = 999 * KB;
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    EXPECT_EQ(rig.alertTexts(), Texts{" - ALERT: Space Shortage < 1000 KB Drive: C:[999 KB]"});
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(RowTrigger, PercentOfTheTotalIsRoundedToWholeKilobytes) {
    CheckRig rig;
    rig.watch("C:\\", 10, 1049);  // one percent is 10.49
    rig.usePercent("1");
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    rig.machine.drives["C:"].totalBytes = 1051 * KB;  // 10.51
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
}

TEST(RowTrigger, AHundredPercentIsStillAllowed) {
    CheckRig rig;
    rig.watch("C:\\", 9999, 10000);
    rig.usePercent("100");
    rig.check();
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
}

TEST(RowTrigger, MoreThanAHundredPercentClosesTheCheckWithAMessage) {
    RecordedCheck rig;
    rig.watch("C:\\", 5, 10000);
    rig.usePercent("10");
    rig.form1.txtSpace.setText("101");
    rig.check();
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, overHundred);
    EXPECT_EQ(rig.host.boxes[0].icon, BoxIcon::information);
    EXPECT_EQ(rig.host.boxes[0].title, "Velmora");
    EXPECT_EQ(rig.at(1).lastChecked(), "");
    // Closed, but without the figures that follow a pass.
    EXPECT_EQ(rig.calls, joined({{"spin.avi"}, statistics}));
    EXPECT_EQ(rig.timesChecked(), 1);
    EXPECT_EQ(rig.alertCount(), 0);
    rig.expectRest();
}

TEST(RowTrigger, TheSecondRowGetsTheFirstRowsKilobytesAndEndsThePass) {
    CheckRig rig;
    rig.watch("C:\\", 5000, 10000);
    rig.watch("D:\\", 5, 10000);
    rig.watch("E:\\", 5, 10000);
    rig.usePercent("10");
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.at(2).lastChecked(), "");
    EXPECT_EQ(rig.at(3).lastChecked(), "");
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, overHundred);
    EXPECT_EQ(rig.timesChecked(), 1);
}

TEST(RowTrigger, CarriedKilobytesOfUpToAHundredAreTakenAsPercentAgain) {
    CheckRig rig;
    rig.watch("C:\\", 500, 1000);  // 10 % are 100 KB
    rig.watch("D:\\", 499, 500);   // 100 % of 500 KB
    rig.usePercent("10");
    rig.check();
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.alertTexts(), Texts{" - ALERT: Space Shortage < 500 KB Drive: D:[499 KB]"});
}

TEST(RowTrigger, UnwatchedAndMissingRowsDoNotTouchTheCarriedValue) {
    CheckRig rig;
    rig.row("C:\\", false);
    rig.row("X:\\");
    rig.watch("D:\\", 5000, 10000);
    rig.usePercent("10");
    rig.check();
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.at(3).stateIcon(), "ok");
}

TEST(RowTrigger, TheNextCheckReadsThePercentAgain) {
    CheckRig rig;
    rig.watch("C:\\", 5000, 10000);
    rig.usePercent("10");
    rig.check();
    rig.check();
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.timesChecked(), 2);
}

TEST(RowTrigger, IndividualPercentIsReadAgainForEveryRow) {
    CheckRig rig;
    rig.watch("C:\\", 999, 10000);
    rig.watch("D:\\", 5000, 10000);
    rig.usePercent("10");
    rig.useIndividualTriggers({"10", "50"});
    rig.check();
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    EXPECT_EQ(rig.at(2).stateIcon(), "ok");
}

TEST(RowTrigger, APercentageBeyondThirtyTwoBitsOfKilobytesOverflows) {
    CheckRig rig;
    rig.watch("C:\\", 5000, 3e9);
    rig.usePercent("100");
    rig.setInterval(0, 0, 5);
    rig.tick();
    EXPECT_EQ(rig.alertTexts(), Texts{"Error: Overflow"});
    EXPECT_EQ(rig.timesChecked(), 0);
    rig.expectRest();
}

TEST(RowTrigger, ARowThatIsNotReadyOrNotWatchedNeedsNoTriggerOfItsOwn) {
    CheckRig rig;
    rig.row("X:\\");
    rig.watch("C:\\", 5).setChecked(false);
    rig.watch("D:\\", 500);
    rig.useIndividualTriggers({"", "", "501"});
    rig.check();
    EXPECT_EQ(rig.at(3).stateIcon(), "alert");
    EXPECT_EQ(rig.alertCount(), 1);
}

}  // namespace
}  // namespace velmora::tests
