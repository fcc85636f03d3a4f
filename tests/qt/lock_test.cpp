// The icon in the notification area and the lock, by messages of the icon and typed keys.
#include <QElapsedTimer>

#include "qt/controls/password_edit.h"
#include "qt/window_test.h"

namespace velmora::tests {
namespace {

const std::string stillChecking =
    "The program is still checking. Performing this action may cause errors.\n"
    "Waiting a few seconds for the program to finish would help.\n"
    "Do you wish to continue?";

struct LockTest : WindowTest {
    LockTest() { start(); }

    FrmLock& lockForm() { return program->forms().frmLock; }
    bool locked() { return program->forms().globals.bLocked; }
    QWidget* lockWindow() { return program->window("frmLock"); }
    qt::PasswordEdit* entry() { return find<qt::PasswordEdit>("Text1", "frmLock"); }

    void type(const QString& password) {
        QTest::keyClicks(entry(), password);
        settle();
    }
    void press(int button = 0) { click(QStringLiteral("Command1(%1)").arg(button), "frmLock"); }

    void lockWith(const QString& password) {
        chooseFromIcon("mnuLock");
        type(password);
        boxes.answers = {QMessageBox::Yes, QMessageBox::Ok};
        press();
        ASSERT_TRUE(locked());
        ASSERT_TRUE(boxes.answers.empty());
    }
};

TEST_F(LockTest, APasswordOfTwentyFiveCharactersIsAcceptedAndOneMoreIsNot) {
    chooseFromIcon("mnuLock");
    ASSERT_TRUE(lockWindow()->isVisible());
    type(QString(26, 'p'));
    boxes.answers = {QMessageBox::Yes, QMessageBox::Ok};
    press();
    EXPECT_EQ(boxes.seen.at(0).text, "Are you sure you want to lock the program?");
    EXPECT_EQ(boxes.seen.at(1).text, "Passowrd Length cannot be over 25");
    EXPECT_FALSE(locked());
    EXPECT_TRUE(window()->isVisible());

    QTest::keyClick(entry(), Qt::Key_Backspace);
    boxes.answers = {QMessageBox::Yes, QMessageBox::Ok};
    press();
    EXPECT_EQ(boxes.lastText(), "The program is now lock into the systray.");
    EXPECT_TRUE(locked());
    EXPECT_FALSE(window()->isVisible());
    EXPECT_EQ(program->forms().globals.sLockPassword, std::string(25, 'p'));
}

TEST_F(LockTest, AWishToCloseShowsTheLockAndAsksNothing) {
    lockWith("right");
    const std::size_t before = boxes.seen.size();
    program->askToEnd();
    settle();
    EXPECT_EQ(boxes.seen.size(), before);
    EXPECT_FALSE(window()->isVisible());
    EXPECT_TRUE(lockWindow()->isVisible());
    EXPECT_FALSE(ended);
}

TEST_F(LockTest, AWrongPasswordChangesNothing) {
    lockWith("right");
    type("wrong");
    for (int attempt = 0; attempt < 5; ++attempt) {
        boxes.answers = {QMessageBox::Ok};
        press();
        EXPECT_EQ(boxes.lastText(), "Incorrect Password.");
        EXPECT_TRUE(locked());
        EXPECT_FALSE(window()->isVisible());
        EXPECT_EQ(lockForm().Text1.Text(), "wrong");
    }
}

TEST_F(LockTest, LetterCaseCountsAndEnterUnlocks) {
    lockWith("abc");
    type("Abc");
    boxes.answers = {QMessageBox::Ok};
    QTest::keyClick(entry(), Qt::Key_Return);
    settle();
    EXPECT_TRUE(locked());

    QTest::keyClick(entry(), Qt::Key_Home, Qt::ShiftModifier);
    type("abc");
    QTest::keyClick(entry(), Qt::Key_Return);
    settle();
    EXPECT_FALSE(locked());
    EXPECT_TRUE(window()->isVisible());
    EXPECT_FALSE(window()->isMinimized());
    EXPECT_FALSE(lockWindow()->isVisible());
    EXPECT_TRUE(entry()->text().isEmpty());
}

TEST_F(LockTest, EnterLocksAndADismissedQuestionDoesNot) {
    chooseFromIcon("mnuLock");
    type("abc");
    boxes.answers = {QMessageBox::No};
    QTest::keyClick(entry(), Qt::Key_Enter);
    settle();
    EXPECT_FALSE(locked());
    EXPECT_EQ(entry()->text().size(), 3);
    boxes.answers = {QMessageBox::Yes, QMessageBox::Ok};
    QTest::keyClick(entry(), Qt::Key_Enter);
    settle();
    EXPECT_TRUE(locked());
}

TEST_F(LockTest, WhileLockedADoubleClickDuringACheckAsksFirst) {
    lockWith("abc");
    boxes.answers = {QMessageBox::No};
    type("x");
    duringCheck([this] { onIcon(QSystemTrayIcon::DoubleClick); });
    ASSERT_EQ(boxes.seen.size(), 3u);
    EXPECT_EQ(boxes.lastText(), stillChecking);
    EXPECT_EQ(lockForm().Text1.Text(), "x");  // untouched: the lock was not set up again

    boxes.answers = {QMessageBox::Yes};
    duringCheck([this] { onIcon(QSystemTrayIcon::DoubleClick); });
    EXPECT_EQ(boxes.lastText(), stillChecking);
    EXPECT_TRUE(lockForm().Text1.empty());
    EXPECT_TRUE(lockWindow()->isVisible());
    EXPECT_FALSE(lockWindow()->isMinimized());
    EXPECT_FALSE(window()->isVisible());
    EXPECT_TRUE(locked());
}

TEST_F(LockTest, ADoubleClickDuringAFlashShowsTheWindowAndStopsTheFlash) {
    Timer& flash = program->forms().sysWorkSystray.tmrSystray;
    flash.setEnabled(true);
    machine.advance(1000);
    program->timers().fireDue();
    EXPECT_EQ(icon()->toolTip(), "New Alert Message!");

    ASSERT_TRUE(form1().Visible());
    onIcon(QSystemTrayIcon::DoubleClick);
    EXPECT_TRUE(window()->isVisible());
    EXPECT_FALSE(window()->isMinimized());
    EXPECT_FALSE(flash.Enabled());
    EXPECT_EQ(icon()->toolTip(), "Karvelle Velmora");

    onIcon(QSystemTrayIcon::DoubleClick);  // toggles now
    EXPECT_TRUE(!window()->isVisible() || window()->isMinimized());
}

TEST_F(LockTest, ARestartFindsNothingLocked) {
    lockWith("abc");
    program.reset();
    start();
    EXPECT_FALSE(locked());
    EXPECT_TRUE(window()->isVisible());
    chooseFromIcon("mnuLock");
    EXPECT_EQ(find<QPushButton>("Command1(0)", "frmLock")->text(), "Lock");
    for (const auto& [path, content] : machine.files) {
        EXPECT_EQ(content.find("abc"), std::string::npos) << path;
    }
}

TEST_F(LockTest, ATipWithoutTextOfItsOwnIsMadeOfTheTitle) {
    click("lblTab(3)");
    click("chkSystray");
    EXPECT_EQ(icon(), nullptr);
    click("chkSystray");
    ASSERT_NE(icon(), nullptr);
    EXPECT_EQ(icon()->toolTip(), "03/14 15:09 Velmora");
}

TEST_F(LockTest, WithoutANotificationAreaTheLockStaysReachable) {
    ASSERT_FALSE(program->notifyArea().available());
    lockWith("abc");
    EXPECT_TRUE(lockWindow()->isVisible());
    EXPECT_TRUE(lockWindow()->isMinimized());
    EXPECT_FALSE(window()->isVisible());

    lockWindow()->showNormal();
    settle();
    lockWindow()->close();
    settle();
    EXPECT_TRUE(lockWindow()->isVisible());
    EXPECT_TRUE(lockWindow()->isMinimized());
    EXPECT_TRUE(locked());

    lockWindow()->showNormal();
    settle();
    type("abc");
    press();
    EXPECT_FALSE(locked());
    EXPECT_FALSE(lockWindow()->isVisible());
    EXPECT_TRUE(window()->isVisible());
}

TEST_F(LockTest, AnEmptyEntryIsRefusedByBothButtons) {
    chooseFromIcon("mnuLock");
    for (const int button : {0, 1}) {
        boxes.answers = {QMessageBox::Ok};
        press(button);
        EXPECT_EQ(boxes.lastText(), "A password must be entered.");
    }
    EXPECT_FALSE(locked());
    EXPECT_FALSE(lockWindow()->isVisible());
}

TEST_F(LockTest, TheSecondButtonClosesTheWindowAndLeavesTheProgramOpen) {
    chooseFromIcon("mnuLock");
    EXPECT_EQ(find<QPushButton>("Command1(1)", "frmLock")->text(), "Close");
    type("abc");
    press(1);
    EXPECT_FALSE(lockWindow()->isVisible());
    EXPECT_FALSE(locked());
    EXPECT_TRUE(entry()->text().isEmpty());
}

// Many desktops report only single clicks.
TEST_F(LockTest, TwoSingleClicksOnTheIconAreADoubleClickAndOneIsNone) {
    ASSERT_TRUE(window()->isVisible());
    onIcon(QSystemTrayIcon::Trigger);
    EXPECT_TRUE(form1().Visible());
    const int visibleBefore = form1().Visible();
    int hidden = 0;
    form1().Hidden.connect([&hidden] { ++hidden; });
    onIcon(QSystemTrayIcon::Trigger);
    EXPECT_EQ(hidden, visibleBefore);
}

TEST_F(LockTest, TwoSingleClicksThatAreTooFarApartAreNone) {
    const int usual = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(0);
    int hidden = 0;
    form1().Hidden.connect([&hidden] { ++hidden; });
    for (int i = 0; i < 4; ++i) {
        onIcon(QSystemTrayIcon::Trigger);
        QElapsedTimer since;
        since.start();
        EXPECT_TRUE(QTest::qWaitFor([&since] { return since.elapsed() > 1; }));
    }
    QApplication::setDoubleClickInterval(usual);
    EXPECT_EQ(hidden, 0);
    EXPECT_TRUE(form1().Visible());
}

}  // namespace
}  // namespace velmora::tests
