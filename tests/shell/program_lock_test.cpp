// The lock, which hides the program's windows.
#include "shell/program_lock.h"

#include <gtest/gtest.h>

#include "shell/surface_rig.h"
#include "shell/tray_icon.h"

namespace velmora::tests {
namespace {

constexpr const char* openText =
    "The program is Not Lock. Set a password and press Lock to Lock the program. The program will "
    "be locked into the systray.  To unlock, double click the systray icon.";
constexpr const char* openTextOfLoad =
    "The program is Not Lock.  Set a password and press Lock to Lock the program. The program will "
    "be locked into the systray.  To unlock, double click the systray icon.";
constexpr const char* lockedText = "The program is Locked.  Enter password to unlock.";

struct ProgramLockTest : testing::Test, SurfaceRig {
    void press(int index) { form.Command1[index].userClick(); }
    /// Opens the form, enters the password and locks.
    void lockWith(const std::string& password) {
        prcSrvFrm(forms);
        form.Text1.setText(password);
        host.answers = {BoxAnswer::yes};
        press(0);
        host.boxes.clear();
    }
    void unlockWith(const std::string& password) {
        prcSrvFrm(forms);
        form.Text1.setText(password);
        press(0);
    }

    FrmLock& form = forms.frmLock;
    TrayIcon tray{forms, machine.platform().clock, surface.host, surface.notifyArea,
                  surface.user32};
    ProgramLock lock{forms, host, tray};
};

TEST_F(ProgramLockTest, AFreshProgramIsOpen) {
    EXPECT_FALSE(globals.bLocked);
    EXPECT_EQ(globals.sLockPassword, "");
    EXPECT_EQ(form.Caption(), "Program Lock - Velmora");
    EXPECT_EQ(form.Label1.Caption(), "Password Entry to (Un) Lock program:");
    EXPECT_TRUE(form.Text1.masked());
}

TEST_F(ProgramLockTest, AnOpenProgramIsOfferedTheLock) {
    prcSrvFrm(forms);
    form.Text1.setText("x");
    form.Command1[0].setCaption("Unlock");
    prcSrvFrm(forms);
    EXPECT_EQ(form.Text1.Text(), "");
    EXPECT_EQ(form.Command1[0].Caption(), "Lock");
    EXPECT_EQ(form.lblLock.Caption(), openText);
    EXPECT_TRUE(form.Visible());
}

TEST_F(ProgramLockTest, TheFormsFirstTextHasOneBlankMore) {
    prcSrvFrm(forms);
    EXPECT_EQ(form.lblLock.Caption(), openTextOfLoad);
    form.Hide();
    prcSrvFrm(forms);
    EXPECT_EQ(form.lblLock.Caption(), openText);
}

TEST_F(ProgramLockTest, ALockedProgramIsOfferedTheUnlocking) {
    globals.bLocked = true;
    for (int showing = 0; showing < 2; ++showing) {
        prcSrvFrm(forms);
        EXPECT_EQ(form.Command1[0].Caption(), "Unlock");
        EXPECT_EQ(form.lblLock.Caption(), lockedText);
        EXPECT_TRUE(form.Visible());
    }
}

TEST_F(ProgramLockTest, AnEmptyPasswordIsRefusedByEveryButton) {
    prcSrvFrm(forms);
    press(0);
    press(1);
    ASSERT_EQ(boxTexts(), (Texts{"A password must be entered.", "A password must be entered."}));
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::none);
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::ok);
    EXPECT_EQ(host.boxes[0].title, "Velmora");
    EXPECT_FALSE(globals.bLocked);
}

TEST_F(ProgramLockTest, AnEmptyPasswordKeepsTheWindowOfTheFirstButton) {
    prcSrvFrm(forms);
    press(0);
    EXPECT_TRUE(form.Visible());
}

TEST_F(ProgramLockTest, TheOtherButtonClosesTheWindowAsItSaysAndNothingElse) {
    EXPECT_EQ(form.Command1[1].Caption(), "Close");
    for (const bool locked : {false, true}) {
        globals.bLocked = locked;
        globals.sLockPassword = "abc";
        form1.setVisible(!locked);
        prcSrvFrm(forms);
        form.Text1.setText("abc");
        press(1);
        EXPECT_TRUE(host.boxes.empty());
        EXPECT_FALSE(form.Visible());
        EXPECT_EQ(form.Text1.Text(), "");
        EXPECT_EQ(globals.bLocked, locked);
        EXPECT_EQ(globals.sLockPassword, "abc");
        EXPECT_EQ(form1.Visible(), !locked);
    }
}

TEST_F(ProgramLockTest, WithoutAPasswordTheOtherButtonAsksForOneAndClosesTheWindow) {
    prcSrvFrm(forms);
    host.onBox = [this](const Box&) { EXPECT_TRUE(form.Visible()); };
    press(1);
    EXPECT_EQ(boxTexts(), Texts{"A password must be entered."});
    EXPECT_FALSE(form.Visible());
}

TEST_F(ProgramLockTest, ACaptionThatIsNeitherWordDoesNothing) {
    form.Command1[0].setCaption("lock");
    form.Text1.setText("abc");
    press(0);
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_FALSE(globals.bLocked);
}

TEST_F(ProgramLockTest, LockingAsksHidesTheWindowsAndReportsIt) {
    for (Form* window : {static_cast<Form*>(&form1), static_cast<Form*>(&forms.dlgAlert),
                         static_cast<Form*>(&forms.frmNotify), static_cast<Form*>(&forms.icon1)}) {
        window->Show();
    }
    prcSrvFrm(forms);
    form.Text1.setText("abc");
    host.answers = {BoxAnswer::yes};
    host.onBox = [this](const Box& box) {
        const bool isLast = box.icon == BoxIcon::information;
        EXPECT_EQ(form1.Visible(), !isLast);
        EXPECT_EQ(globals.bLocked, isLast);
    };
    press(0);
    ASSERT_EQ(host.boxes.size(), 2u);
    EXPECT_EQ(host.boxes[0].text, "Are you sure you want to lock the program?");
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::question);
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::yesNo);
    EXPECT_EQ(host.boxes[1].text, "The program is now lock into the systray.");
    EXPECT_EQ(host.boxes[1].icon, BoxIcon::information);
    EXPECT_EQ(host.boxes[1].buttons, BoxButtons::ok);
    EXPECT_TRUE(globals.bLocked);
    EXPECT_EQ(globals.sLockPassword, "abc");
    EXPECT_FALSE(form.Visible());
    EXPECT_FALSE(form1.Visible());
    EXPECT_FALSE(forms.dlgAlert.Visible());
    EXPECT_FALSE(forms.frmNotify.Visible());
    EXPECT_FALSE(forms.icon1.Visible());
    EXPECT_TRUE(sent.empty());
}

TEST_F(ProgramLockTest, ThePasswordIsStoredInOnePlaceOnly) {
    lockWith("abc");
    EXPECT_EQ(globals.sLockPassword, "abc");
    EXPECT_EQ(form.Text1.Text(), "");
}

TEST_F(ProgramLockTest, NoToTheQuestionLeavesAllOpenAndResetsTheTip) {
    globals.sTrayTip = "Velmora! Started.";
    form1.Show();
    prcSrvFrm(forms);
    form.Text1.setText("abc");
    for (const BoxAnswer answer : {BoxAnswer::no, BoxAnswer::cancel, BoxAnswer::ok}) {
        sent.clear();
        host.answers = {answer};
        press(0);
        EXPECT_FALSE(globals.bLocked);
        EXPECT_EQ(globals.sLockPassword, "");
        EXPECT_TRUE(form1.Visible());
        EXPECT_TRUE(form.Visible());
        ASSERT_EQ(sent.size(), 1u);
        EXPECT_EQ(sent[0].first, NotifyMessage::modify);
        EXPECT_EQ(sent[0].second.tip, "Velmora! Started.");
    }
    EXPECT_EQ(host.boxes.size(), 3u);
}

TEST_F(ProgramLockTest, TwentyFiveCharactersAreAccepted) {
    lockWith("abcdefghijklmnopqrstuvwxy");
    EXPECT_TRUE(globals.bLocked);
    EXPECT_EQ(globals.sLockPassword, "abcdefghijklmnopqrstuvwxy");
}

TEST_F(ProgramLockTest, TheLimitCountsCharacters) {
    std::string euros;
    for (int i = 0; i < 25; ++i) euros += "\u20AC";
    lockWith(euros);
    EXPECT_TRUE(globals.bLocked);
}

TEST_F(ProgramLockTest, TwentySixCharactersAreRefusedAfterTheQuestion) {
    prcSrvFrm(forms);
    form.Text1.setText("abcdefghijklmnopqrstuvwxyz");
    host.answers = {BoxAnswer::yes};
    press(0);
    EXPECT_EQ(boxTexts(), (Texts{"Are you sure you want to lock the program?",
                                 "Passowrd Length cannot be over 25"}));
    EXPECT_EQ(host.boxes[1].icon, BoxIcon::none);
    EXPECT_FALSE(globals.bLocked);
    EXPECT_EQ(globals.sLockPassword, "");
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(form.Text1.textLength(), 26u);
    EXPECT_TRUE(sent.empty());
}

TEST_F(ProgramLockTest, APasswordClearedDuringTheQuestionLocksNothing) {
    prcSrvFrm(forms);
    form.Text1.setText("abc");
    host.answers = {BoxAnswer::yes};
    host.onBox = [this](const Box&) { prcSrvFrm(forms); };
    press(0);
    EXPECT_FALSE(globals.bLocked);
}

TEST_F(ProgramLockTest, TheRightPasswordShowsTheWindowAndOpens) {
    lockWith("abc");
    unlockWith("abc");
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_FALSE(globals.bLocked);
    EXPECT_EQ(globals.sLockPassword, "");
    EXPECT_EQ(form.Text1.Text(), "");
    EXPECT_TRUE(form1.Visible());
    EXPECT_FALSE(form.Visible());
    EXPECT_FALSE(forms.dlgAlert.Visible());
}

TEST_F(ProgramLockTest, AWrongPasswordKeepsTheLockAndChangesNothing) {
    lockWith("abc");
    unlockWith("abd");
    ASSERT_EQ(boxTexts(), Texts{"Incorrect Password."});
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::none);
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::ok);
    EXPECT_TRUE(globals.bLocked);
    EXPECT_EQ(globals.sLockPassword, "abc");
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(form.Text1.Text(), "abd");
    EXPECT_EQ(form.Command1[0].Caption(), "Unlock");
    EXPECT_FALSE(form1.Visible());
}

TEST_F(ProgramLockTest, TheComparisonIsExact) {
    lockWith("abc");
    for (const char* wrong : {"Abc", "ABC", "abc ", " abc", "ab", "abcd"}) {
        unlockWith(wrong);
        EXPECT_TRUE(globals.bLocked) << wrong;
    }
    unlockWith("abc");
    EXPECT_FALSE(globals.bLocked);
}

TEST_F(ProgramLockTest, AttemptsHaveNoLimit) {
    lockWith("abc");
    for (int attempt = 0; attempt < 1000; ++attempt) unlockWith("wrong");
    EXPECT_EQ(host.boxes.size(), 1000u);
    unlockWith("abc");
    EXPECT_FALSE(globals.bLocked);
}

TEST_F(ProgramLockTest, AnOpenedProgramCanBeLockedWithAnotherPassword) {
    lockWith("a longer password of some");
    unlockWith("a longer password of some");
    lockWith("abc");
    unlockWith("a longer password of some");
    EXPECT_TRUE(globals.bLocked);
    unlockWith("abc");
    EXPECT_FALSE(globals.bLocked);
}

TEST_F(ProgramLockTest, EnterClicksTheFirstButtonAndOtherKeysDoNothing) {
    prcSrvFrm(forms);
    form.Text1.setText("abc");
    host.answers = {BoxAnswer::yes};
    for (int key = 1; key < 256; ++key) {
        if (key != 13) form.Text1.KeyPress(key);
    }
    EXPECT_FALSE(globals.bLocked);
    form.Text1.KeyPress(13);
    EXPECT_TRUE(globals.bLocked);
}

TEST_F(ProgramLockTest, NothingIsLockedAfterARestart) {
    lockWith("abc");
    EXPECT_TRUE(machine.files.empty());
    EXPECT_EQ(machine.log.count(), 0);
    const Forms restarted;
    EXPECT_FALSE(restarted.globals.bLocked);
    EXPECT_EQ(restarted.globals.sLockPassword, "");
}

TEST_F(ProgramLockTest, ADoubleClickOnTheIconLeadsBackToTheOpenProgram) {
    lockWith("abc");
    sendMouse(forms.sysWorkSystray, leftDoubleClick);
    EXPECT_TRUE(form.Visible());
    form.Text1.setText("abc");
    form.Text1.KeyPress(13);
    EXPECT_TRUE(form1.Visible());
    EXPECT_FALSE(form.Visible());
}

TEST_F(ProgramLockTest, TimersGoOnWhileLocked) {
    lockWith("abc");
    EXPECT_TRUE(form1.Timer1.Enabled());
    EXPECT_TRUE(form1.TimerCust.Enabled());
    forms.sysWorkSystray.tmrSystray.setEnabled(true);
    forms.sysWorkSystray.tmrSystray.Tick();
    EXPECT_TRUE(tray.bFlashing());
}

TEST_F(ProgramLockTest, WhileLockedNoWindowButTheLocksCanBeShown) {
    lockWith("abc");
    for (Form* window : forms.all()) {
        window->Show();
        EXPECT_EQ(window->Visible(), window == &form) << window->Name();
    }
    prcSrvFrm(forms);
    form.Text1.setText("abc");
    form.Text1.KeyPress(13);
    EXPECT_TRUE(form1.Visible());
    forms.dlgAlert.Show();
    EXPECT_TRUE(forms.dlgAlert.Visible());
}

TEST_F(ProgramLockTest, SwitchingTheIconOffWhileLockedDoesNotOpenTheWindow) {
    lockWith("abc");
    form1.chkSystray.setValue(0);
    EXPECT_FALSE(form1.Visible());
    EXPECT_TRUE(globals.bLocked);
}

}  // namespace
}  // namespace velmora::tests
