// The window and the lock can be reached on a desktop without a notification area.
#include "shell/reachability.h"

#include <gtest/gtest.h>

#include "fake/fake_machine.h"

namespace velmora {
namespace {

struct ReachabilityTest : testing::Test {
    fake::FakeNotifyArea notifyArea;
    Forms forms;
    Form1& form1 = forms.form1;
    FrmLock& lock = forms.frmLock;
    Reachability reachability{forms, notifyArea};

    ReachabilityTest() { form1.Show(); }
    const std::string& detail() { return form1.StatusBar1.Panels(2).Text; }
};

TEST_F(ReachabilityTest, WithANotificationAreaAClosedWindowHides) {
    form1.userClose();
    EXPECT_FALSE(form1.Visible());
    EXPECT_EQ(form1.State(), WindowState::normal);
    EXPECT_EQ(detail(), "");
}

TEST_F(ReachabilityTest, WithANotificationAreaAShownWindowKeepsItsState) {
    form1.setState(WindowState::minimised);
    form1.Show();
    EXPECT_EQ(form1.State(), WindowState::minimised);
}

TEST_F(ReachabilityTest, WithoutOneAClosedWindowIsMinimisedWithOneMessage) {
    notifyArea.present = false;
    form1.userClose();
    EXPECT_TRUE(form1.Visible());
    EXPECT_EQ(form1.State(), WindowState::minimised);
    EXPECT_EQ(detail(),
              "No icon stands in a notification area: the window is minimised instead of hidden.");

    form1.StatusBar1.setPanelText(2, "Watching.");
    form1.Hide();
    EXPECT_TRUE(form1.Visible());
    EXPECT_EQ(form1.State(), WindowState::minimised);
    EXPECT_EQ(detail(), "Watching.");
}

TEST_F(ReachabilityTest, WithoutOneAWindowShownAgainIsRestored) {
    notifyArea.present = false;
    form1.Hide();
    form1.Show();
    EXPECT_EQ(form1.State(), WindowState::normal);
    form1.setState(WindowState::maximised);
    form1.Show();
    EXPECT_EQ(form1.State(), WindowState::maximised);
}

TEST_F(ReachabilityTest, WithAnAreaThatAppearsLaterTheWindowHidesAgain) {
    notifyArea.present = false;
    form1.Hide();
    notifyArea.present = true;
    form1.Hide();
    EXPECT_FALSE(form1.Visible());
}

TEST_F(ReachabilityTest, LockedWithoutOneOnlyTheLockStays) {
    notifyArea.present = false;
    lock.Show();
    forms.globals.bLocked = true;
    lock.Hide();
    form1.Hide();
    EXPECT_FALSE(form1.Visible());
    EXPECT_TRUE(lock.Visible());
    EXPECT_EQ(lock.State(), WindowState::minimised);
    EXPECT_EQ(lock.Command1[0].Caption(), "Unlock");
    EXPECT_EQ(lock.lblLock.Caption(), "The program is Locked.  Enter password to unlock.");
    EXPECT_EQ(detail(), "");

    lock.setState(WindowState::normal);
    lock.userClose();
    EXPECT_TRUE(lock.Visible());
    EXPECT_EQ(lock.State(), WindowState::minimised);
}

TEST_F(ReachabilityTest, LockedWithAnAreaTheLockHides) {
    lock.Show();
    forms.globals.bLocked = true;
    form1.Hide();
    lock.Hide();
    EXPECT_FALSE(form1.Visible());
    EXPECT_FALSE(lock.Visible());
}

TEST_F(ReachabilityTest, UnlockingHidesTheLock) {
    notifyArea.present = false;
    lock.Show();
    forms.globals.bLocked = true;
    lock.Hide();
    form1.Hide();
    lock.setState(WindowState::normal);
    // The order of unlocking: the window is shown, the lock is hidden, and then it is open.
    form1.Show();
    lock.Hide();
    forms.globals.bLocked = false;
    EXPECT_TRUE(form1.Visible());
    EXPECT_FALSE(lock.Visible());
}

TEST_F(ReachabilityTest, AnOpenLockHidesAndTheWindowStaysAsItIs) {
    notifyArea.present = false;
    lock.Show();
    lock.userClose();
    EXPECT_FALSE(lock.Visible());
    EXPECT_EQ(form1.State(), WindowState::normal);
}

}  // namespace
}  // namespace velmora
