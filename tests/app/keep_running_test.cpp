// A program that keeps running, as a whole: an error that nobody takes is told, and the watch goes
// on.
#include <gtest/gtest.h>

#include "console_session.h"

namespace velmora::tests {
namespace {

struct KeepRunning : testing::Test, ConsoleSession {
    KeepRunning() { machine.platform().app.Options.keepRunning = true; }

    /// What the program prints; what it says on standard error is in `errors`.
    std::vector<std::string> run(const std::string& input) {
        testing::internal::CaptureStderr();
        auto lines = ConsoleSession::run(input);
        errors = testing::internal::GetCapturedStderr();
        return lines;
    }
    std::string errors;

    const std::string folder = "C:\\Program Files\\Velmora\\";
    bool printed(const std::vector<std::string>& lines, const std::string& text) {
        return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) {
            return line.find(text) != std::string::npos;
        });
    }
};

TEST_F(KeepRunning, AnErrorIsABoxAndAReplyAndTheNextCommandRuns) {
    machine.startError = 53;
    const auto lines = run("click lblAl(1)\nget txtAmt\n");
    EXPECT_EQ(lines,
              (std::vector<std::string>{
                  "box: Velmora | critical | $\"Run-time error '53':\\r\\nFile not "
                  "found\\r\\n\\r\\nTried: open the log file (click lblAl(1))\\r\\nFile: "
                  "C:\\\\Program Files\\\\Velmora\\\\log.dat\\r\\nThe watch goes on.\" | ok -> ok",
                  "error: File not found", "50"}));
    EXPECT_EQ(status, 0);
    EXPECT_EQ(errors,
              "Run-time error '53': File not found. Tried: open the log file (click lblAl(1)). "
              "File: C:\\Program Files\\Velmora\\log.dat. The watch goes on.\n");
}

TEST_F(KeepRunning, WithoutItTheSameErrorEndsTheProgram) {
    machine.platform().app.Options.keepRunning = false;
    machine.startError = 53;
    const auto lines = run("click lblAl(1)\nget txtAmt\n");
    EXPECT_EQ(lines, std::vector<std::string>{"box: Velmora | critical | $\"Run-time error "
                                              "'53':\\r\\nFile not found\" | ok -> ok"});
    EXPECT_EQ(status, 1);
}

TEST_F(KeepRunning, ANumberBoxThatHoldsNoNumberIsSurvived) {
    const auto lines = run("set txtAmt.Text many\nclick UpDown3.up\nget txtAmt\n");
    EXPECT_TRUE(printed(lines, "Run-time error '13':"));
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(errors.find("Tried: click UpDown3.up") != std::string::npos);
}

TEST_F(KeepRunning, NoValueOfACommandIsPrintedWithAnError) {
    const auto lines =
        run("set frmNotify.txtPass.Text secret\nset txtAmt.Text many\n"
            "set txtAmt.Text secret\nclick UpDown3.up\n");
    EXPECT_FALSE(printed(lines, "secret"));
    EXPECT_EQ(errors.find("secret"), std::string::npos);
}

TEST_F(KeepRunning, AStartThatFailsEndsAsEver) {
    machine.files[folder + "set.dat"] = "";
    const auto lines = run("get txtAmt\n");
    EXPECT_TRUE(printed(lines, "Run-time error '13':"));
    EXPECT_FALSE(printed(lines, "The watch goes on."));
    EXPECT_EQ(status, 1);
}

TEST_F(KeepRunning, OnAFullDiskTheActionsOfACheckRun) {
    machine.drives["C:"].freeBytes = 1e6;
    machine.files[folder + "log.dat"] = "";
    machine.files["C:\\rubbish.bin"] = "x";
    machine.diskFull = true;
    machine.platform().app.Command = "\"C:\\rubbish.bin\"";
    const auto lines =
        run("set chkAutoSave.Value on\nset txtSpace.Text 50000\n"
            "tick ListView1 1 on\ntick lstAct 2 on\n"
            "set DTPInterval.Value 0:00:00\nfire Timer1\nget StatusBar1(3).Text\n");
    EXPECT_EQ(lines.back(), "Times Checked: 1");
    EXPECT_FALSE(printed(lines, "Error: Disk full"));
    EXPECT_TRUE(printed(lines, "Log file can't be written: Disk full"));
    EXPECT_EQ(machine.files.count("C:\\rubbish.bin"), 0u) << testing::PrintToString(lines);
}

TEST_F(KeepRunning, AValueThatCantBeWrittenIsNamedAndTheFileStaysWhole) {
    const std::string before = machine.files[folder + "set.dat"];
    const auto lines = run("set frmNotify.txtCustMsg.Text " + std::string(33'000, 'm') +
                           "\nclick Command8\nget lblHint\n");
    EXPECT_TRUE(printed(lines,
                        "Tried: save the settings; notCustMsg= is too long: a line can have 32767 "
                        "bytes (click Command8)"));
    EXPECT_TRUE(lines.back().find("The settings were not saved: the custom message of the mail "
                                  "(frmNotify.txtCustMsg)") != std::string::npos)
        << lines.back();
    EXPECT_EQ(machine.files[folder + "set.dat"], before);
    EXPECT_EQ(status, 0);
}

TEST_F(KeepRunning, TheCountdownOfTheDialogSavesItsJournalLater) {
    machine.files[folder + "log.dat"] = "";
    machine.diskFull = true;
    std::string script =
        "set chkAutoSave.Value on\nmenu mnuShowAl\nset dlgAlert.chkAutoHide.Value on\n";
    for (int i = 0; i < 10; ++i) script += "fire dlgAlert.Timer1\n";
    const auto lines = run(script + "get dlgAlert.Visible\nget dlgAlert.Timer1.Enabled\n");
    ASSERT_GE(lines.size(), 2u);
    EXPECT_EQ(lines[lines.size() - 2], "False") << testing::PrintToString(lines);
    EXPECT_EQ(lines.back(), "True");
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace velmora::tests
