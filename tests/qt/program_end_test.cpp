// How the program ends: by an error that no handler catches, by the exit question, from anywhere.
#include "qt/window_test.h"

namespace velmora::tests {
namespace {

struct ProgramEndTest : WindowTest {
    ProgramEndTest() { start(); }
};

TEST_F(ProgramEndTest, AnErrorThatNoHandlerCatchesShowsItsBoxAndEndsWithOne) {
    form1().cmdAdv.Click.connect([] { throw RuntimeError(error::typeMismatch); });
    boxes.answers = {QMessageBox::Ok};
    click("lblTab(4)");
    const int result = runUntilEnded([this] { click("cmdAdv"); });
    ASSERT_EQ(boxes.seen.size(), 1u);
    EXPECT_TRUE(boxes.seen[0].text.starts_with("Run-time error '13':")) << boxes.seen[0].text;
    EXPECT_EQ(boxes.seen[0].icon, QMessageBox::Critical);
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(result, 1);
}

TEST_F(ProgramEndTest, WhoWishesItToCloseHasTheExitQuestionAsked) {
    boxes.answers = {QMessageBox::Cancel};
    form1().Hide();
    program->askToEnd();
    ASSERT_EQ(boxes.seen.size(), 1u);
    EXPECT_EQ(boxes.seen[0].text, "Exit the program?");
    EXPECT_TRUE(form1().Visible());
    EXPECT_FALSE(ended);
    boxes.answers = {QMessageBox::Ok};
    EXPECT_EQ(runUntilEnded([this] { program->askToEnd(); }), 0);
    EXPECT_EQ(ended, 0);
}

TEST_F(ProgramEndTest, AMinimisedWindowComesBackForTheExitQuestion) {
    boxes.answers = {QMessageBox::Cancel};
    form1().setState(WindowState::minimised);
    settle();
    program->askToEnd();
    ASSERT_EQ(boxes.seen.size(), 1u);
    EXPECT_EQ(form1().State(), WindowState::normal);
}

TEST_F(ProgramEndTest, TheWishIsntHeardWhileAnotherBoxWaits) {
    boxes.onBox = [this](QMessageBox& box) {
        program->askToEnd();
        box.button(QMessageBox::Cancel)->click();
    };
    program->askToEnd();
    EXPECT_EQ(boxes.seen.size(), 1u);
    EXPECT_FALSE(ended);
}

// A start that is handed over behind the box would be lost with the program.
TEST_F(ProgramEndTest, NothingIsTakenOverFromTheBoxOfAnErrorOn) {
    std::optional<std::size_t> boxesBefore;
    whenFailing = [&] { boxesBefore = boxes.seen.size(); };
    form1().cmdAdv.Click.connect([] { throw RuntimeError(error::typeMismatch); });
    boxes.answers = {QMessageBox::Ok};
    click("lblTab(4)");
    runUntilEnded([this] { click("cmdAdv"); });
    EXPECT_EQ(boxesBefore, 0u);
}

TEST_F(ProgramEndTest, NorFromTheBoxOfAStartThatFails) {
    program.reset();
    machine.userState.kept.clear();
    boxes.answers = {QMessageBox::Ok, QMessageBox::Ok};
    std::optional<std::size_t> boxesBefore;
    whenFailing = [&] { boxesBefore = boxes.seen.size(); };
    runUntilEnded([this] { start(""); });
    EXPECT_EQ(boxesBefore, 0u);
}

TEST_F(ProgramEndTest, SettingsWithoutAnIntervalEndTheStartInTheSameWay) {
    program.reset();
    machine.userState.kept.clear();
    boxes.answers = {QMessageBox::Ok, QMessageBox::Ok};
    const int result = runUntilEnded([this] { start(""); });
    ASSERT_EQ(boxes.seen.size(), 2u);
    EXPECT_TRUE(boxes.seen[0].text.starts_with("Run-time error '13':")) << boxes.seen[0].text;
    EXPECT_EQ(boxes.seen[1].icon, QMessageBox::NoIcon);
    EXPECT_TRUE(boxes.seen[1].text.starts_with("The settings can't be read: "))
        << boxes.seen[1].text;
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(result, 1);
}

TEST_F(ProgramEndTest, TheLastGoodSettingsArePutBackByAButton) {
    const std::string good = machine.files[settingsPath];
    program.reset();
    boxes.answers = {QMessageBox::Ok, QMessageBox::Yes};
    testing::internal::CaptureStderr();
    EXPECT_EQ(runUntilEnded([this] { start(""); }), 1);
    const std::string errors = testing::internal::GetCapturedStderr();
    EXPECT_NE(errors.find("Start with --restore-settings to put them back.\n"), errors.npos);
    ASSERT_EQ(boxes.seen.size(), 2u);
    EXPECT_TRUE(boxes.seen[1].text.ends_with("Put them back and start again?"));
    EXPECT_EQ(machine.files[settingsPath], good);
    EXPECT_EQ(startsAgain, 1);
}

TEST_F(ProgramEndTest, SettingsThatCantBeKeptFirstAreNotReplacedAndThatIsSaid) {
    for (const bool keepsRunning : {false, true}) {
        program.reset();
        boxes.seen.clear();
        ended.reset();
        machine.platform().app.Options.keepRunning = keepsRunning;
        machine.userState.writesUntilFull = 0;
        boxes.answers = {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::Ok};
        EXPECT_EQ(runUntilEnded([this] { start("broken"); }), 1);
        ASSERT_EQ(boxes.seen.size(), 3u);
        EXPECT_NE(boxes.seen[2].text.find("Settings were not put back, and nothing was changed"),
                  std::string::npos)
            << boxes.seen[2].text;
        EXPECT_EQ(machine.files[settingsPath], "broken");
        EXPECT_EQ(startsAgain, 0);
    }
}

TEST_F(ProgramEndTest, WithoutAYesTheFileStays) {
    program.reset();
    boxes.answers = {QMessageBox::Ok, QMessageBox::No};
    EXPECT_EQ(runUntilEnded([this] { start(""); }), 1);
    EXPECT_EQ(machine.files[settingsPath], "");
    EXPECT_EQ(startsAgain, 0);
}

TEST_F(ProgramEndTest, ASaveThatWontComeBackIsNamedUnderTheBanner) {
    EXPECT_FALSE(find("fraHint")->isVisible());
    program->forms().frmNotify.txtMailSubj.setText("one+two");
    program->core().persist().settingsFile().prcSettings(1);
    settle();
    EXPECT_TRUE(find("fraHint")->isVisible());
    EXPECT_TRUE(find<QLabel>("lblHint")->text().contains("frmNotify.txtMailSubj"));
    click("cmdHint");
    EXPECT_FALSE(find("fraHint")->isVisible());
}

TEST_F(ProgramEndTest, NothingHappensAfterTheEnd) {
    boxes.answers = {QMessageBox::Ok};
    runUntilEnded([this] { click("Command6"); });
    ASSERT_EQ(ended, 0);
    int clicks = 0;
    form1().cmdPause.Click.connect([&] { ++clicks; });
    click("cmdPause");
    tick();
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(boxes.seen.size(), 1u);
}

TEST_F(ProgramEndTest, CancelGoesOn) {
    boxes.answers = {QMessageBox::Cancel};
    click("Command6");
    EXPECT_EQ(boxes.lastText(), "Exit the program?");
    EXPECT_EQ(boxes.seen.back().icon, QMessageBox::Question);
    EXPECT_FALSE(ended);
    EXPECT_TRUE(window()->isVisible());
    EXPECT_NE(icon(), nullptr);
}

TEST_F(ProgramEndTest, EscapeIsCancelAndAnUnansweredQuestionIsNo) {
    boxes.onBox = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); };
    click("Command6");
    EXPECT_FALSE(ended);
    boxes.onBox = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); };
    click("lblDP(2)");
    EXPECT_EQ(form1().ListView1.Count(), 3);
}

TEST_F(ProgramEndTest, OkEndsWithZeroAndTakesTheIconAway) {
    boxes.answers = {QMessageBox::Ok};
    const int result = runUntilEnded([this] { chooseFromIcon("mnuExit"); });
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(icon(), nullptr);
}

TEST_F(ProgramEndTest, AClickInTheMiddleOfACheckEndsTheCheckToo) {
    boxes.answers = {QMessageBox::Ok};
    int after = 0;
    const int result = runUntilEnded([&] {
        duringCheck([this] { click("Command6"); });
        after = form1().StatusBar1.Panels(3).Text.empty() ? 1 : 2;
    });
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(after, 1);  // the check never came to its closing
}

TEST_F(ProgramEndTest, CancelInTheMiddleOfACheckLetsItFinish) {
    boxes.answers = {QMessageBox::Cancel};
    duringCheck([this] { click("Command6"); });
    EXPECT_FALSE(ended);
    EXPECT_EQ(form1().StatusBar1.Panels(3).Text, "Times Checked: 1");
}

TEST_F(ProgramEndTest, AnEndWhileABoxIsOpenClosesTheBox) {
    bool wentOn = false;
    form1().mnuProgSet.Click.connect([&] { wentOn = true; });  // after the box of the command
    boxes.answers = {QMessageBox::Ok};
    const int result = runUntilEnded([this] {
        boxes.onBox = [this](QMessageBox&) { action("mnuExit")->trigger(); };
        chooseFunction("mnuProgSet");
    });
    ASSERT_EQ(boxes.seen.size(), 2u);
    EXPECT_EQ(boxes.seen[1].text, "Exit the program?");
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(wentOn);
}

TEST_F(ProgramEndTest, AnErrorInTheMiddleOfACheckIsTheChecksOwn) {
    duringCheck([this] {
        form1().mnuSorbane.Click.connect([] { throw RuntimeError(error::typeMismatch); });
        boxes.answers = {QMessageBox::Ok};
        action("mnuSorbane")->trigger();
    });
    EXPECT_TRUE(boxes.lastText().starts_with("Run-time error '13':"));
    EXPECT_EQ(ended, 1);
}

/// While the settings are read, another handler fails.
struct FailureInTheStart : WindowTest {
    FailureInTheStart() {
        machine.onCall = [this](const std::string& call) {
            if (!program || !call.ends_with("\\set.dat")) return;
            program->hand().does([] { throw RuntimeError(error::diskFull); });
        };
    }
};

TEST_F(FailureInTheStart, EndsThePlainProgram) {
    boxes.answers = {QMessageBox::Ok};
    EXPECT_EQ(runUntilEnded([this] { start(); }), 1);
    ASSERT_EQ(boxes.seen.size(), 1u);
    EXPECT_TRUE(boxes.seen[0].text.starts_with("Run-time error '61':"));
}

TEST_F(FailureInTheStart, IsSurvivedByAProgramThatKeepsRunning) {
    machine.platform().app.Options.keepRunning = true;
    start();
    EXPECT_FALSE(ended);
    EXPECT_TRUE(boxes.seen.empty());
    EXPECT_TRUE(form1().Visible());
}

TEST_F(FailureInTheStart, LeavesAStartThatFailsItsToldEnd) {
    machine.platform().app.Options.keepRunning = true;
    boxes.answers = {QMessageBox::Ok, QMessageBox::Ok};
    EXPECT_EQ(runUntilEnded([this] { start(""); }), 1);
    ASSERT_EQ(boxes.seen.size(), 2u);
    EXPECT_TRUE(boxes.seen[0].text.starts_with("Run-time error '13':"));
}

struct KeepRunningTest : WindowTest {
    KeepRunningTest() {
        machine.platform().app.Options.keepRunning = true;
        start();
        form1().cmdAdv.Click.connect(
            [this] { attempt("count", "C:\\x.dat", [this] { throw RuntimeError(number); }); });
        click("lblTab(4)");
    }

    QMessageBox* told() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == "ToldBox" && widget->isVisible())
                return qobject_cast<QMessageBox*>(widget);
        }
        return nullptr;
    }
    int number = error::diskFull;
};

TEST_F(KeepRunningTest, AnErrorShowsItsBoxAndTheProgramGoesOn) {
    click("cmdAdv");
    ASSERT_NE(told(), nullptr);
    EXPECT_EQ(told()->icon(), QMessageBox::Critical);
    EXPECT_FALSE(told()->isModal());
    EXPECT_EQ(told()->text().toStdString(),
              "Run-time error '61':\nDisk full\n\nTried: count (\"" + form1().cmdAdv.Caption() +
                  "\", Form1.cmdAdv)\nFile: C:\\x.dat\nThe watch goes on.");
    EXPECT_FALSE(ended);
    tick();
    EXPECT_TRUE(form1().Timer1.Enabled());
}

TEST_F(KeepRunningTest, ErrorsCollectInOneBoxEachOnceAndTheNewestFirst) {
    click("cmdAdv");
    click("cmdAdv");
    number = error::permissionDenied;
    click("cmdAdv");
    ASSERT_NE(told(), nullptr);
    const QString text = told()->text();
    EXPECT_EQ(text.count("Run-time error"), 2) << text.toStdString();
    EXPECT_LT(text.indexOf("'70'"), text.indexOf("'61'"));
    told()->button(QMessageBox::Ok)->click();
    settle();
    EXPECT_EQ(told(), nullptr);
    click("cmdAdv");
    ASSERT_NE(told(), nullptr);
    EXPECT_EQ(told()->text().count("Run-time error"), 1);
}

TEST_F(KeepRunningTest, AnErrorInTheMiddleOfACheckDoesntHoldTheCheck) {
    duringCheck([this] { click("cmdAdv"); });
    EXPECT_NE(told(), nullptr);
    EXPECT_EQ(form1().StatusBar1.Panels(3).Text, "Times Checked: 1");
}

TEST_F(KeepRunningTest, AFailedStartEndsAsEver) {
    program.reset();
    boxes.answers = {QMessageBox::Ok, QMessageBox::No};
    EXPECT_EQ(runUntilEnded([this] { start(""); }), 1);
    EXPECT_TRUE(boxes.seen[0].text.starts_with("Run-time error '13':")) << boxes.seen[0].text;
}

}  // namespace
}  // namespace velmora::tests
