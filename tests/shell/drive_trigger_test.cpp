// The minimum of one drive: shown by the scroll bar, converted between the units, and applied.
#include <gtest/gtest.h>

#include "shell/drive_view_rig.h"

namespace velmora::tests {
namespace {

using DriveTriggerTest = DriveViewRig;

TEST_F(DriveTriggerTest, APlaceThatIsNotAppliedStaysAtTheTimer) {
    form1.txtSpace.setText("200");
    meter.prcShowfrmIndDri("C:\\");
    view.VScroll1.userScroll(75);
    view.Timer1.Tick();
    EXPECT_EQ(view.VScroll1.Value(), 75);
    EXPECT_EQ(view.Text1.Text(), "25");
    EXPECT_EQ(view.VMeter1.Label1(), "20%");
    machine.drives["C:"] = {500, 1000};  // which draws the view anew
    view.Timer1.Tick();
    EXPECT_EQ(view.Text1.Text(), "25");
    view.Combo1.userChoose(1);
    view.Combo1.userChoose(0);
    EXPECT_EQ(view.Text1.Text(), "20");
    view.VScroll1.userScroll(75);
    meter.prcSrvMeterPreSet("");
    EXPECT_EQ(view.Text1.Text(), "20");
}

TEST_F(DriveTriggerTest, AnUntouchedScrollBarFollowsTheTrigger) {
    form1.txtSpace.setText("200");
    meter.prcShowfrmIndDri("C:\\");
    view.Text1.setText("33");  // typed
    view.Timer1.Tick();
    EXPECT_EQ(view.Text1.Text(), "33");
    form1.txtSpace.setText("300");
    view.Timer1.Tick();
    EXPECT_EQ(view.VScroll1.Value(), 70);
    EXPECT_EQ(view.VMeter1.Label1(), "30%");
}

TEST_F(DriveTriggerTest, TheSizeIsThatOfTheShownDrive) {
    form1.txtSpace.setText("10");
    form1.OpDriv[1].userClick();
    form1.txtSpace.setText("10");  // percent: the scroll bar has the same place for both
    meter.prcShowfrmIndDri("C:\\");
    meter.prcSrvMeter(form1.ListView1.ListItems(1));
    view.Option1[1].userClick();
    EXPECT_EQ(view.Text1.Text(), "100");
    view.Combo1.userChoose(1);
    EXPECT_EQ(view.Text1.Text(), "200");
}

TEST_F(DriveTriggerTest, ASizeOfTheLeastDriveIsAPercentageToo) {
    addRow("E:\\", "1 KB", "1 KB");
    machine.drives["E:"] = {1, 2};
    meter.prcShowfrmIndDri("E:\\");
    view.Option1[1].userClick();
    view.Text1.setText("1");
    view.Option1[0].userClick();
    EXPECT_EQ(view.Text1.Text(), "100");
}

// The check would round them: to nothing, or to an alarm that comes too early.
TEST_F(DriveTriggerTest, ASizeThatIsNoWholePercentageIsRefused) {
    addRow("E:\\", "1 KB", "17,179,869,184 KB");
    machine.drives["E:"] = {1, 2};
    form1.OpDriv[1].userClick();
    meter.prcShowfrmIndDri("E:\\");
    view.Option1[1].userClick();
    view.Text1.setText("307200");
    answerYes();
    view.Command3.userClick();
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_TRUE(host.boxes[0].text.starts_with("This is 0 % of the drive")) << host.boxes[0].text;
    EXPECT_EQ(trigger(3), "");
    EXPECT_FALSE(form1.chkDrive.ticked());
}

TEST_F(DriveTriggerTest, AValueThatTheCheckCannotReadIsRefused) {
    addRow("E:\\", "1 KB", "17,179,869,184 KB");
    machine.drives["E:"] = {1, 2};
    meter.prcShowfrmIndDri("E:\\");
    view.Text1.setText("50");  // percent, which are more KB than 32 bits hold
    view.Command3.userClick();
    EXPECT_EQ(host.boxes.back().text,
              "This is more than the main window can take as KB. Choose percent there.");
    view.Option1[1].userClick();
    view.Text1.setText("2147483648");
    view.Command3.userClick();
    EXPECT_EQ(host.boxes.back().text,
              "You have an improper value in the Set Minimum Space Text Box.");
    view.Text1.setText("2147483647");
    answerYes();
    view.Command3.userClick();
    EXPECT_EQ(trigger(3), "2147483647");
}

TEST_F(DriveTriggerTest, NothingIsConvertedForADriveWithoutASize) {
    addRow("E:\\", "N/A", "");
    meter.prcShowfrmIndDri("E:\\");
    view.Text1.setText("5");
    answerYes();
    view.Command3.userClick();
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(host.boxes[0].text, "The size of this drive isn't known yet.");
    EXPECT_EQ(trigger(3), "");
}

// An empty trigger would end every check with an error.
TEST_F(DriveTriggerTest, NoPercentAreNoKB) {
    meter.prcShowfrmIndDri("C:\\");
    view.Text1.setText("0");
    answerYes();
    view.Command3.userClick();
    EXPECT_EQ(trigger(1), "0");
}

TEST_F(DriveTriggerTest, ASizeOfNothingIsAShareOfNothing) {
    meter.prcShowfrmIndDri("C:\\");
    view.Text1.setText("0");
    view.Option1[1].userClick();
    EXPECT_EQ(view.Text1.Text(), "");
    view.Option1[0].userClick();
    EXPECT_EQ(view.Text1.Text(), "0");
}

TEST_F(DriveTriggerTest, TheScrollBarHasItsGreatestShareAtTheTop) {
    meter.prcShowfrmIndDri("C:\\");
    view.VScroll1.userScroll(0);
    EXPECT_EQ(view.Text1.Text(), "100");
    view.VScroll1.userScroll(75);
    EXPECT_EQ(view.Text1.Text(), "25");
    view.VScroll1.userScroll(100);
    EXPECT_EQ(view.Text1.Text(), "0");
    view.Option1[1].userClick();
    view.VScroll1.userScroll(75);
    EXPECT_EQ(view.Text1.Text(), "250");  // of 1000 KB
    view.VScroll1.userScroll(100);
    EXPECT_EQ(view.Text1.Text(), "");  // the picture has no digit for 0
}

TEST_F(DriveTriggerTest, TheUnitConvertsTheText) {
    meter.prcShowfrmIndDri("C:\\");
    view.Text1.setText("12.5");
    view.Option1[1].userClick();
    EXPECT_EQ(view.Text1.Text(), "125");
    view.Option1[1].userClick();  // chosen already
    EXPECT_EQ(view.Text1.Text(), "125");
    view.Option1[0].userClick();
    EXPECT_EQ(view.Text1.Text(), "12.5");
    view.Text1.setText("words");
    view.Option1[1].userClick();
    EXPECT_EQ(view.Text1.Text(), "words");
}

TEST_F(DriveTriggerTest, AValueThatIsNoNumberIsRefused) {
    meter.prcShowfrmIndDri("C:\\");
    view.Text1.setText("many");
    view.Command3.userClick();
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(host.boxes[0].text, "You have an improper value in the Set Minimum Space Text Box.");
    EXPECT_EQ(trigger(1), "");
}

TEST_F(DriveTriggerTest, ApplyingAsksAndSetsIndividualValues) {
    meter.prcShowfrmIndDri("C:\\");
    view.Option1[1].userClick();
    view.Text1.setText("300");
    form1.txtSpace.setText("7");
    view.Command3.userClick();  // answered with No
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(host.boxes[0].text,
              "This will set the program to watch the drive/path by a individual values. Go "
              "ahead?");
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_FALSE(form1.chkDrive.ticked());
    EXPECT_EQ(trigger(1), "");
    int clicks = 0;
    form1.chkDrive.Click.connect([&clicks] { ++clicks; });
    answerYes();
    view.Command3.userClick();
    EXPECT_TRUE(form1.chkDrive.ticked());
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(trigger(1), "300");
    EXPECT_EQ(trigger(2), "");
    view.Text1.setText("400");
    answerYes();
    view.Command3.userClick();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(trigger(1), "400");
    EXPECT_EQ(host.boxes.size(), 3U);
}

TEST_F(DriveTriggerTest, TheTriggerIsWrittenInTheUnitInForce) {
    meter.prcShowfrmIndDri("C:\\");
    view.Text1.setText("25");  // percent; the main window has KB
    answerYes();
    view.Command3.userClick();
    EXPECT_EQ(trigger(1), "250");
    form1.OpDriv[1].userClick();  // now percent
    view.Text1.setText("25");
    answerYes();
    view.Command3.userClick();
    EXPECT_EQ(trigger(1), "25");
    view.Option1[1].userClick();
    view.Text1.setText("300");
    answerYes();
    view.Command3.userClick();
    EXPECT_EQ(trigger(1), "30");
}

}  // namespace
}  // namespace velmora::tests
