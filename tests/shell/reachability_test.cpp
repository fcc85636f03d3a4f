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
    fake::FakeUserState state;
    Reachability reachability{forms, notifyArea, state};

    ReachabilityTest() { form1.Show(); }
    bool noteIsShown() { return form1.fraTrayNote.Visible(); }
};

TEST_F(ReachabilityTest, WithANotificationAreaAClosedWindowHides) {
    form1.userClose();
    EXPECT_FALSE(form1.Visible());
    EXPECT_EQ(form1.State(), WindowState::normal);
    EXPECT_FALSE(noteIsShown());
}

TEST_F(ReachabilityTest, WithANotificationAreaAShownWindowKeepsItsState) {
    form1.setState(WindowState::minimised);
    form1.Show();
    EXPECT_EQ(form1.State(), WindowState::minimised);
}

TEST_F(ReachabilityTest, WithoutOneAClosedWindowIsMinimisedWithANote) {
    notifyArea.present = false;
    EXPECT_FALSE(noteIsShown());
    form1.userClose();
    EXPECT_TRUE(form1.Visible());
    EXPECT_EQ(form1.State(), WindowState::minimised);
    EXPECT_TRUE(noteIsShown());
    EXPECT_EQ(form1.lblTrayNote.Caption(),
              "No icon stands in a notification area: the window is minimised instead of hidden.");
    EXPECT_EQ(form1.StatusBar1.Panels(2).Text, "");
}

TEST_F(ReachabilityTest, TheNoteStaysUntilItWasReadAndNeverComesBack) {
    notifyArea.present = false;
    form1.userClose();
    form1.Show();
    form1.Hide();
    EXPECT_TRUE(noteIsShown());

    form1.cmdTrayNote.userClick();
    EXPECT_FALSE(noteIsShown());
    form1.Hide();
    EXPECT_EQ(form1.State(), WindowState::minimised);
    EXPECT_FALSE(noteIsShown());

    Forms later;
    const Reachability laterRun(later, notifyArea, state);
    later.form1.Show();
    later.form1.Hide();
    EXPECT_EQ(later.form1.State(), WindowState::minimised);
    EXPECT_FALSE(later.form1.fraTrayNote.Visible());
}

// A later version finds what this one has kept.
TEST_F(ReachabilityTest, ANoteThatWasReadIsKeptByThisName) {
    notifyArea.present = false;
    form1.Hide();
    EXPECT_FALSE(state.kept.contains("tray-note-read"));
    form1.cmdTrayNote.userClick();
    EXPECT_TRUE(state.kept.contains("tray-note-read"));
}

TEST_F(ReachabilityTest, AReadNoteIsGoneForThisRunAlsoWhereNothingCanBeKept) {
    notifyArea.present = false;
    state.hasFolder = false;
    form1.Hide();
    form1.cmdTrayNote.userClick();
    form1.Show();
    form1.Hide();
    EXPECT_FALSE(noteIsShown());
}

TEST_F(ReachabilityTest, AnUnreadNoteComesAgainInTheNextRun) {
    notifyArea.present = false;
    form1.Hide();
    Forms later;
    const Reachability laterRun(later, notifyArea, state);
    later.form1.Show();
    later.form1.Hide();
    EXPECT_TRUE(later.form1.fraTrayNote.Visible());
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
    EXPECT_FALSE(noteIsShown());

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
