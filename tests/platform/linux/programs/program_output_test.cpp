#include "platform/linux/programs/program_output.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "base/errors.h"
#include "platform/linux/desktop/linux_wscript_shell.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"
#include "platform/linux/system/left_children.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;
using Command = std::vector<std::string>;

std::string outputOf(const std::string& script, OutputLimits limits = {}) {
    return startWithOutput({"/bin/sh", "-c", script}, limits)->ReadAll();
}

// Whether the process whose number is in the file has ended; it may be another's zombie.
bool hasEndedIn(const std::string& file) {
    const std::string number = contentsOf(file);
    const std::string id = number.substr(0, number.find('\n'));
    if (id.empty()) return false;
    const std::string stat = contentsOf("/proc/" + id + "/stat");
    return stat.empty() || stat.find(") Z") != std::string::npos;
}

class ProgramsInPath : public testing::Test {
  protected:
    std::string program(const std::string& name, const std::string& script) {
        std::string path = folder_ / name;
        std::ofstream(path) << "#!/bin/sh\n" + script + '\n';
        chmod(path.c_str(), 0755);
        return path;
    }

    TestFolder folder_;
    Environment path_{"PATH", folder_.path()};
};

TEST(ProgramOutput, IsReadToItsEnd) {
    EXPECT_EQ(outputOf("echo one; echo two; printf three"), "one\r\ntwo\r\nthree");
    EXPECT_EQ(outputOf("printf 'a\\r\\nb\\n'"), "a\r\nb\r\n");
    EXPECT_EQ(outputOf("exit 3"), "");
    EXPECT_EQ(outputOf("echo error >&2"), "");
    EXPECT_EQ(outputOf("printf 'gr\\303\\266\\303\\n\\377'"), "grö\xEF\xBF\xBD\r\n\xEF\xBF\xBD");
}

TEST(ProgramOutput, TheProgramHasNoInputAndASessionOfItsOwn) {
    EXPECT_EQ(outputOf("cat; echo end"), "end\r\n");
    const auto program = outputOf("ps -o sid= -p $$ | tr -d ' \\n'; printf ,; printf $$");
    const auto comma = program.find(',');
    EXPECT_EQ(program.substr(0, comma), program.substr(comma + 1));
}

TEST(ProgramOutput, ASecondReadGivesNothing) {
    const auto program = startWithOutput({"/bin/sh", "-c", "echo one"});
    EXPECT_EQ(program->ReadAll(), "one\r\n");
    EXPECT_EQ(program->ReadAll(), "");
}

TEST(ProgramOutput, ASilentProgramIsEndedWithAllItHasStarted) {
    const TestFolder folder;
    const auto start = steady_clock::now();
    const std::string script = "echo before; sleep 1000 & echo $! >'" + (folder / "child") +
                               "'; echo $$ >'" + (folder / "leader") + "'; wait; echo after";
    EXPECT_EQ(outputOf(script, {.silence = 400ms}), "before\r\n");
    EXPECT_GE(steady_clock::now() - start, 400ms);
    EXPECT_LT(steady_clock::now() - start, 3s);
    EXPECT_TRUE(waitUntil([&] { return hasEndedIn(folder / "child"); }));
    EXPECT_EQ(contentsOf("/proc/" + contentsOf(folder / "leader") + "/stat"), "");
    EXPECT_EQ(reapLeftChildren(), 0u);
}

TEST(ProgramOutput, AChildThatHoldsThePipeIsNotWaitedForLonger) {
    const auto start = steady_clock::now();
    EXPECT_EQ(outputOf("echo before; sleep 1000 & exit", {.silence = 300ms}), "before\r\n");
    EXPECT_LT(steady_clock::now() - start, 3s);
}

TEST(ProgramOutput, AProgramThatGoesOnWritingIsEndedInTheEnd) {
    const auto start = steady_clock::now();
    const std::string output =
        outputOf("while :; do echo again; sleep 0.05; done", {.silence = 5s, .total = 3s});
    EXPECT_GE(steady_clock::now() - start, 3s);
    EXPECT_LT(steady_clock::now() - start, 30s);
    EXPECT_TRUE(output.starts_with("again\r\nagain\r\n"));
}

TEST(ProgramOutput, TooMuchOutputIsCut) {
    EXPECT_EQ(outputOf("yes | tr -d '\\n'", {.bytes = 100'000}), std::string(100'000, 'y'));
    EXPECT_EQ(outputOf("yes | tr -d '\\n'").size(), std::size_t{16} * 1024 * 1024);
}

TEST(ProgramOutput, TheUsualLimitOfSilenceIsTwoSeconds) {
    const auto start = steady_clock::now();
    EXPECT_EQ(outputOf("echo before; sleep 1000"), "before\r\n");
    EXPECT_GE(steady_clock::now() - start, 1900ms);
    EXPECT_LT(steady_clock::now() - start, 4s);
    EXPECT_EQ(OutputLimits().total, 10s);
}

TEST(ProgramOutput, NoProcessAndNoDescriptorStays) {
    reapLeftChildren();
    const auto countIn = [](const char* folder) {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    };
    const auto files = countIn("/proc/self/fd");
    for (int i = 0; i < 100; ++i) EXPECT_EQ(outputOf("echo x"), "x\r\n");
    // Programs whose output nobody reads.
    for (int i = 0; i < 10; ++i) startWithOutput({"/bin/sh", "-c", "yes"});
    EXPECT_TRUE(waitUntil([] { return reapLeftChildren() == 0; }));
    EXPECT_EQ(countIn("/proc/self/fd"), files);
    // Other tests of this program may have children that they have left.
}

TEST(ProgramOutput, AProgramThatCanNotBeStartedIsAnError) {
    EXPECT_EQ(errorOf([] { startWithOutput({"/nowhere/at all"}); }), error::permissionDenied);
    EXPECT_EQ(errorOf([] { outputCommand("velmora-no-such-program"); }), error::fileNotFound);
    EXPECT_EQ(errorOf([] { outputCommand(""); }), error::fileNotFound);
}

TEST_F(ProgramsInPath, ACommandLineIsTakenApart) {
    const std::string path = program("say it", "printf '%s|' \"$@\"");
    EXPECT_EQ(outputCommand("\"say it\" one \"two words\" $HOME"),
              (Command{path, "one", "two words", "$HOME"}));
    EXPECT_EQ(outputCommand("\"say it.EXE\""), Command{path});
    Volumes volumes;
    LinuxWScriptShell shell(volumes);
    EXPECT_EQ(shell.Exec("\"say it\" one \"two words\" $HOME")->ReadAll(), "one|two words|$HOME|");
    EXPECT_EQ(errorOf([&] { shell.Exec("say"); }), error::fileNotFound);
}

TEST_F(ProgramsInPath, ConnectionsAreListedByWhatTheHostHas) {
    for (const char* order : {"netstat", "NetStat.EXE", " netstat ", "\"netstat\""})
        EXPECT_EQ(errorOf([&] { outputCommand(order); }), error::fileNotFound) << order;
    const std::string second = program("ss", "");
    for (const char* order : {"netstat", "NetStat.EXE", " netstat ", "\"netstat\""})
        EXPECT_EQ(outputCommand(order), (Command{second, "--tcp", "--numeric"})) << order;
    const std::string first = program("netstat", "");
    for (const char* order : {"netstat", "NetStat.EXE", " netstat ", "\"netstat\""})
        EXPECT_EQ(outputCommand(order), (Command{first, "--tcp", "--numeric"})) << order;
    EXPECT_EQ(outputCommand("netstat -a"), (Command{first, "-a"}));
    EXPECT_EQ(outputCommand("ss"), Command{second});
}

}  // namespace
}  // namespace velmora::linuxhost
