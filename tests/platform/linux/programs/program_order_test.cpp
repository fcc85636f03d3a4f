#include "platform/linux/programs/program_order.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "base/errors.h"
#include "platform/linux/desktop/linux_shell32.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;

TEST(ProgramOrder, TheFirstWordIsTheProgramAndMayStandInQuotes) {
    const auto expect = [](const std::string& line, const std::string& program,
                           const std::string& rest) {
        const ProgramOrder order = programOrder(line);
        EXPECT_EQ(order.program, program) << line;
        EXPECT_EQ(order.rest, rest) << line;
    };
    expect("Notepad.exe C:\\a b.txt", "Notepad.exe", "C:\\a b.txt");
    expect("\"C:\\my programs\\x\" -a \"b c\"", "C:\\my programs\\x", "-a \"b c\"");
    expect("  run \t now  ", "run", "now");
    expect("alone", "alone", "");
    expect("\"alone\"", "alone", "");
    expect("\"never closed x", "never closed x", "");
    expect("", "", "");
    expect("   ", "", "");
    expect("\"\" x", "", "x");
}

TEST(ProgramOrder, DrivePathsAmongTheArgumentsBecomePathsOfTheHost) {
    const std::vector<DriveRoot> drives{{"C:", "/"}, {"D:", "/mnt/d"}};
    EXPECT_EQ(hostArguments("-x \"D:\\a b\" c:\\etc Q:\\none a=C:\\x", drives),
              (std::vector<std::string>{"-x", "/mnt/d/a b", "/etc", "Q:\\none", "a=C:\\x"}));
    EXPECT_TRUE(hostArguments("", drives).empty());
}

TEST(ProgramOrder, TheTextEditorIsKnownInAnyCaseAndFolder) {
    for (const char* name : {"Notepad.exe", "notepad", "NOTEPAD.EXE", "C:\\Windows\\notepad.exe"})
        EXPECT_TRUE(isTextEditor(name)) << name;
    EXPECT_FALSE(isTextEditor("notepad++.exe"));
}

// Programs are scripts which write down how and where they were called.
class ShellOrders : public testing::Test {
  protected:
    ShellOrders() {
        fs::create_directories(home_ / "bin");
        fs::create_directories(home_ / "my programs");
        std::ofstream(home_ / "a file, ö.txt") << "text";
    }

    std::string script(const std::string& ending) const {
        return "#!/bin/sh\nprintf '%s\\n' \"$PWD\" \"$0\" \"$@\" >'" + (home_ / "written") +
               "' && " + "PATH=/usr/bin:/bin mv '" + (home_ / "written") + "' '" +
               (home_ / "called") + "'\n" + ending + '\n';
    }
    void install(const std::string& name, const std::string& ending = "exit 0") {
        std::ofstream(home_ / name) << script(ending);
        chmod((home_ / name).c_str(), 0755);
    }
    /// What was called, once it was: the folder, the program and its arguments, a line each.
    std::string called() {
        waitUntil([&] { return fs::exists(home_ / "called"); });
        std::string lines = contentsOf(home_ / "called");
        fs::remove(home_ / "called");
        return lines;
    }
    std::string in(const std::string& name) { return drivePathOf(home_ / name, volumes_.roots()); }
    int errorOfShell(const std::string& line) {
        return errorOf([&] { shell_.Shell(line, 1); });
    }
    std::string here() const { return fs::current_path().string() + '\n'; }

    TestFolder home_;
    OtherUser user_{home_.path()};
    Environment path_{"PATH", home_ / "bin"};
    Volumes volumes_;
    LinuxShell32 shell_{volumes_};
};

TEST_F(ShellOrders, TheTextEditorIsTheDesktopsProgramForTheFile) {
    install("bin/xdg-open");
    const std::string expected =
        here() + (home_ / "bin/xdg-open") + '\n' + (home_ / "a file, ö.txt") + '\n';
    EXPECT_EQ(errorOfShell("Notepad.exe " + in("a file, ö.txt")), 0);
    EXPECT_EQ(called(), expected);
    EXPECT_EQ(errorOfShell("\"C:\\Windows\\NOTEPAD.EXE\" \"" + in("a file, ö.txt") + '"'), 0);
    EXPECT_EQ(called(), expected);
    // Whether the file exists isn't checked.
    EXPECT_EQ(errorOfShell("notepad.exe " + in("missing")), 0);
    EXPECT_EQ(called(), here() + (home_ / "bin/xdg-open") + '\n' + (home_ / "missing") + '\n');
}

TEST_F(ShellOrders, AProgramOfPathRunsWithItsArguments) {
    install("bin/tool");
    const std::string expected =
        here() + (home_ / "bin/tool") + "\n-a\n" + (home_ / "a file, ö.txt") + "\nlast one\n";
    const std::string arguments = " -a \"" + in("a file, ö.txt") + "\" \"last one\"";
    EXPECT_EQ(errorOfShell("tool" + arguments), 0);
    EXPECT_EQ(called(), expected);
    EXPECT_EQ(errorOfShell("tool.exe" + arguments), 0);
    EXPECT_EQ(called(), expected);
}

TEST_F(ShellOrders, AProgramByItsDrivePathRuns) {
    install("my programs/run it");
    install("my programs/other");
    const std::string expected = here() + (home_ / "my programs/run it") + "\nx\n";
    EXPECT_EQ(errorOfShell('"' + in("my programs/run it") + "\" x"), 0);
    EXPECT_EQ(called(), expected);
    EXPECT_EQ(errorOfShell('"' + in("my programs/run it") + ".exe\" x"), 0);
    EXPECT_EQ(called(), expected);
    // A path alone needs no quotes.
    EXPECT_EQ(errorOfShell(in("my programs/other")), 0);
    EXPECT_EQ(called(), here() + (home_ / "my programs/other") + '\n');
}

TEST_F(ShellOrders, TheOrderReturnsAtOnce) {
    // It ends with the test's folder, which may go before it has seen the file.
    install("bin/tool", "while [ -d '" + home_.path() + "' ] && [ ! -e '" + (home_ / "end") +
                            "' ]; do /bin/sleep 0.02; done");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(errorOfShell("tool"), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(900));
    EXPECT_NE(called(), "");
    std::ofstream(home_ / "end") << "now";
}

TEST_F(ShellOrders, AFileThatIsNoProgramIsOpenedByTheProgramForIt) {
    install("bin/xdg-open");
    // On some filesystems every file may be executed.
    chmod((home_ / "a file, ö.txt").c_str(), 0755);
    const std::string expected =
        here() + (home_ / "bin/xdg-open") + '\n' + (home_ / "a file, ö.txt") + '\n';
    EXPECT_EQ(errorOfShell('"' + in("a file, ö.txt") + '"'), 0);
    EXPECT_EQ(called(), expected);
    EXPECT_EQ(errorOfShell(in("a file, ö.txt")), 0);
    EXPECT_EQ(called(), expected);
}

TEST_F(ShellOrders, WhatIsNoProgramIsError53) {
    for (const std::string& line :
         {std::string("no-such-tool x"), in("missing"), std::string("Q:\\tool.exe"),
          in("my programs"), std::string("notepad.exe"), in("a file, ö.txt") + ".exe"})
        EXPECT_EQ(errorOfShell(line), error::fileNotFound) << line;
    // Without a program that opens files.
    EXPECT_EQ(errorOfShell("notepad.exe " + in("a file, ö.txt")), error::fileNotFound);
    EXPECT_EQ(errorOfShell('"' + in("a file, ö.txt") + '"'), error::fileNotFound);
    EXPECT_EQ(errorOfShell("  "), error::invalidCall);
    EXPECT_FALSE(fs::exists(home_ / "called"));
}

TEST_F(ShellOrders, AProgramThatCanNotBeStartedIsError5) {
    std::ofstream(home_ / "bin/broken") << "#!/no/such/interpreter\n";
    chmod((home_ / "bin/broken").c_str(), 0755);
    EXPECT_EQ(errorOfShell("broken"), error::invalidCall);
}

TEST_F(ShellOrders, OpeningAProgramRunsItInItsOwnFolder) {
    install("bin/xdg-open");
    install("my programs/run it");
    const auto open = [&](const std::string& name, const std::string& parameters) {
        return shell_.ShellExecuteA("Form1", "open", in(name), parameters, "", 1);
    };
    EXPECT_GT(open("my programs/run it", "0 \"" + in("a file, ö.txt") + '"'), 32);
    EXPECT_EQ(called(), (home_ / "my programs") + '\n' + (home_ / "my programs/run it") + "\n0\n" +
                            (home_ / "a file, ö.txt") + '\n');
    // Not one that may not be executed, and no text that may.
    chmod((home_ / "my programs/run it").c_str(), 0644);
    EXPECT_GT(open("my programs/run it", ""), 32);
    EXPECT_EQ(called(),
              here() + (home_ / "bin/xdg-open") + '\n' + (home_ / "my programs/run it") + '\n');
    chmod((home_ / "a file, ö.txt").c_str(), 0755);
    EXPECT_GT(open("a file, ö.txt", ""), 32);
    EXPECT_EQ(called(),
              here() + (home_ / "bin/xdg-open") + '\n' + (home_ / "a file, ö.txt") + '\n');
}

TEST_F(ShellOrders, ABinaryIsAProgramToo) {
    EXPECT_TRUE(isProgram("/proc/self/exe"));
    EXPECT_FALSE(isProgram("/etc/passwd"));
    EXPECT_FALSE(isProgram("/tmp"));
    EXPECT_FALSE(isProgram(home_ / "missing"));
}

TEST_F(ShellOrders, AScriptNamesItsInterpreter) {
    const auto makes = [this](const std::string& content) {
        const std::string path = home_ / "text";
        std::ofstream(path) << content;
        chmod(path.c_str(), 0755);
        return isProgram(path);
    };
    EXPECT_TRUE(makes("#!/bin/sh\n"));
    EXPECT_FALSE(makes("# a note\n"));
    EXPECT_FALSE(makes("!#\n"));
    EXPECT_FALSE(makes("#"));
    EXPECT_FALSE(makes(""));
}

TEST_F(ShellOrders, TheDiskCleanerIsTheFirstOneInstalledAndIsGivenNothing) {
    const auto clean = [&](const std::string& name) {
        return shell_.ShellExecuteA("Form1", "open", name, " /d C: /sagerun: 1", "", 1);
    };
    EXPECT_EQ(clean("cleanmgr"), 2);
    for (const char* name : {"baobab", "stacer", "bleachbit"}) {
        install(std::string("bin/") + name);
        EXPECT_GT(clean("CleanMgr"), 32);
        EXPECT_EQ(called(), here() + (home_ / "bin/") + name + '\n');
    }
    EXPECT_GT(clean("cleanmgr.exe"), 32);
    EXPECT_EQ(called(), here() + (home_ / "bin/bleachbit") + '\n');
}

}  // namespace
}  // namespace velmora::linuxhost
