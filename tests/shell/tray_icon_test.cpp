// The icon in the notification area: records, tips and the clicks on it.
#include "shell/tray_icon.h"

#include <gtest/gtest.h>

#include <limits>

#include "shell/surface_rig.h"

namespace velmora::tests {
namespace {

constexpr const char* checkingQuestion =
    "The program is still checking. Performing this action may cause errors.\r\n"
    "Waiting a few seconds for the program to finish would help.\r\n"
    "Do you wish to continue?";
constexpr const char* checkingMenuQuestion =
    "The program is still checking. Performing this action may cause errors.\r\n"
    "Do you wish to continue?";

struct TrayIconTest : testing::Test, SurfaceRig {
    TrayIconTest() {
        machine.now = {2026, 3, 4, 15, 9, 26};
        form1.mnuPopUp.PoppedUp.connect([this] { ++menus; });
    }
    void doubleClick() { sendMouse(forms.sysWorkSystray, leftDoubleClick); }
    void rightClick() { sendMouse(forms.sysWorkSystray, rightButtonUp); }
    void tick() { forms.sysWorkSystray.tmrSystray.Tick(); }
    const NotifyIconData& last() { return sent.back().second; }

    int menus = 0;
    TrayIcon tray{forms, machine.platform().clock, surface.host, surface.notifyArea,
                  surface.user32};
};

TEST_F(TrayIconTest, TheRecordNamesTheHiddenWindowAndTheProgramsIcon) {
    EXPECT_TRUE(tray.prcAddSystray(1, "on watch"));
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].first, NotifyMessage::add);
    EXPECT_EQ(last().window, "sysWorkSystray");
    EXPECT_EQ(last().id, 1u);
    EXPECT_EQ(last().flags, 7u);
    EXPECT_EQ(last().callbackMessage, 512u);
    EXPECT_EQ(last().icon, "Form1");
    EXPECT_EQ(globals.iconHandle, "Form1");
}

TEST_F(TrayIconTest, TheTipIsTheTimeABlankAndTheText) {
    tray.prcAddSystray(1, "on watch");
    EXPECT_EQ(last().tip, "03/04 15:09 on watch");
}

TEST_F(TrayIconTest, AnEmptyTextIsTheProgramsTitle) {
    tray.prcAddSystray(1, "");
    EXPECT_EQ(last().tip, "03/04 15:09 Velmora");
}

TEST_F(TrayIconTest, ATipHoldsSixtyThreeCharacters) {
    tray.prcToolTipText(std::string(63, 'x'));
    EXPECT_EQ(last().tip, std::string(63, 'x'));
    tray.prcToolTipText(std::string(62, 'x') + "\u20ACy");
    EXPECT_EQ(last().tip, std::string(62, 'x') + "\u20AC");
    tray.prcAddSystray(1, std::string(60, 'x'));
    EXPECT_EQ(last().tip, "03/04 15:09 " + std::string(51, 'x'));
}

TEST_F(TrayIconTest, Action0RemovesTheIcon) {
    EXPECT_TRUE(tray.prcAddSystray(0, ""));
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].first, NotifyMessage::remove);
    EXPECT_EQ(last().window, "sysWorkSystray");
}

TEST_F(TrayIconTest, Action2AddsAndThenModifies) {
    tray.prcAddSystray(2, "x");
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[0].first, NotifyMessage::add);
    EXPECT_EQ(sent[1].first, NotifyMessage::modify);
    EXPECT_EQ(sent[0].second.tip, sent[1].second.tip);
}

TEST_F(TrayIconTest, OtherActionsSendNothing) {
    EXPECT_FALSE(tray.prcAddSystray(3, "x"));
    EXPECT_FALSE(tray.prcAddSystray(-1, "x"));
    EXPECT_TRUE(sent.empty());
}

TEST_F(TrayIconTest, ARefusalIsReturnedAndNotReported) {
    surface.notifyArea.takes = false;
    EXPECT_FALSE(tray.prcAddSystray(1, ""));
    EXPECT_FALSE(tray.taken());
    EXPECT_TRUE(host.boxes.empty());
    surface.notifyArea.takes = true;
    tray.prcToolTipText("x");
    EXPECT_TRUE(tray.taken());
}

TEST_F(TrayIconTest, ANewTipKeepsTheIcon) {
    tray.prcToolTipText("first");
    EXPECT_EQ(last().icon, "Form1");
    tray.modifyIcon("Icon1");
    tray.prcToolTipText("Velmora\r\n1 onWatch. ");
    EXPECT_EQ(sent.back().first, NotifyMessage::modify);
    EXPECT_EQ(last().window, "sysWorkSystray");
    EXPECT_EQ(last().icon, "Icon1");
    EXPECT_EQ(last().tip, "Velmora\r\n1 onWatch. ");
}

TEST_F(TrayIconTest, AnotherFormsIconHasTheProgramsTip) {
    globals.sTrayTip = "Velmora! Paused";
    tray.modifyIcon("Icon0");
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].first, NotifyMessage::modify);
    EXPECT_EQ(last().icon, "Icon0");
    EXPECT_EQ(last().tip, "Velmora! Paused");
    EXPECT_EQ(globals.iconHandle, "Icon0");
}

TEST_F(TrayIconTest, TheFormOfTheIconAddsItWhenItLoadsAndStaysHidden) {
    int raised = 0;
    forms.sysWorkSystray.Raised.connect([&] { ++raised; });
    forms.sysWorkSystray.Show();
    EXPECT_FALSE(forms.sysWorkSystray.Visible());
    EXPECT_EQ(raised, 0);
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].first, NotifyMessage::add);
    EXPECT_EQ(last().tip, "03/04 15:09 Velmora");
}

TEST_F(TrayIconTest, ItsCheckBoxAddsTheIconAndRemovesItWithTheWindowShown) {
    form1.chkSystray.setValue(0);
    EXPECT_TRUE(form1.Visible());
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_EQ(sent[0].first, NotifyMessage::remove);
    form1.Hide();
    form1.chkSystray.setValue(1);
    EXPECT_FALSE(form1.Visible());
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[1].first, NotifyMessage::add);
    EXPECT_EQ(last().tip, "03/04 15:09 Velmora");
}

TEST_F(TrayIconTest, ADoubleClickTogglesTheWindowAndActivatesItsProcess) {
    const Texts activation{"GetWindowThreadProcessId Form1", "AppActivate 4711"};
    doubleClick();
    EXPECT_TRUE(form1.Visible());
    EXPECT_EQ(windowCalls, activation);
    windowCalls.clear();
    doubleClick();
    EXPECT_FALSE(form1.Visible());
    EXPECT_EQ(windowCalls, activation);
    EXPECT_TRUE(sent.empty());
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(TrayIconTest, AWindowWithoutProcessIsNotActivated) {
    surface.user32.failCall(1);
    doubleClick();
    EXPECT_TRUE(form1.Visible());
    EXPECT_EQ(windowCalls, Texts{"GetWindowThreadProcessId Form1"});
}

TEST_F(TrayIconTest, DuringACheckADoubleClickAsksFirst) {
    globals.bChecking = true;
    host.answers = {BoxAnswer::no};
    doubleClick();
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, checkingQuestion);
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::none);
    EXPECT_EQ(host.boxes[0].title, "Velmora");
    EXPECT_FALSE(form1.Visible());
    EXPECT_TRUE(windowCalls.empty());
    host.answers = {BoxAnswer::yes};
    doubleClick();
    EXPECT_TRUE(form1.Visible());
}

TEST_F(TrayIconTest, ARightClickPopsUpTheMenu) {
    rightClick();
    EXPECT_EQ(menus, 1);
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_TRUE(windowCalls.empty());
}

TEST_F(TrayIconTest, DuringACheckARightClickAsksFirst) {
    globals.bChecking = true;
    host.answers = {BoxAnswer::no, BoxAnswer::yes};
    rightClick();
    EXPECT_EQ(menus, 0);
    ASSERT_EQ(host.boxes.size(), 1u);
    EXPECT_EQ(host.boxes[0].text, checkingMenuQuestion);
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::none);
    rightClick();
    EXPECT_EQ(menus, 1);
}

TEST_F(TrayIconTest, AllOtherMessagesAreIgnored) {
    globals.bChecking = true;
    for (int message = 0; message <= 1100; ++message) {
        if (message != leftDoubleClick && message != rightButtonUp) {
            sendMouse(forms.sysWorkSystray, message);
            sendMouse(form1, message);
        }
    }
    for (const float place : {-7725.0F, 1e30F, std::numeric_limits<float>::infinity(),
                              std::numeric_limits<float>::quiet_NaN()}) {
        forms.sysWorkSystray.MouseMove(place);
    }
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(menus, 0);
    EXPECT_FALSE(form1.Visible());
    EXPECT_TRUE(windowCalls.empty());
}

TEST_F(TrayIconTest, WhileLockedADoubleClickShowsTheLockAndNothingElse) {
    globals.bLocked = true;
    forms.frmLock.Text1.setText("left");
    doubleClick();
    EXPECT_TRUE(forms.frmLock.Visible());
    EXPECT_EQ(forms.frmLock.Command1[0].Caption(), "Unlock");
    EXPECT_TRUE(forms.frmLock.Text1.empty());
    EXPECT_FALSE(form1.Visible());
    EXPECT_TRUE(windowCalls.empty());
}

TEST_F(TrayIconTest, WhileLockedADoubleClickLeavesAFlashRunning) {
    globals.bLocked = true;
    forms.sysWorkSystray.tmrSystray.setEnabled(true);
    tick();
    doubleClick();
    EXPECT_TRUE(tray.bFlashing());
    EXPECT_TRUE(forms.sysWorkSystray.tmrSystray.Enabled());
    EXPECT_FALSE(form1.Visible());
}

TEST_F(TrayIconTest, WhileLockedADoubleClickDuringACheckAsksItsQuestionFirst) {
    globals.bLocked = true;
    globals.bChecking = true;
    host.answers = {BoxAnswer::no};
    doubleClick();
    EXPECT_EQ(boxTexts(), Texts{checkingQuestion});
    EXPECT_FALSE(forms.frmLock.Visible());
    host.answers = {BoxAnswer::yes};
    doubleClick();
    EXPECT_TRUE(forms.frmLock.Visible());
}

TEST_F(TrayIconTest, TheMenuIsOfferedWhileLocked) {
    globals.bLocked = true;
    rightClick();
    EXPECT_EQ(menus, 1);
}

TEST_F(TrayIconTest, ADoubleClickThatShowsTheWindowUnticksHide) {
    form1.mnuHide.setChecked(true);
    form1.Hide();
    doubleClick();
    EXPECT_TRUE(form1.Visible());
    EXPECT_FALSE(form1.mnuHide.Checked());
}

}  // namespace
}  // namespace velmora::tests
