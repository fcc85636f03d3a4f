// Where windows are, how large, and over which others.
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QWindow>

#include "qt/window_test.h"
#include "qt/windows/screen_room.h"

namespace velmora::tests {
namespace {

const QList<QRect> twoScreens{QRect(0, 0, 1920, 1040), QRect(-1280, 200, 1280, 984)};

TEST(WithinReach, AWindowOnAScreenIs) {
    EXPECT_TRUE(qt::isWithinReach(QRect(100, 100, 540, 600), twoScreens));
    EXPECT_TRUE(qt::isWithinReach(QRect(0, 0, 540, 600), twoScreens));
    EXPECT_TRUE(qt::isWithinReach(QRect(-1200, 300, 540, 600), twoScreens));
}

TEST(WithinReach, AWindowOffEveryScreenIsNot) {
    EXPECT_FALSE(qt::isWithinReach(QRect(4000, 100, 540, 600), twoScreens));
    EXPECT_FALSE(qt::isWithinReach(QRect(100, 2000, 540, 600), twoScreens));
    EXPECT_FALSE(qt::isWithinReach(QRect(-32000, -32000, 540, 600), twoScreens));
    EXPECT_FALSE(qt::isWithinReach(QRect(-1200, 100, 540, 60), twoScreens));
}

TEST(WithinReach, ItsUpperEdgeMustBeThereToTakeHoldOf) {
    EXPECT_FALSE(qt::isWithinReach(QRect(100, -100, 540, 600), twoScreens));
    EXPECT_FALSE(qt::isWithinReach(QRect(100, 1030, 540, 600), twoScreens));
    EXPECT_TRUE(qt::isWithinReach(QRect(100, 1020, 540, 600), twoScreens));
    EXPECT_FALSE(qt::isWithinReach(QRect(1900, 100, 540, 600), twoScreens));
    EXPECT_TRUE(qt::isWithinReach(QRect(1800, 100, 540, 600), twoScreens));
}

TEST(WithinReach, ASmallWindowNeedsItsWholeWidth) {
    EXPECT_TRUE(qt::isWithinReach(QRect(100, 100, 40, 40), twoScreens));
    EXPECT_FALSE(qt::isWithinReach(QRect(1900, 100, 40, 40), twoScreens));
}

TEST(CentredOver, TheMiddlesAreTheSame) {
    EXPECT_EQ(qt::centredOver(QRect(200, 100, 600, 400), QSize(200, 100), QRect(0, 0, 1920, 1040)),
              QRect(400, 250, 200, 100));
}

TEST(CentredOver, ItStaysOnTheScreen) {
    const QRect room(0, 0, 1000, 800);
    const QSize size(300, 200);
    EXPECT_EQ(qt::centredOver(QRect(-400, 100, 600, 400), size, room).left(), 0);
    EXPECT_EQ(qt::centredOver(QRect(900, 700, 600, 400), size, room).bottomRight(),
              QPoint(999, 799));
    // One that is larger than the screen shows its upper left corner.
    EXPECT_EQ(qt::centredOver(QRect(200, 100, 600, 400), QSize(1200, 900), room).topLeft(),
              QPoint(0, 0));
}

struct WindowPlaceTest : WindowTest {
    static constexpr int screenHeight = 800;

    QRect frameOf(const std::string& form) { return program->window(form)->frameGeometry(); }
    void show(Form& form) {
        form.Show();
        settle();
    }
    QPoint middleOfMain() { return window()->frameGeometry().center(); }
    static void expectNear(const QPoint& a, const QPoint& b) {
        EXPECT_LE((a - b).manhattanLength(), 2)
            << a.x() << ',' << a.y() << ' ' << b.x() << ',' << b.y();
    }
    void startWithPlace(const std::string& text) {
        machine.userState.kept["windows"] = text;
        start();
    }
    void restart() {
        program.reset();
        start();
    }
};

TEST_F(WindowPlaceTest, AMoveByTheUserIsTheFormsPlace) {
    start();
    window()->move(110, 90);
    settle();
    EXPECT_EQ(form1().Left(), 1650);
    EXPECT_EQ(form1().Top(), 1350);
}

TEST_F(WindowPlaceTest, PlaceAndSizeComeBackAfterARestart) {
    start();
    window()->move(110, 90);
    window()->resize(600, 640);
    settle();
    const int before = machine.userState.writes;
    ASSERT_TRUE(QTest::qWaitFor([&] { return machine.userState.writes > before; }, 10'000));
    restart();
    EXPECT_EQ(window()->pos(), QPoint(110, 90));
    EXPECT_EQ(window()->size(), QSize(600, 640));
    EXPECT_EQ(form1().Height(), 9600);
}

TEST_F(WindowPlaceTest, TheEndOfTheProgramKeepsThemAtOnce) {
    start();
    window()->move(110, 90);
    settle();
    boxes.answers = {QMessageBox::Ok};
    runUntilEnded([this] { click("Command6"); });
    restart();
    EXPECT_EQ(window()->pos(), QPoint(110, 90));
}

TEST_F(WindowPlaceTest, NothingOfItIsInTheSettingsFile) {
    const std::string path = "C:\\Program Files\\Velmora\\set.dat";
    start();
    form1().Command8.Click();
    const std::string before = machine.files[path];
    window()->move(110, 90);
    settle();
    form1().Command8.Click();
    EXPECT_EQ(machine.files[path], before);
}

TEST_F(WindowPlaceTest, APlaceOffEveryScreenIsNotUsed) {
    for (const char* text : {"Form1 8070 9100 at 90000 90000\n", "Form1 8070 9100 at -90000 300\n",
                             "Form1 8070 9100 at 300 -3000\n"}) {
        startWithPlace(text);
        EXPECT_TRUE(QGuiApplication::primaryScreen()->geometry().contains(frameOf("Form1")))
            << text;
        program.reset();
    }
}

TEST_F(WindowPlaceTest, AKeptSizeThatTheScreenHasNoRoomForStaysTheForms) {
    startWithPlace("Form1 8070 15000 at 0 0\n");
    EXPECT_EQ(form1().Height(), 15000);
    EXPECT_EQ(frameOf("Form1").height(), screenHeight);
    EXPECT_EQ(frameOf("Form1").top(), 0);
    auto* bar = window()->findChild<QStatusBar*>();
    EXPECT_LT(bar->mapToGlobal(bar->rect().bottomLeft()).y(), screenHeight);
}

TEST_F(WindowPlaceTest, BackAtTheHeightThatWasShownTheFormHasItsOwnAgain) {
    start();
    form1().setSize(8070, 15000);
    settle();
    const int shown = window()->height();
    ASSERT_EQ(frameOf("Form1").height(), screenHeight);
    EXPECT_EQ(form1().Height(), 15000);
    window()->resize(window()->width(), 700);
    settle();
    EXPECT_EQ(form1().Height(), 10500);
    window()->resize(window()->width(), shown);
    settle();
    EXPECT_EQ(form1().Height(), 15000);
}

// 9100 twips are 607 pixels, of which 9105 would be.
TEST_F(WindowPlaceTest, BackAtTheToldHeightTheFormHasItToTheTwip) {
    start();
    window()->resize(window()->width(), 650);
    settle();
    ASSERT_EQ(form1().Height(), 9750);
    window()->resize(window()->width(), 607);
    settle();
    EXPECT_EQ(form1().Height(), 9100);
}

TEST_F(WindowPlaceTest, TheUserMayMakeTheWindowLargerThanTheScreen) {
    start();
    window()->resize(1100, 900);
    settle();
    form1().setCaption("Velmora - Watching Activated");
    settle();
    EXPECT_EQ(window()->size(), QSize(1100, 900));
    EXPECT_EQ(form1().Width(), 16500);
}

// 1920 by 1080 at 200 %, without a task bar of 48 and a title of 31.
TEST_F(WindowPlaceTest, OnALowScreenEveryPageLeavesTheStatusBarInView) {
    constexpr int lowest = 540 - 48 - 31;
    start();
    for (int tab = 0; tab < 5; ++tab) {
        click(QStringLiteral("lblTab(%1)").arg(tab));
        window()->resize(538, lowest);
        settle();
        EXPECT_EQ(window()->height(), lowest) << tab;
        auto* bar = window()->findChild<QStatusBar*>();
        EXPECT_LT(bar->mapTo(window(), bar->rect().bottomLeft()).y(), lowest) << tab;
        // What scrolls then is not cut at its side.
        for (auto* area : window()->findChildren<QScrollArea*>()) {
            if (!area->isVisible() || !area->isAncestorOf(find("Frame1"))) continue;
            EXPECT_LE(area->widget()->width(), area->viewport()->width()) << tab;
        }
    }
}

TEST_F(WindowPlaceTest, TheCompactViewHasNoEmptyRoomBelowTheList) {
    start();
    click("Toolbar1(5)");
    auto* bar = window()->findChild<QStatusBar*>();
    const QWidget* frame = find("Frame8");
    const int under = frame->mapTo(window(), frame->rect().bottomLeft()).y();
    EXPECT_LT(bar->mapTo(window(), QPoint()).y() - under, 20);
}

TEST_F(WindowPlaceTest, ADialogComesOverTheMainWindowAndBelongsToIt) {
    start();
    Forms& forms = program->forms();
    window()->move(60, 80);
    settle();
    for (Form* form : std::initializer_list<Form*>{&forms.frmAbout, &forms.frmLock,
                                                   &forms.frmWizard, &forms.frmHistory}) {
        show(*form);
        QWidget* dialog = program->window(form->Name());
        EXPECT_EQ(dialog->windowHandle()->transientParent(), window()->windowHandle())
            << form->Name();
        EXPECT_EQ(dialog->windowType(), Qt::Dialog);
    }
    expectNear(frameOf("frmAbout").center(), middleOfMain());
    expectNear(frameOf("frmLock").center(), middleOfMain());
}

TEST_F(WindowPlaceTest, ADialogComesWhereTheMainWindowIsNow) {
    start();
    show(program->forms().frmAbout);
    program->forms().frmAbout.Hide();
    window()->move(200, 150);
    settle();
    show(program->forms().frmAbout);
    expectNear(frameOf("frmAbout").center(), middleOfMain());
}

TEST_F(WindowPlaceTest, WhileTheMainWindowIsHiddenADialogComesInTheMiddleOfTheScreen) {
    start();
    window()->hide();
    show(program->forms().frmAbout);
    QWidget* about = program->window("frmAbout");
    EXPECT_EQ(about->windowHandle()->transientParent(), nullptr);
    EXPECT_EQ(about->windowType(), Qt::Window);
    expectNear(frameOf("frmAbout").center(),
               QGuiApplication::primaryScreen()->availableGeometry().center());
}

TEST_F(WindowPlaceTest, AMovedHistoryComesAgainWhereItWasPut) {
    start();
    show(program->forms().frmHistory);
    program->window("frmHistory")->move(150, 40);
    settle();
    program->forms().frmHistory.Hide();
    settle();
    show(program->forms().frmHistory);
    EXPECT_EQ(frameOf("frmHistory").topLeft(), QPoint(150, 40));

    program->hand().does([this] { program->forms().frmHistory.Hide(); });
    boxes.answers = {QMessageBox::Ok};
    runUntilEnded([this] { click("Command6"); });
    restart();
    show(program->forms().frmHistory);
    EXPECT_EQ(frameOf("frmHistory").topLeft(), QPoint(150, 40));
}

TEST_F(WindowPlaceTest, TheMailSettingsComeAgainWhereTheyWerePut) {
    start();
    show(program->forms().frmNotify);
    program->window("frmNotify")->move(150, 40);
    settle();
    program->forms().frmNotify.Hide();
    settle();
    show(program->forms().frmNotify);
    EXPECT_EQ(frameOf("frmNotify").topLeft(), QPoint(150, 40));
}

TEST_F(WindowPlaceTest, TheAlertDialogTakesNoKeyboardAndBelongsToNoWindow) {
    start();
    form1().mnuShowAlert.Click();
    settle();
    QWidget* alert = program->window("dlgAlert");
    ASSERT_TRUE(alert->isVisible());
    // The offscreen platform activates every window that is shown, but none that is raised.
    EXPECT_TRUE(alert->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_EQ(alert->windowHandle()->transientParent(), nullptr);
    window()->activateWindow();
    settle();
    form1().mnuShowAlert.Click();
    settle();
    EXPECT_EQ(QApplication::activeWindow(), window());
}

TEST_F(WindowPlaceTest, ABoxBelongsToTheWindowThatTheUserWorksWith) {
    start();
    window()->activateWindow();
    settle();
    QWidget* owner = nullptr;
    boxes.onBox = [&](QMessageBox& box) {
        owner = box.parentWidget();
        box.reject();
    };
    click("Command6");
    EXPECT_EQ(owner, window());
}

}  // namespace
}  // namespace velmora::tests
