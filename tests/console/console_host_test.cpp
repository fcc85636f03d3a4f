#include "console/console_host.h"

#include <gtest/gtest.h>

#include <new>

#include "base/runtime_error.h"
#include "platform/work_steps.h"
#include "session.h"

namespace velmora::console {
namespace {

struct ConsoleHostTest : testing::Test, tests::Session {
    BoxAnswer ask(BoxButtons buttons) { return host.MsgBox({.text = "?", .buttons = buttons}); }

    // The status with which the handler ends the program; -1 when it doesn't.
    int statusOf(const std::function<void()>& handler) {
        try {
            host.guarded(handler);
        } catch (const ProgramEnd& end) {
            return end.status;
        }
        return -1;
    }
};

TEST_F(ConsoleHostTest, GivesTheCancellingAnswerWhenNoneIsQueued) {
    EXPECT_EQ(ask(BoxButtons::ok), BoxAnswer::ok);
    EXPECT_EQ(ask(BoxButtons::okCancel), BoxAnswer::cancel);
    EXPECT_EQ(ask(BoxButtons::yesNo), BoxAnswer::no);
}

TEST_F(ConsoleHostTest, GivesQueuedAnswersInOrderAndEachOnce) {
    host.queueAnswer(BoxAnswer::yes);
    host.queueAnswer(BoxAnswer::no);
    host.queueAnswer(BoxAnswer::yes);
    EXPECT_EQ(ask(BoxButtons::yesNo), BoxAnswer::yes);
    EXPECT_EQ(ask(BoxButtons::yesNo), BoxAnswer::no);
    EXPECT_EQ(ask(BoxButtons::yesNo), BoxAnswer::yes);
    EXPECT_EQ(ask(BoxButtons::yesNo), BoxAnswer::no);
}

TEST_F(ConsoleHostTest, KeepsAnAnswerThatTheQuestionDoesntOffer) {
    host.queueAnswer(BoxAnswer::yes);
    EXPECT_EQ(ask(BoxButtons::okCancel), BoxAnswer::cancel);
    EXPECT_EQ(ask(BoxButtons::yesNo), BoxAnswer::yes);
    host.queueAnswer(BoxAnswer::cancel);
    host.queueAnswer(BoxAnswer::yes);
    EXPECT_EQ(ask(BoxButtons::yesNo), BoxAnswer::no);
    EXPECT_EQ(ask(BoxButtons::okCancel), BoxAnswer::cancel);
    EXPECT_EQ(ask(BoxButtons::yesNo), BoxAnswer::yes);
}

// A turn of the loop is one; a timer that ran in it may have taken long.
TEST_F(ConsoleHostTest, ATurnInWhichSomethingRanIsTwoStepsOfWork) {
    int steps = 0;
    hearWorkSteps([&] { ++steps; });
    host.DoEvents();
    EXPECT_EQ(steps, 1);
    forms.form1.Timer1.setInterval(10);
    forms.form1.Timer1.setEnabled(true);
    machine.advance(10);
    host.DoEvents();
    hearWorkSteps({});
    EXPECT_EQ(steps, 3);
}

TEST_F(ConsoleHostTest, ABeepIsSaid) {
    host.Beep();
    EXPECT_EQ(printed(), "shell: Beep\n");
}

TEST_F(ConsoleHostTest, SpendsNoAnswerOnABoxWithOneButton) {
    host.queueAnswer(BoxAnswer::ok);
    EXPECT_EQ(ask(BoxButtons::ok), BoxAnswer::ok);
    EXPECT_EQ(ask(BoxButtons::okCancel), BoxAnswer::ok);
}

TEST_F(ConsoleHostTest, PrintsEachBoxWithItsAnswer) {
    ask(BoxButtons::yesNo);
    EXPECT_EQ(printed(), "box: Velmora | none | ? | yes no -> no\n");
}

TEST_F(ConsoleHostTest, GivesDialogsTheQueuedTextsAndThenNothing) {
    host.queueText("C:\\data");
    host.queueText("D:\\");
    EXPECT_EQ(host.BrowseForFolder("Select"), "C:\\data");
    EXPECT_EQ(host.OpenFileDialog({.DialogTitle = "Open", .InitDir = "C:\\"}), "D:\\");
    EXPECT_EQ(host.BrowseForFolder("Select"), "");
    EXPECT_EQ(host.OpenFileDialog({.DialogTitle = "Open", .InitDir = "C:\\"}), "");
}

TEST_F(ConsoleHostTest, RunsDueTimersWhileItYields) {
    int ticks = 0;
    form1.Timer1.Tick.connect([&] { ++ticks; });
    host.DoEvents();
    EXPECT_EQ(ticks, 0);
    machine.advance(5000);
    host.DoEvents();
    EXPECT_EQ(ticks, 1);
}

TEST_F(ConsoleHostTest, EndsTheProgramByARunTimeErrorThatNothingTook) {
    EXPECT_EQ(statusOf([] { throw RuntimeError(error::fileNotFound); }), 1);
    EXPECT_EQ(
        printed(),
        "box: Velmora | critical | $\"Run-time error '53':\\r\\nFile not found\" | ok -> ok\n");
}

TEST_F(ConsoleHostTest, EndsTheProgramByATimersErrorDuringAYield) {
    form1.Timer1.Tick.connect([] { throw RuntimeError(error::permissionDenied); });
    machine.advance(5000);
    EXPECT_EQ(statusOf([this] { host.DoEvents(); }), 1);
    EXPECT_EQ(printed(),
              "box: Velmora | critical | $\"Run-time error '70':\\r\\nPermission denied\" | ok -> "
              "ok\n");
}

TEST_F(ConsoleHostTest, TakesExhaustedMemoryForARunTimeError) {
    EXPECT_EQ(statusOf([] { throw std::bad_alloc(); }), 1);
    EXPECT_NE(printed().find("Run-time error '7':"), std::string::npos);
}

TEST_F(ConsoleHostTest, LetsTheProgramsOwnEndPass) {
    EXPECT_EQ(statusOf([] { throw ProgramEnd{0}; }), 0);
    EXPECT_EQ(printed(), "");
    EXPECT_EQ(statusOf([] {}), -1);
}

TEST_F(ConsoleHostTest, AProgramThatKeepsRunningTellsTheErrorAndGoesOn) {
    host.keepRunning([](const std::string& path) { return "host's " + path; });
    testing::internal::CaptureStderr();
    EXPECT_EQ(statusOf([] { attempt("save", "C:\\a", [] { throw RuntimeError(61); }); }), -1);
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(),
        "Run-time error '61': Disk full. Tried: save. File: host's C:\\a. The watch goes on.\n");
    EXPECT_EQ(statusOf([] { throw ProgramEnd{3}; }), 3);
}

TEST_F(ConsoleHostTest, AFailingTimerStaysOnAndTheOthersRun) {
    host.keepRunning([](const std::string& path) { return path; });
    int failed = 0;
    int ran = 0;
    form1.tmrStat.Tick.connect([&] {
        ++failed;
        form1.tmrStat.setEnabled(false);
        throw RuntimeError(error::diskFull);
    });
    form1.TimerCust.Tick.connect([&] { ++ran; });
    testing::internal::CaptureStderr();
    run("wait 120");
    EXPECT_EQ(failed, 20);
    EXPECT_EQ(ran, 2);
    EXPECT_TRUE(form1.tmrStat.Enabled());
    EXPECT_NE(testing::internal::GetCapturedStderr().find("Tried: Form1.tmrStat"),
              std::string::npos);
}

}  // namespace
}  // namespace velmora::console
