// Programs that are started for their output.
#include "platform/windows/programs/program_output.h"

#include <gtest/gtest.h>
#include <windows.h>
// After the one above, which they need.
#include <tlhelp32.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include "base/errors.h"
#include "platform/windows/desktop/windows_wscript_shell.h"
#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/programs/console_text.h"
#include "platform/windows/support/helper_program.h"
#include "platform/windows/support/own_handles.h"
#include "platform/windows/support/scratch_folder.h"
#include "support/wait.h"

namespace velmora::tests::windows {
namespace {

using velmora::windows::consoleText;
using velmora::windows::isUnderWine;
using velmora::windows::OutputLimits;
using velmora::windows::ProgramOutput;
using velmora::windows::ScratchFolder;
using velmora::windows::toUtf16;
using velmora::windows::WindowsWScriptShell;
using namespace std::chrono_literals;
using std::chrono::steady_clock;

// Limits that only a program without an end meets.
constexpr OutputLimits ampleOutput{.silence = 60s, .duration = 60s};

std::string helperLine(const std::string& task) {
    return '"' + helperProgram() + "\" " + task;
}

/// A copy of the helper under a name of its own, by which its processes are counted.
class NamedHelper {
  public:
    NamedHelper() : name_("velmora-" + std::to_string(GetCurrentProcessId()) + ".exe") {
        CopyFileW(toUtf16(helperProgram()).c_str(), toUtf16(path()).c_str(), FALSE);
    }
    ~NamedHelper() {
        // Its file is in use as long as one of them runs.
        waitUntil([this] { return running() == 0; });
    }
    NamedHelper(const NamedHelper&) = delete;
    NamedHelper& operator=(const NamedHelper&) = delete;

    std::string line(const std::string& task) const { return '"' + path() + "\" " + task; }
    int running() const {
        const std::wstring wanted = toUtf16(name_);
        const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        PROCESSENTRY32W entry{};
        entry.dwSize = sizeof entry;
        int count = 0;
        for (BOOL found = Process32FirstW(snapshot, &entry); found;
             found = Process32NextW(snapshot, &entry))
            count += wanted == entry.szExeFile ? 1 : 0;
        CloseHandle(snapshot);
        return count;
    }

  private:
    std::string path() const { return folder_ / name_; }

    ScratchFolder folder_;
    std::string name_;
};

TEST(ProgramOutput, AllThatAProgramWritesIsRead) {
    EXPECT_EQ(ProgramOutput(helperLine(R"(write one\0D\0Atwo\FF)")).readAll(ampleOutput),
              "one\r\ntwo\xFF");
    EXPECT_EQ(ProgramOutput(helperLine("nothing")).readAll(ampleOutput), "");
}

TEST(ProgramOutput, ASilentProgramIsEndedWithWhatItWrote) {
    const NamedHelper helper;
    ProgramOutput program(helper.line("stay"));
    const auto before = steady_clock::now();
    // The first bytes of a program that is being loaded may be late.
    EXPECT_EQ(program.readAll({.silence = 3s, .duration = 60s}), "here");
    const auto waited = steady_clock::now() - before;
    EXPECT_GE(waited, 3s);
    EXPECT_LT(waited, 30s);
    EXPECT_TRUE(waitUntil([&] { return helper.running() == 0; }));
}

TEST(ProgramOutput, AProgramThatWritesWithoutAnEndIsEndedAtItsTime) {
    const NamedHelper helper;
    ProgramOutput program(helper.line("flood"));
    const auto before = steady_clock::now();
    const std::string output =
        program.readAll({.silence = 60s, .duration = 1s, .bytes = ~std::size_t{0}});
    EXPECT_GE(steady_clock::now() - before, 1s);
    EXPECT_EQ(output.find_first_not_of('x'), std::string::npos);
    EXPECT_TRUE(waitUntil([&] { return helper.running() == 0; }));
}

TEST(ProgramOutput, AProgramThatWritesTooMuchIsEnded) {
    const NamedHelper helper;
    ProgramOutput program(helper.line("flood"));
    EXPECT_EQ(program.readAll({.silence = 60s, .duration = 60s, .bytes = 100'000}).size(),
              100'000u);
    EXPECT_TRUE(waitUntil([&] { return helper.running() == 0; }));
    const OutputLimits usual;
    EXPECT_EQ(usual.bytes, 16u * 1024 * 1024);
    EXPECT_EQ(usual.duration, 10s);
    EXPECT_EQ(usual.silence, 2s);
}

TEST(ProgramOutput, WhatAProgramHasStartedIsEndedToo) {
    const NamedHelper helper;
    ProgramOutput program(helper.line("parent"));
    EXPECT_EQ(program.readAll({.silence = 3s, .duration = 60s}), "here");
    EXPECT_TRUE(waitUntil([&] { return helper.running() == 0; }));
}

TEST(ProgramOutput, AProgramThatNobodyReadsIsEndedWithTheObject) {
    const NamedHelper helper;
    {
        const ProgramOutput program(helper.line("stay"));
        EXPECT_TRUE(waitUntil([&] { return helper.running() == 1; }));
    }
    EXPECT_TRUE(waitUntil([&] { return helper.running() == 0; }));
}

TEST(ProgramOutput, AProgramThatIsNotThereOrNoneIsAnError) {
    EXPECT_EQ(errorOf([] { ProgramOutput("velmora-nothing-of-that-name"); }), 53);
    EXPECT_EQ(errorOf([] { ProgramOutput(R"(C:\no folder\program.exe)"); }), 53);
    EXPECT_EQ(errorOf([] { ProgramOutput(""); }), 53);
    const ScratchFolder folder;
    std::ofstream(std::filesystem::path(toUtf16(folder / "text.exe"))) << "no program";
    EXPECT_EQ(errorOf([&] { ProgramOutput('"' + (folder / "text.exe") + '"'); }), 70);
}

TEST(ProgramOutput, NoHandleIsLeft) {
    const auto readOnce = [] { ProgramOutput(helperLine("write a")).readAll(ampleOutput); };
    if (!countsHandles()) GTEST_SKIP() << "the system doesn't count handles";
    readOnce();
    const int before = ownHandles();
    for (int i = 0; i < 10; ++i) readOnce();
    EXPECT_LE(ownHandles(), before);
}

TEST(WindowsWScriptShell, TheOutputOfAProgramIsText) {
    WindowsWScriptShell shell;
    EXPECT_EQ(shell.Exec(helperLine(R"(write Gr\C3\B6\C3\9Fe\0Anext)"))->ReadAll(),
              "Gr\u00f6\u00dfe\r\nnext");
    EXPECT_EQ(errorOf([&] { shell.Exec("velmora-nothing-of-that-name"); }), 53);
}

TEST(WindowsWScriptShell, TheSystemsProgramListsConnections) {
    if (!isUnderWine()) GTEST_SKIP() << "its words are those of the system's language";
    const std::string list = WindowsWScriptShell().Exec("netstat")->ReadAll();
    EXPECT_NE(list.find("Active Connections\r\n"), std::string::npos) << list;
}

TEST(ConsoleText, LinesEndInCrLf) {
    EXPECT_EQ(consoleText("a\nb\r\nc\n"), "a\r\nb\r\nc\r\n");
    EXPECT_EQ(consoleText("\n\n"), "\r\n\r\n");
    EXPECT_EQ(consoleText(""), "");
}

TEST(ConsoleText, Utf8StaysAndMayEndWithinACharacter) {
    EXPECT_EQ(consoleText("caf\u00e9"), "caf\u00e9");
    EXPECT_EQ(consoleText("\u65e5\u672c\xE8\xAA"), "\u65e5\u672c");
    EXPECT_EQ(consoleText("\u65e5\u672c\xE8"), "\u65e5\u672c");
}

// 0x82 is an e with an acute accent in both code pages, 0xE1 a sharp s.
TEST(ConsoleText, OtherBytesAreInTheCodePageOfTheConsole) {
    if (GetOEMCP() != 437 && GetOEMCP() != 850) GTEST_SKIP() << "another code page";
    EXPECT_EQ(consoleText("caf\x82 a"), "caf\u00e9 a");
    EXPECT_EQ(consoleText("caf\x82"), "caf\u00e9");
    EXPECT_EQ(consoleText("stra\xE1"), "stra\u00df");
    EXPECT_EQ(consoleText("\x82"), "\u00e9");
}

}  // namespace
}  // namespace velmora::tests::windows
