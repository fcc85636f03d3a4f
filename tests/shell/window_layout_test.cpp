// The main window's two views and what a change of its size does.
#include "base/runtime_error.h"
#include "shell/command_rig.h"

namespace velmora::tests {
namespace {

const std::string& viewCaption(CommandRig& rig) {
    return rig.form1.Toolbar1.Buttons(tool::view).Caption;
}

TEST(ViewToggle, FromTheFullViewGoesToTheHeightOfToolBarAndListPlus500) {
    CommandRig rig;
    rig.setHeights(640, 2900);
    rig.layout.toggleView();
    EXPECT_EQ(rig.form1.Height(), 640 + 2900 + 500);
    EXPECT_EQ(rig.form1.Width(), 9000);
    EXPECT_EQ(viewCaption(rig), "View +");
    EXPECT_FALSE(rig.form1.Frame5.Visible());
    EXPECT_FALSE(rig.form1.Frame1.Visible());
}

TEST(ViewToggle, FromTheCompactViewReturnsToExactly9100) {
    CommandRig rig;
    rig.layout.toggleView();
    rig.layout.toggleView();
    EXPECT_EQ(rig.form1.Height(), 9100);
    EXPECT_EQ(viewCaption(rig), "View -");
    EXPECT_TRUE(rig.form1.Frame5.Visible());
    EXPECT_TRUE(rig.form1.Frame1.Visible());
}

TEST(ViewToggle, FromAnyOtherHeightGoesTo9100) {
    for (const int height : {4000, 9099, 9101, 12000}) {
        CommandRig rig;
        rig.form1.setSize(9000, height);
        rig.layout.toggleView();
        EXPECT_EQ(rig.form1.Height(), 9100) << height;
        EXPECT_EQ(viewCaption(rig), "View -");
    }
}

TEST(ViewToggle, AMaximisedOrMinimisedWindowBecomesNormalFirst) {
    for (const WindowState state : {WindowState::maximised, WindowState::minimised}) {
        CommandRig rig;
        rig.form1.setState(state);
        WindowState whenResized = state;
        rig.form1.Resize.connect([&] { whenResized = rig.form1.State(); });
        rig.layout.toggleView();
        EXPECT_EQ(rig.form1.State(), WindowState::normal);
        EXPECT_EQ(whenResized, WindowState::normal);
        EXPECT_EQ(viewCaption(rig), "View +");
    }
}

TEST(ResizeStep, AHeightUnder3900BecomesThatOfTheCompactView) {
    CommandRig rig;
    rig.setHeights(700, 2700);
    rig.form1.setSize(9000, 3899);
    EXPECT_EQ(rig.form1.Height(), 700 + 2700 + 500);
}

TEST(ResizeStep, AHeightOf3900Stays) {
    CommandRig rig;
    rig.setHeights(900, 3000);
    rig.form1.setSize(9000, 3900);
    EXPECT_EQ(rig.form1.Height(), 3900);
}

TEST(ResizeStep, ACompactViewBelow3900ResizesOnce) {
    CommandRig rig;
    int resizes = 0;
    counted(rig.form1.Resize, resizes);
    rig.setHeights(600, 2700);
    rig.layout.toggleView();
    EXPECT_EQ(rig.form1.Height(), 3800);
    EXPECT_EQ(resizes, 1);
}

TEST(ResizeStep, AWidthUnder8070SnapsBackTo8070) {
    for (const int width : {0, 5000, 8069}) {
        CommandRig rig;
        rig.form1.setSize(width, 9100);
        EXPECT_EQ(rig.form1.Width(), 8070) << width;
        EXPECT_EQ(rig.form1.Height(), 9100) << width;
    }
}

TEST(ResizeStep, AWidthOf8070Stays) {
    CommandRig rig;
    int resizes = 0;
    counted(rig.form1.Resize, resizes);
    rig.form1.setSize(8070, 9100);
    EXPECT_EQ(rig.form1.Width(), 8070);
    EXPECT_EQ(resizes, 1);
}

TEST(ResizeStep, AWindowTooSmallBothWaysEndsWithEverythingInPlace) {
    CommandRig rig;
    rig.form1.setSize(100, 100);
    EXPECT_EQ(rig.form1.Width(), 8070);
    EXPECT_EQ(rig.form1.Height(), 3800);
    EXPECT_EQ(rig.width(rig.form1.Frame8), 8070 - 1400);
    EXPECT_EQ(rig.width(rig.list), 8070 - 1400 - 150);
}

TEST(ResizeStep, ButtonsFollowTheRightEdge) {
    CommandRig rig;
    rig.form1.Command6.setBounds({1, 2, 300, 400});
    rig.form1.setSize(10000, 9100);
    EXPECT_EQ(rig.form1.Command6.bounds(), (Bounds{9400, 2, 300, 400}));
    EXPECT_EQ(rig.form1.Command9.bounds().Left, 9400);
}

TEST(ResizeStep, TheWatchListFollowsTheWidthAndKeepsItsHeight) {
    CommandRig rig;
    const int listHeight = rig.height(rig.list);
    rig.form1.setSize(10000, 9100);
    EXPECT_EQ(rig.width(rig.form1.Frame8), 8600);
    EXPECT_EQ(rig.height(rig.form1.Frame8), 2700);
    EXPECT_EQ(rig.width(rig.list), 8450);
    EXPECT_EQ(rig.height(rig.list), listHeight);
}

TEST(ResizeStep, HeadingAndPanelsFollowTheWindow) {
    CommandRig rig;
    rig.form1.setSize(12000, 11000);
    EXPECT_EQ(rig.width(rig.form1.lblTabCap), 12000 - 1320 - 500);
    for (const Frame& panel : rig.form1.frmSp) {
        EXPECT_EQ(panel.bounds(), (Bounds{1320, 3240, 12000 - 1320 - 255 - 200, 11000 - 4200}));
    }
}

TEST(ResizeStep, APanelsHeightUnder4300IsNotChanged) {
    CommandRig rig;
    rig.form1.setSize(9000, 8500);
    EXPECT_EQ(rig.height(rig.form1.frmSp[0]), 4300);
    rig.form1.setSize(9500, 8499);
    EXPECT_EQ(rig.height(rig.form1.frmSp[0]), 4300);
    EXPECT_EQ(rig.width(rig.form1.frmSp[0]), 9500 - 1320 - 455);
    rig.form1.setSize(9500, 4000);  // would be negative
    EXPECT_EQ(rig.height(rig.form1.frmSp[0]), 4300);
}

TEST(ResizeStep, TheAlertListLeavesRoomForTheJournalWhileItIsShown) {
    CommandRig rig;
    rig.form1.chkLog.setValue(0);
    rig.form1.setSize(9000, 12000);
    EXPECT_EQ(rig.height(rig.form1.LVAlert), 12000 - 4200 - 500);
    EXPECT_EQ(rig.width(rig.form1.LVAlert), 9000 - 1320 - 455 - 200);
    rig.form1.chkLog.setValue(1);
    rig.layout.Form_Resize();
    EXPECT_EQ(rig.height(rig.form1.LVAlert), 12000 - 4200 - 2500);
}

TEST(ResizeStep, AnAlertListUnder4300IsNotChanged) {
    CommandRig rig;
    ASSERT_TRUE(rig.form1.chkLog.ticked());
    const int before = rig.height(rig.form1.LVAlert);
    EXPECT_GT(before, 0);
    rig.form1.setSize(9000, 10999);  // a panel of 6799, less 2500
    EXPECT_EQ(rig.height(rig.form1.LVAlert), before);
    rig.form1.setSize(9000, 11000);
    EXPECT_EQ(rig.height(rig.form1.LVAlert), 4300);
}

TEST(ResizeStep, AnErrorEndsTheStepSilently) {
    CommandRig rig;
    const Bounds before = rig.list.bounds();
    rig.form1.Frame8.Changed.connect([] { throw RuntimeError(error::invalidPropertyValue); });
    EXPECT_NO_THROW(rig.form1.setSize(10000, 9100));
    EXPECT_EQ(rig.form1.Command6.bounds().Left, 9400);
    EXPECT_EQ(rig.list.bounds(), before);
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.form1.LVAlert.Count(), 0);
}

}  // namespace
}  // namespace velmora::tests
