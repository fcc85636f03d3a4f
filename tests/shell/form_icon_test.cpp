// The main window's own icon, and the hook that lets its menu close.
#include <gtest/gtest.h>

#include <memory>

#include "shell/surface_rig.h"
#include "shell/tray_icon.h"

namespace velmora::tests {
namespace {

struct FormIconTest : testing::Test, SurfaceRig {
    FormIconTest() {
        form1.mnuPopUp.PoppedUp.connect([this] { windowCalls.push_back("menu"); });
    }
    void doubleClick() { sendMouse(form1, leftDoubleClick); }
    void rightClick() { sendMouse(form1, rightButtonUp); }
    std::size_t standingHooks() { return surface.user32.hooks.size(); }

    const Texts activation{"GetWindowThreadProcessId Form1", "AppActivate 4711"};
    std::unique_ptr<TrayIcon> tray = std::make_unique<TrayIcon>(
        forms, machine.platform().clock, surface.host, surface.notifyArea, surface.user32);
};

TEST_F(FormIconTest, ADoubleClickHidesAVisibleWindowWithACheckMark) {
    form1.Show();
    doubleClick();
    EXPECT_FALSE(form1.Visible());
    EXPECT_TRUE(form1.mnuHide.Checked());
    EXPECT_EQ(windowCalls, activation);
}

TEST_F(FormIconTest, ADoubleClickShowsAHiddenWindowInItsNormalState) {
    form1.mnuHide.setChecked(true);
    form1.setState(WindowState::minimised);
    doubleClick();
    EXPECT_TRUE(form1.Visible());
    EXPECT_FALSE(form1.mnuHide.Checked());
    EXPECT_EQ(form1.State(), WindowState::normal);
    EXPECT_EQ(windowCalls, activation);
}

TEST_F(FormIconTest, ADoubleClickAsksNothingDuringACheckAndLeavesAFlash) {
    globals.bChecking = true;
    forms.sysWorkSystray.tmrSystray.Tick();
    doubleClick();
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_TRUE(form1.Visible());
    EXPECT_TRUE(tray->bFlashing());
}

TEST_F(FormIconTest, WhileLockedADoubleClickShowsTheLockOnly) {
    globals.bLocked = true;
    doubleClick();
    EXPECT_TRUE(forms.frmLock.Visible());
    EXPECT_FALSE(form1.Visible());
    EXPECT_TRUE(windowCalls.empty());
}

TEST_F(FormIconTest, ARightClickHooksTheThreadAndPopsUpTheMenu) {
    globals.bChecking = true;
    rightClick();
    EXPECT_EQ(windowCalls, (Texts{"SetWindowsHookExA 4", "menu"}));
    EXPECT_EQ(standingHooks(), 1u);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(FormIconTest, WhenTheMenuIsCreatedItComesToTheFrontAndTheHookEnds) {
    rightClick();
    windowCalls.clear();
    surface.user32.send(1, "menu 7");
    EXPECT_EQ(windowCalls, (Texts{"SetForegroundWindow menu 7", "CallNextHookEx 1 1 menu 7",
                                  "UnhookWindowsHookEx 1"}));
    EXPECT_EQ(standingHooks(), 0u);
    windowCalls.clear();
    form1.mnuPopUp.Closed();
    EXPECT_TRUE(windowCalls.empty());
}

TEST_F(FormIconTest, AllOtherMessagesAreOnlyPassedOn) {
    rightClick();
    windowCalls.clear();
    surface.user32.send(2, "menu 7");
    surface.user32.send(0, "Form1");
    EXPECT_EQ(windowCalls, (Texts{"CallNextHookEx 1 2 menu 7", "CallNextHookEx 1 0 Form1"}));
    EXPECT_EQ(standingHooks(), 1u);
}

TEST_F(FormIconTest, AHookThatIsStillSetIsRemovedWhenTheMenuCloses) {
    rightClick();
    windowCalls.clear();
    form1.mnuPopUp.Closed();
    EXPECT_EQ(windowCalls, Texts{"UnhookWindowsHookEx 1"});
    EXPECT_EQ(standingHooks(), 0u);
    form1.mnuPopUp.Closed();
    EXPECT_EQ(windowCalls.size(), 1u);
}

TEST_F(FormIconTest, ASecondRightClickLeavesOneHook) {
    rightClick();
    rightClick();
    EXPECT_EQ(standingHooks(), 1u);
    EXPECT_EQ(surface.user32.countOf("UnhookWindowsHookEx 1"), 1);
}

TEST_F(FormIconTest, AHookNeverOutlivesItsOwner) {
    rightClick();
    tray.reset();
    EXPECT_EQ(standingHooks(), 0u);
}

TEST_F(FormIconTest, TheMenuOpensWithoutAHook) {
    surface.user32.failCall(1);
    rightClick();
    EXPECT_EQ(windowCalls, (Texts{"SetWindowsHookExA 4", "menu"}));
    form1.mnuPopUp.Closed();
    EXPECT_EQ(surface.user32.countOf("Unhook"), 0);
}

TEST_F(FormIconTest, TheIconOfTheHiddenWindowSetsNoHook) {
    sendMouse(forms.sysWorkSystray, rightButtonUp);
    EXPECT_EQ(windowCalls, Texts{"menu"});
}

// Whichever call of a whole round fails, nothing is thrown, and the next round is not affected.
TEST_F(FormIconTest, AnyFailedCallLeavesTheIconsWorking) {
    constexpr int callsOfARound = 9;
    for (int n = 1; n <= callsOfARound; ++n) {
        surface.user32.failCall(n);
        EXPECT_NO_THROW({
            doubleClick();
            rightClick();
            surface.user32.send(2, "menu");
            surface.user32.send(1, "menu");
            form1.mnuPopUp.Closed();
            sendMouse(forms.sysWorkSystray, leftDoubleClick);
        }) << n;
        // Shown by the one icon, hidden by the other.
        EXPECT_FALSE(form1.Visible()) << n;
        EXPECT_FALSE(form1.mnuHide.Checked()) << n;
        surface.user32.hooks.clear();
        windowCalls.clear();
        rightClick();
        surface.user32.send(1, "menu");
        EXPECT_EQ(standingHooks(), 0u) << n;
    }
}

}  // namespace
}  // namespace velmora::tests
