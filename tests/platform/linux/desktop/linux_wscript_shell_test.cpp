#include "platform/linux/desktop/linux_wscript_shell.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "base/errors.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/programs/child_programs.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

class LinuxWScriptShellTest : public testing::Test {
  protected:
    std::string drivePath(const std::string& hostPath) {
        return drivePathOf(hostPath, volumes_.roots());
    }
    std::unique_ptr<Shortcut> shortcut(const std::string& name) {
        return shell_.CreateShortcut(drivePath(folder_ / name));
    }

    TestFolder folder_;
    Volumes volumes_;
    LinuxWScriptShell shell_{volumes_};
};

TEST_F(LinuxWScriptShellTest, TheScriptStartsTheTargetWithArgumentsAndSelectedFiles) {
    const std::string program = folder_ / "it's $HOME \"program\"";
    std::ofstream(program) << "#!/bin/sh\nprintf '%s|' \"$@\" >'" + (folder_ / "called") + "'\n";
    chmod(program.c_str(), 0755);
    const auto link = shortcut("scripts/velmora.lnk");
    link->TargetPath = drivePath(program) + ".exe";
    link->Arguments = "/add \"two words\" $(rm x)";
    link->Description = "Watch this; `rm x`";
    link->Save();
    ChildPrograms programs(std::chrono::seconds(10));
    EXPECT_EQ(programs.run({folder_ / "scripts/velmora.lnk", "one file", "it's"}),
              ChildPrograms::Result::done);
    EXPECT_EQ(contentsOf(folder_ / "called"), "/add|two words|$(rm|x)|one file|it's|");
}

TEST_F(LinuxWScriptShellTest, AProgramWithAnExeOfItsOwnKeepsIt) {
    std::ofstream(folder_ / "program.exe") << "x";
    std::ofstream(folder_ / "program") << "x";
    const auto link = shortcut("velmora.lnk");
    link->TargetPath = drivePath(folder_ / "program.exe");
    link->Save();
    EXPECT_EQ(contentsOf(folder_ / "velmora.lnk"),
              "#!/bin/sh\nexec '" + (folder_ / "program.exe") + "' \"$@\"\n");
}

TEST_F(LinuxWScriptShellTest, AnAddressIsKeptAsText) {
    const auto link = shortcut("page.url");
    link->TargetPath = "https://velmora.example/\r\nIconFile=x";
    link->Save();
    EXPECT_EQ(contentsOf(folder_ / "page.url"),
              "[InternetShortcut]\r\nURL=https://velmora.example/IconFile=x\r\n");
}

TEST_F(LinuxWScriptShellTest, WhatCanNotBeSavedIsAnError) {
    std::ofstream(folder_ / "file") << "x";
    const auto below = shortcut("file/velmora.lnk");
    below->TargetPath = "C:\\bin\\sh";
    EXPECT_EQ(errorOf([&] { below->Save(); }), error::pathNotFound);
    std::filesystem::create_directory(folder_ / "velmora.lnk");
    const auto taken = shortcut("velmora.lnk");
    taken->TargetPath = "C:\\bin\\sh";
    EXPECT_EQ(errorOf([&] { taken->Save(); }), error::permissionDenied);
    EXPECT_EQ(errorOf([&] { shortcut("other.lnk")->Save(); }), error::pathNotFound);
}

TEST_F(LinuxWScriptShellTest, OnADriveThatIsNotThereNoShortcutIsMade) {
    EXPECT_FALSE(shell_.CreateShortcut("Q:\\velmora.lnk"));
    EXPECT_FALSE(shell_.CreateShortcut(""));
}

}  // namespace
}  // namespace velmora::linuxhost
