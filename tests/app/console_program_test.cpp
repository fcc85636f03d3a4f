#include "app/console_program.h"

#include <gtest/gtest.h>

#include "console_session.h"

namespace velmora {
namespace {

using Lines = std::vector<std::string>;

struct ConsoleProgram : testing::Test, tests::ConsoleSession {
    bool called(const std::string& call) {
        return std::count(machine.log.calls().begin(), machine.log.calls().end(), call) > 0;
    }
};

constexpr const char* notTyped =
    "box: Velmora | critical | $\"Run-time error '13':\\r\\nType "
    "mismatch\" | ok -> ok";

TEST_F(ConsoleProgram, GreetsWithOneLineAndEndsWithTheInput) {
    std::istringstream in("get txtAmt\n");
    std::ostringstream out;
    EXPECT_EQ(runConsole(machine, {.input = in, .output = out, .sleep = [](std::int64_t) {}}), 0);
    EXPECT_EQ(
        out.str(),
        "Velmora console. Type help for the commands, wait forever to keep watch.\n"
        "shell: Shell_NotifyIconA | message NIM_ADD | window sysWorkSystray | icon Form1 | tip "
        "03/14 15:09 Velmora\n50\n");
}

TEST_F(ConsoleProgram, SaysHowToUseItWhenThereIsNothingToRead) {
    const Lines lines = run("");
    ASSERT_FALSE(lines.empty());
    EXPECT_EQ(lines.front().substr(0, 15), "Nothing to read");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(run("\n"), Lines{});
}

TEST_F(ConsoleProgram, ListsTheDrivesAtItsStart) {
    EXPECT_EQ(run("get ListView1\nget Form1.Visible\n"), (Lines{"1", "True"}));
}

TEST_F(ConsoleProgram, FollowsTheWizardByItsFields) {
    EXPECT_EQ(run("click Toolbar1(2)\n"
                  "get frmWizard.lblOp\n"
                  "click frmWizard.cmdProgress\n"
                  "get frmWizard.Frame1(1)\n"
                  "get frmWizard.Frame1(1).Width\n"
                  "get frmWizard.Frame1(1).Height\n"
                  "set frmWizard.Frame1(1).Width 10\n"
                  "tick frmWizard.ListView1 1 on\n"
                  "get frmWizard.Frame1(0).Visible\n"
                  "get ListView1\n"
                  "click frmWizard.cmdOK\n"
                  "rows ListView1\n"
                  "get frmWizard.Visible\n"),
              (Lines{"ok", "Options: 1/10", "ok", "Drives and Paths to Watch", "11600", "4350",
                     "error: can only be read: frmWizard.Frame1(1).Width", "ok", "False", "1", "ok",
                     "1 [x] C:\\ | 48,828,125 KB | 97,656,250 KB |  | ", "1 row(s)", "False"}));
}

TEST_F(ConsoleProgram, ReadsLinesWithEitherLineEndAndALastOneWithout) {
    EXPECT_EQ(run("get txtAmt\r\n\r\n \t\r\nget Form1\n\nget txtAmt"),
              (Lines{"50", "Velmora", "50"}));
}

TEST_F(ConsoleProgram, IgnoresAByteOrderMarkBeforeTheFirstLineOnly) {
    EXPECT_EQ(run("\xEF\xBB\xBFget txtAmt\n"), Lines{"50"});
    EXPECT_EQ(run("get txtAmt\n\xEF\xBB\xBFget txtAmt\n").size(), 2u);
    EXPECT_EQ(run("get txtAmt\n\xEF\xBB\xBFget txtAmt\n").back().substr(0, 22),
              "error: unknown command");
}

TEST_F(ConsoleProgram, GoesOnAfterBadLines) {
    const Lines lines =
        run(std::string("nonsense\nget Nobody\nset txtAmt.Text \xff\nget a\0b\nwait x\n\x01\xff\n",
                        56) +
            "get txtAmt\n");
    ASSERT_EQ(lines.size(), 7u);
    for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(lines[i].substr(0, 7), "error: ") << lines[i];
    EXPECT_EQ(lines.back(), "50");
    EXPECT_EQ(status, 0);
}

TEST_F(ConsoleProgram, TakesAMegabyteALineAndRefusesMore) {
    const std::string command = "set txtAlert.Text ";
    const std::string longest(1024 * 1024 - command.size(), 'x');
    EXPECT_EQ(run(command + longest + "\n" + command + longest + "y\nget txtAlert\n"),
              (Lines{"ok", "error: a line may be 1 MB long", longest}));
}

TEST_F(ConsoleProgram, TakesTimeInProportionToLongLines) {
    const auto filled = [](const std::string& front, const std::string& piece, char last = 'x') {
        std::string line = front;
        while (line.size() + piece.size() < 1024 * 1024) line += piece;
        return line + last + "\n";
    };
    // Quadratic time would exceed the time of a test.
    const Lines lines =
        run("json on\n" + filled("get ", ".") + filled("get ", "(") + filled("", " ") +
            filled("select ListView1 ", "1 ") + filled("select ListView1 ", "9") +
            filled("answer text ", "\"\" ") + filled("answer text \"", "\"\"", '"') +
            filled("answer text $\"", "\\u00e4", '"') + filled("wait ", "1") +
            filled("wait until ", "1e") + filled("set txtSpace.Text ", "9", '9') +
            filled("set txtSpace.Text ", "1,", '1') + filled("set DTPInterval.Value ", "1:") +
            filled("tick lstAct ", "9") + filled("set txtAlert.Text ", "\t") + filled("ä", "ä") +
            filled("$\"", "\\") + "get txtAmt\n");
    EXPECT_EQ(lines.back(), R"({"ok":"50"})");
    EXPECT_EQ(status, 0);
}

TEST_F(ConsoleProgram, CarriesAnyTextBothWays) {
    EXPECT_EQ(run("json on\n"
                  R"(set txtAlert.Text $"a \"q\"\r\n\tb\\ größe 日本 🙂 \u0000")"
                  "\nget txtAlert\n")
                  .back(),
              R"({"ok":"a \"q\"\r\n\tb\\ größe 日本 🙂 \u0000"})");
}

TEST_F(ConsoleProgram, PassesPathsThatAreNoUtf8ToTheMachineAsTheyAre) {
    const Lines lines =
        run("json on\nanswer folder \"D:\\a\xff\"\nclick lblDP(0)\nrows ListView1\n");
    EXPECT_TRUE(called("GetDriveName D:\\a\xff"));
    EXPECT_NE(lines.back().find("\"Text\":\"D:\\\\a\uFFFD\""), std::string::npos) << lines.back();
}

TEST_F(ConsoleProgram, ExitAsksAndGoesOnWithoutAnAnswer) {
    EXPECT_EQ(
        run("exit\nget txtAmt\n"),
        (Lines{"box: Velmora | question | Exit the program? | ok cancel -> cancel", "ok", "50"}));
}

TEST_F(ConsoleProgram, ExitEndsTheProgramWhenTheAnswerIsOk) {
    const Lines lines = run("answer ok\nexit\nget txtAmt\n");
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[1], "box: Velmora | question | Exit the program? | ok cancel -> ok");
    EXPECT_EQ(lines[2].substr(0, 50), "shell: Shell_NotifyIconA | message NIM_DELETE | wi");
    EXPECT_EQ(status, 0);
}

TEST_F(ConsoleProgram, EndsWithStatus1ByARunTimeErrorInAHandler) {
    EXPECT_EQ(run("set txtAmt.Text abc\nclick UpDown3.Up\nget txtAmt\n"), (Lines{"ok", notTyped}));
    EXPECT_EQ(status, 1);
    EXPECT_EQ(run("json on\nset txtAmt.Text abc\nset UpDown3.Value 5\nget txtAmt\n").back(),
              R"({"event":"box","title":"Velmora","icon":"critical",)"
              R"("text":"Run-time error '13':\r\nType mismatch","buttons":"ok","answer":"ok"})");
    EXPECT_EQ(status, 1);
}

TEST_F(ConsoleProgram, EndsWithStatus1ByARunTimeErrorAtItsStart) {
    machine.log.failCall(1, 53);
    EXPECT_EQ(run("get txtAmt\n"), Lines{"box: Velmora | critical | $\"Run-time error "
                                         "'53':\\r\\nFile not found\" | ok -> ok"});
    EXPECT_EQ(status, 1);
}

TEST_F(ConsoleProgram, ReportsEventsInTheirOrderBeforeTheReply) {
    const Lines lines = run(
        "set DTPInterval.Value 0:00:00\nset txtSpace.Text 90000000\ntick ListView1 1 on\njson on\n"
        "fire Timer1\n");
    const auto at = [&](const std::string& front) {
        return std::find_if(lines.begin(), lines.end(),
                            [&](const std::string& line) { return line.starts_with(front); });
    };
    const auto checking = at(R"({"event":"status","panel":1,"text":"Checking..."})");
    const auto row = at(R"({"event":"status","panel":2,"text":"Checking: C:\\"})");
    const auto alert = at(R"({"event":"alert","time":"20260314 15:09","rating":"High","text":")");
    const auto counted = at(R"({"event":"status","panel":3,"text":"Times Checked: 1"})");
    ASSERT_NE(counted, lines.end());
    EXPECT_LT(checking, row);
    EXPECT_LT(row, alert);
    EXPECT_LT(alert, counted);
    EXPECT_EQ(lines.back(), R"({"ok":true})");
}

TEST_F(ConsoleProgram, ReportsAStatusPanelOnlyWhenItsTextChanges) {
    const Lines lines = run("json on\nset DTPInterval.Value 0:00:00\nfire Timer1\n");
    EXPECT_EQ(tests::countOf(lines, R"({"event":"status","panel":1,"text":"Checking..."})"), 1);
}

TEST_F(ConsoleProgram, PrintsStatusChangesInTextUnderWatch) {
    EXPECT_EQ(run("wait 5\n"), Lines{"ok"});
    const Lines lines = run("watch on\nwait 5\nwatch off\nwait 5\n");
    EXPECT_EQ(lines, (Lines{"ok", "status 1: Ready. Check in: 55 (sec.)", "ok", "ok", "ok"}));
}

TEST_F(ConsoleProgram, TicksTheWatchTimerOnceAnIntervalOfAWait) {
    // A check a minute, counted down in steps of 5 s; the start of the program is the first step.
    const Lines lines = run("json on\nwait 50\n");
    int steps = 0;
    for (const std::string& line : lines) steps += line.find("Check in: ") != std::string::npos;
    EXPECT_EQ(steps, 10);
}

TEST_F(ConsoleProgram, WaitsUntilAPanelOrAnAlertHoldsTheText) {
    EXPECT_EQ(run("wait until Times Checked: 2\nget StatusBar1(3)\n"),
              (Lines{"ok", "Times Checked: 2"}));
    const Lines lines =
        run("set txtSpace.Text 90000000\ntick ListView1 1 on\nwait until Space Shortage\n"
            "get LVAlert\n");
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[2].substr(0, 7), "alert: ");
    EXPECT_EQ(lines[3], "ok");
    EXPECT_EQ(lines[4], "1");
}

TEST_F(ConsoleProgram, GivesUpWaitingAfterTenMinutes) {
    const std::int64_t before = machine.tick;
    EXPECT_EQ(run("wait until pigs fly\n").back(), "error: not seen within 600 s: pigs fly");
    EXPECT_EQ(machine.tick - before, 600'000);
}

// A reader that goes away after so many bytes.
class ClosingPipe : public std::streambuf {
  public:
    explicit ClosingPipe(int bytes) : left_(bytes) {}

  protected:
    int_type overflow(int_type c) override {
        return left_-- > 0 ? traits_type::not_eof(c) : traits_type::eof();
    }

  private:
    int left_;
};

// Text that reaches a reader only when it is flushed.
struct HeldText : std::stringbuf {
    int sync() override {
        sent = str();
        return 0;
    }
    std::string sent;
};

TEST_F(ConsoleProgram, WhatWasSaidLastIsSentAlsoBeforeAnErrorEndsIt) {
    for (const char* lines : {"get txtAmt\n", "set txtAmt.Text abc\nclick UpDown3.Up\n"}) {
        std::istringstream in(lines);
        HeldText held;
        std::ostream out(&held);
        runConsole(machine, {.input = in, .output = out, .sleep = [](std::int64_t) {}});
        EXPECT_EQ(held.sent, held.str());
        EXPECT_NE(held.sent, "");
    }
}

TEST_F(ConsoleProgram, EndsWithStatus1WhenItsReaderIsGone) {
    for (const int bytes : {0, 10, 100, 1000}) {
        std::istringstream in("json on\nwait forever\n");
        ClosingPipe pipe(bytes);
        std::ostream out(&pipe);
        EXPECT_EQ(runConsole(machine, {.input = in,
                                       .output = out,
                                       .sleep = [this](std::int64_t ms) { machine.advance(ms); }}),
                  1)
            << bytes;
    }
}

}  // namespace
}  // namespace velmora
