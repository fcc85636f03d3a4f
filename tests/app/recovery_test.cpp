// Settings that end the start, in the console program as a whole.
#include <gtest/gtest.h>

#include "console_session.h"

namespace velmora::tests {
namespace {

struct Recovery : testing::Test, ConsoleSession {
    std::vector<std::string> run(const std::string& input) {
        testing::internal::CaptureStderr();
        auto lines = ConsoleSession::run(input);
        errors = testing::internal::GetCapturedStderr();
        return lines;
    }
    std::string& settings() { return machine.files["C:\\Program Files\\Velmora\\set.dat"]; }
    bool said(const std::string& text) { return errors.find(text) != std::string::npos; }

    const std::string broken = prcEn("txtTime=60\r\n") + "\r\n" + prcEn("lstAct=99") + "\r\n";
    std::string errors;
    bool isGone = false;
};

TEST_F(Recovery, AStartThatFailsNamesFileLineAndCopyAfterItsBox) {
    const std::string good = settings();
    run("");
    ASSERT_EQ(machine.userState.kept.size(), 1u);
    EXPECT_EQ(machine.userState.kept.begin()->second, good);
    settings() = broken;
    const auto lines = run("get txtAmt\n");
    EXPECT_EQ(lines.back(),
              "box: Velmora | critical | $\"Run-time error '13':\\r\\nType "
              "mismatch\" | ok -> ok");
    EXPECT_EQ(status, 1);
    EXPECT_EQ(settings(), broken);
    EXPECT_TRUE(said("The settings can't be read: C:\\Program Files\\Velmora\\set.dat\n"));
    EXPECT_TRUE(said("Line 2 can't be read: lstAct= (the actions, lstAct).\n"));
    EXPECT_TRUE(said(machine.userState.kept.begin()->first));
    EXPECT_TRUE(said("Start with --restore-settings to put them back.\n"));
}

TEST_F(Recovery, TheOptionPutsTheLastGoodOnesBackAndStarts) {
    const std::string good = settings();
    run("");
    settings() = broken;
    machine.platform().app.Options.restoreSettings = true;
    const auto lines = run("get lblHint\nget fraHint.Visible\n");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(settings(), good);
    EXPECT_TRUE(said("Settings were put back"));
    EXPECT_TRUE(lines.front().starts_with("Settings were put back")) << lines.front();
    EXPECT_EQ(lines.back(), "True");
}

TEST_F(Recovery, FromStartToStartTheOptionGoesFurtherBack) {
    const std::string oldest = settings();
    run("");
    const std::string newer = oldest + prcEn("notEmailSubj=newer") + "\r\n";
    settings() = newer;
    run("");
    settings() = broken;
    machine.platform().app.Options.restoreSettings = true;
    run("");
    EXPECT_EQ(settings(), newer);
    run("");
    EXPECT_EQ(settings(), oldest);
}

TEST_F(Recovery, ACopyIsFoundWhenTheDriveHasAnotherLetter) {
    const std::string good = settings();
    run("");
    machine.drives["D:"] = {50e9, 100e9};
    machine.platform().app.DataPath = "D:\\Velmora";
    machine.folders.insert("d:\\velmora");
    machine.files["D:\\Velmora\\set.dat"] = broken;
    machine.platform().app.Options.restoreSettings = true;
    run("");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(machine.files["D:\\Velmora\\set.dat"], good);
}

TEST_F(Recovery, ACopyThatEndedAStartIsPassedOver) {
    const std::string good = settings();
    run("");
    const std::string once = good + prcEn("lstAct=2") + "\r\n";
    settings() = once;
    run("");
    // As on a machine of another regional form: what was good ends the start.
    settings() = broken;
    for (auto& [name, content] : machine.userState.kept) {
        if (content == once) content = broken + once;
    }
    machine.platform().app.Options.restoreSettings = true;
    run("");
    EXPECT_EQ(status, 1);
    EXPECT_EQ(settings(), broken + once);
    EXPECT_TRUE(said("Start with --restore-settings to put them back."));
    run("");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(settings(), good);
}

TEST_F(Recovery, WhatCantBeKeptFirstIsNotReplacedAndTheStartEnds) {
    run("");
    settings() = broken;
    machine.platform().app.Options.restoreSettings = true;
    machine.userState.writesUntilFull = machine.userState.writes;
    const auto lines = run("get txtAmt\n");
    EXPECT_EQ(status, 1);
    EXPECT_NE(lines.back().find("Settings were not put back, and nothing was changed"),
              std::string::npos)
        << lines.back();
    EXPECT_EQ(settings(), broken);
}

TEST_F(Recovery, AStartThatFailsKeepsNoCopyAndOffersNone) {
    settings() = broken;
    run("");
    EXPECT_TRUE(machine.userState.kept.empty());
    EXPECT_TRUE(said("There is no good copy."));
    EXPECT_FALSE(said("--restore-settings"));
}

TEST_F(Recovery, TheEndOfAStartedProgramSaysNothingOfIt) {
    machine.startError = 53;
    run("click lblAl(1)\n");
    EXPECT_EQ(status, 1);
    EXPECT_EQ(errors, "");
}

TEST_F(Recovery, ASaveThatWouldEndTheNextStartIsAHintEventAndALine) {
    settings() += prcEn("minspace=50000\r\n") + "\r\n";
    const auto lines =
        run("json on\ntick frmNotify.lstNotTime 1 on\n"
            "tick frmNotify.lstNotTime 3 on\nclick Command8\nclick Command8\n"
            "get fraHint.Visible\nclick cmdHint\nget fraHint.Visible\n");
    const std::string text =
        "The next start would end at the send times of the mail (frmNotify.lstNotTime). Tick one "
        "entry at most.";
    EXPECT_EQ(countOf(lines, R"({"event":"hint","field":"frmNotify.lstNotTime","text":")" + text +
                                 R"(","endsStart":true})"),
              1);
    EXPECT_EQ(errors, text + "\n");
    EXPECT_EQ(lines[lines.size() - 3], R"({"ok":true})");
    EXPECT_EQ(lines.back(), R"({"ok":false})");
}

TEST_F(Recovery, AnEmptyMinimumIsToldWhenItIsSaved) {
    const auto lines = run("click Command8\n");
    EXPECT_EQ(countOf(lines,
                      "hint: txtSpace | After the next start this is not as you saved it: the "
                      "minimum space (txtSpace). Without a number the start asks for one and takes "
                      "1."),
              1);
    EXPECT_TRUE(said("(txtSpace)"));
}

TEST_F(Recovery, TheEndOfDeleteAllAtAMissingFileIsAHintToo) {
    machine.files["C:\\gone"] = "x";
    machine.platform().app.Command = "\"C:\\gone\"";
    machine.onCall = [this](const std::string& call) {
        if (call.starts_with("FileExists C:\\gone") && isGone) machine.files.erase("C:\\gone");
        if (call.starts_with("FileExists C:\\gone")) isGone = true;
    };
    const auto lines =
        run("json on\nanswer no\nclick cmdDeleteAll\nanswer no\nclick cmdDeleteAll\nget "
            "fraHint.Visible\nget lblHint\n");
    const std::string text =
        "\"Delete All\" ends at a file that is missing: the box of files (cboFile) is empty, so "
        "that "
        "no entry can be removed with the row. Remove the row, then start again.";
    EXPECT_EQ(errors, text + "\n");
    int events = 0;
    for (const std::string& line : lines) {
        if (line.starts_with(R"({"event":"hint","field":"cboFile",)")) ++events;
    }
    EXPECT_EQ(events, 1) << testing::PrintToString(lines);
    EXPECT_EQ(lines[lines.size() - 2], R"({"ok":true})");
    EXPECT_NE(lines.back().find("Remove the row, then start again."), std::string::npos);
}

TEST_F(Recovery, ForAReaderOfLinesAHintIsALine) {
    const auto lines = run("set frmNotify.txtMailSubj.Text a+b\nclick Command8\n");
    EXPECT_EQ(countOf(lines,
                      "hint: frmNotify.txtMailSubj | After the next start this is not as "
                      "you saved it: the subject of the mail (frmNotify.txtMailSubj). Take "
                      "\"+\" out of it."),
              1);
}

}  // namespace
}  // namespace velmora::tests
