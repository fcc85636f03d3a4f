// What a check sets up before it walks the rows.
#include "monitor/check_rig.h"

namespace velmora::tests {
namespace {

// The content of the fields at the first yield of a check.
struct AtFirstRow {
    StatusBar::Panel panel;
    ToolBar::Button button;
    bool bChecking = false;
    bool asked = false;
};

AtFirstRow look(CheckRig& rig) {
    AtFirstRow seen;
    rig.watch("C:\\", 5000);
    rig.host.onYield = [&](int n) {
        if (n > 1) return;
        seen = {rig.form1.StatusBar1.Panels(1), rig.form1.Toolbar1.Buttons(1),
                rig.forms.globals.bChecking, true};
    };
    rig.check();
    EXPECT_TRUE(seen.asked);
    return seen;
}

TEST(CheckPrepare, TheFirstToolBarButtonPauses) {
    CheckRig rig;
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Caption, "Start");
    const auto seen = look(rig);
    EXPECT_EQ(seen.button.Caption, "Pause");
    EXPECT_EQ(seen.button.Image, 2);
}

TEST(CheckPrepare, TheFirstPanelShowsTheCheckWithItsPicture) {
    CheckRig rig;
    const auto seen = look(rig);
    EXPECT_EQ(seen.panel.Text, "Checking...");
    EXPECT_EQ(seen.panel.Picture, 14);
}

TEST(CheckPrepare, TheCheckIsUnderWayFromItsStart) {
    CheckRig rig;
    EXPECT_FALSE(rig.forms.globals.bChecking);
    EXPECT_TRUE(look(rig).bChecking);
}

TEST(CheckPrepare, AWaitingTickPreparesNothing) {
    CheckRig rig;
    rig.form1.txtSpace.setText("1000");
    rig.form1.txtDrive.setText("");
    rig.tick();
    EXPECT_EQ(rig.form1.Toolbar1.Buttons(1).Caption, "Start");
    EXPECT_EQ(rig.form1.txtDrive.Text(), "");
}

TEST(CheckPrepare, AnEmptySpecifiedPathBecomesTheFirstDrive) {
    CheckRig rig;
    rig.check();
    EXPECT_EQ(rig.form1.txtDrive.Text(), "c:\\");
}

TEST(CheckPrepare, ASpecifiedPathStays) {
    CheckRig rig;
    rig.form1.txtDrive.setText("E:\\spare");
    rig.check();
    EXPECT_EQ(rig.form1.txtDrive.Text(), "E:\\spare");
}

TEST(CheckPrepare, AMinimumSpaceThatWasNeverSetBecomesFiftyThousand) {
    Rig rig;
    rig.load();
    ASSERT_EQ(rig.form1.txtSpace.Text(), "");
    rig.check();
    EXPECT_EQ(rig.form1.txtSpace.Text(), "50000");
    EXPECT_EQ(rig.forms.globals.lngTimesChecked, 1);
}

TEST(CheckPrepare, ANumericMinimumSpaceStays) {
    CheckRig rig;
    rig.form1.txtSpace.setText("1,500");
    rig.check();
    EXPECT_EQ(rig.form1.txtSpace.Text(), "1,500");
}

TEST(CheckPrepare, AMinimumSpaceWithAFractionRoundsToTheEvenKilobyte) {
    CheckRig rig;
    rig.watch("C:\\", 1501);
    rig.form1.txtSpace.setText("1501.5");
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "alert");
    rig.form1.txtSpace.setText("1500.5");
    rig.machine.drives["C:"].freeBytes = 1500 * KB;
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
}

TEST(CheckPrepare, AMinimumSpaceBeyondThirtyTwoBitsOverflows) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.form1.txtSpace.setText("2147483648");
    rig.check();
    EXPECT_EQ(rig.alert(1), std::string("High | ") + stampDateTime + " | Program Run Time Error: ");
    EXPECT_EQ(rig.alert(2), std::string("High | ") + stampDateTime + " | Error: Overflow");
    EXPECT_EQ(rig.timesChecked(), 0);
    rig.expectRest();
}

TEST(CheckPrepare, TheGreatestThirtyTwoBitMinimumSpaceIsCompared) {
    CheckRig rig;
    rig.form1.txtSpace.setText("2147483647");
    rig.watch("C:\\", 2147483647.0);
    rig.watch("D:\\", 2147483646.0);
    rig.check();
    EXPECT_EQ(rig.at(1).stateIcon(), "ok");
    EXPECT_EQ(rig.at(2).stateIcon(), "alert");
}

TEST(CheckPrepare, AnIntervalOfSixtyEightSecondsIsShownUnchanged) {
    CheckRig rig;
    rig.check();
    rig.setInterval(0, 1, 8);
    rig.form1.Timer1.setInterval(68000);
    rig.tick();
    rig.tick();
    EXPECT_EQ(rig.timesChecked(), 2);
    EXPECT_EQ(rig.form1.txtTime.Text(), "68");
    EXPECT_EQ(rig.panel(1), "Ready. Check in 68 (sec.)");
}

TEST(CheckPrepare, AnIntervalFromSixtyNineSecondsOnIsShownAsSixtyFiveUntilTheNextTick) {
    CheckRig rig;
    rig.check();
    rig.setInterval(0, 1, 9);
    rig.form1.Timer1.setInterval(69000);
    rig.tick();
    rig.tick();
    EXPECT_EQ(rig.timesChecked(), 2);
    EXPECT_EQ(rig.form1.txtTime.Text(), "65");
    EXPECT_EQ(rig.panel(1), "Ready. Check in 65 (sec.)");
    rig.tick();
    EXPECT_EQ(rig.form1.txtTime.Text(), "69");
    EXPECT_EQ(rig.panel(1), "Ready. Check in: 69 (sec.)");
}

}  // namespace
}  // namespace velmora::tests
