#include "platform/linux/desktop/linux_shell32.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "platform/linux/paths/file_uri.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

// Programs of the desktop are scripts here, in the only folder of PATH, which write down how they
// were called.
class LinuxShell32Test : public testing::Test {
  protected:
    LinuxShell32Test() {
        std::filesystem::create_directory(home_ / "bin");
        std::ofstream(file_) << "x";
    }

    void install(const std::string& name, const std::string& ending = "exit 0") {
        const std::string path = home_ / ("bin/" + name);
        std::ofstream(path) << "#!/bin/sh\nprintf '%s\\n' " + name + " \"$@\" >'" +
                                   (home_ / "called") + "'\n" + ending + '\n';
        chmod(path.c_str(), 0755);
    }
    std::string called() { return contentsOf(home_ / "called"); }
    bool execute(const std::string& verb, const std::string& hostPath) {
        ShellExecuteInfo info{.mask = 1100, .owner = "Form1", .verb = verb, .file = ""};
        info.file = drivePathOf(hostPath, volumes_.roots());
        return shell_.ShellExecuteEx(info);
    }
    std::string place(std::int32_t csidl) {
        ItemIdList list;
        if (shell_.SHGetSpecialFolderLocation(csidl, list) != 0) return "failed";
        return hostPathOf(list.place, volumes_.roots());
    }

    TestFolder home_;
    std::string file_ = home_ / "a file, 100% ö";
    OtherUser user_{home_.path()};
    Environment path_{"PATH", home_ / "bin"};
    Environment bus_{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"};
    Volumes volumes_;
    LinuxShell32 shell_{volumes_};
};

TEST_F(LinuxShell32Test, SpecialFoldersAreTheUsers) {
    EXPECT_EQ(place(40), home_.path());
    EXPECT_EQ(place(26), home_ / ".config");
    EXPECT_EQ(place(16), home_ / "Desktop");
    EXPECT_EQ(place(5), home_ / "Documents");
    EXPECT_EQ(place(9), home_ / ".local/share/nautilus/scripts");
    EXPECT_TRUE(std::filesystem::is_directory(home_ / ".local/share/nautilus/scripts"));
    EXPECT_EQ(place(0), "failed");
}

TEST_F(LinuxShell32Test, AFolderOfScriptsThatCanNotBeMadeIsAFailure) {
    std::ofstream(home_ / ".local") << "no folder";
    EXPECT_EQ(place(9), "failed");
}

TEST_F(LinuxShell32Test, PropertiesAreAskedOfTheFileManager) {
    install("gdbus");
    EXPECT_TRUE(execute("properties", file_));
    EXPECT_EQ(called(),
              "gdbus\ncall\n--session\n--timeout\n5\n--dest\norg.freedesktop.FileManager1\n"
              "--object-path\n/org/freedesktop/FileManager1\n--method\n"
              "org.freedesktop.FileManager1.ShowItemProperties\n['" +
                  fileUri(file_) + "']\n''\n");
}

TEST_F(LinuxShell32Test, WithoutTheOneToolTheOtherAsks) {
    install("dbus-send");
    EXPECT_TRUE(execute("properties", file_));
    EXPECT_EQ(called().substr(0, 21), "dbus-send\n--session\n-");
    EXPECT_NE(called().find("\narray:string:" + fileUri(file_) + "\nstring:\n"), std::string::npos);
}

TEST_F(LinuxShell32Test, PropertiesFailWithoutToolFileManagerOrSession) {
    EXPECT_FALSE(execute("properties", file_));
    install("gdbus", "exit 1");
    EXPECT_FALSE(execute("properties", file_));
    install("gdbus");
    const Environment noBus("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
    EXPECT_FALSE(execute("properties", file_));
}

TEST_F(LinuxShell32Test, OpeningIsLeftToTheDesktop) {
    install("xdg-open");
    for (const char* verb : {"open", "Explore", ""}) {
        EXPECT_TRUE(execute(verb, file_));
        EXPECT_EQ(called(), "xdg-open\n" + file_ + '\n');
        std::filesystem::remove(home_ / "called");
    }
    EXPECT_FALSE(execute("print", file_));
    EXPECT_EQ(called(), "");
}

TEST_F(LinuxShell32Test, FilesAndAddressesAreOpenedAndWhatIsMissingIsNot) {
    install("xdg-open");
    const auto open = [&](const std::string& what) {
        return shell_.ShellExecuteA("Form1", "open", what, "", "", 1);
    };
    EXPECT_GT(open(drivePathOf(file_, volumes_.roots())), 32);
    EXPECT_EQ(called(), "xdg-open\n" + file_ + '\n');
    EXPECT_GT(open("mailto:somebody@velmora.example?subject=comments"), 32);
    EXPECT_EQ(called(), "xdg-open\nmailto:somebody@velmora.example?subject=comments\n");
    EXPECT_LE(open(drivePathOf(home_ / "missing", volumes_.roots())), 32);
}

TEST_F(LinuxShell32Test, TheRecycleBinIsTheTrashAndScheduledTasksAreNowhere) {
    install("xdg-open");
    const auto explore = [&](const std::string& place) {
        return shell_.ShellExecuteA("Icon1", "open", "Explorer", place, "", 1);
    };
    EXPECT_GT(explore("::{645FF040-5081-101B-9F08-00AA002F954E}"), 32);
    EXPECT_EQ(called(), "xdg-open\ntrash:///\n");
    std::filesystem::remove(home_ / "called");
    EXPECT_LE(explore("::{20D04FE0-3AEA-1069-A2D8-08002B30309D}\\"
                      "::{21EC2020-3AEA-1069-A2DD-08002B30309D}\\"
                      "::{D6277990-4C6A-11CF-8D87-00AA0060F5BF}"),
              32);
    EXPECT_EQ(called(), "");
}

TEST_F(LinuxShell32Test, WhatIsNotThereIsNotOpened) {
    install("xdg-open");
    EXPECT_FALSE(execute("open", home_ / "missing"));
    EXPECT_FALSE(shell_.ShellExecuteEx({.mask = 0, .owner = "", .verb = "open", .file = "Q:\\x"}));
    EXPECT_EQ(called(), "");
}

TEST(FileUri, EveryOtherByteIsEscaped) {
    EXPECT_EQ(fileUri("/a-b._~c/9Z"), "file:///a-b._~c/9Z");
    EXPECT_EQ(fileUri("/a b,'\"%ö\n"), "file:///a%20b%2C%27%22%25%C3%B6%0A");
}

TEST(ChildPrograms, ThePatienceEndsBeforeAProgramThatStays) {
    ChildPrograms programs(std::chrono::milliseconds(1));
    EXPECT_EQ(programs.run({"sleep", "0.2"}), ChildPrograms::Result::running);
    EXPECT_EQ(programs.running(), 1u);
    EXPECT_TRUE(waitUntil([&] { return programs.running() == 0; }));
}

TEST(ChildPrograms, HowAProgramEndedIsReported) {
    ChildPrograms programs(std::chrono::seconds(10));
    EXPECT_EQ(programs.run({"true"}), ChildPrograms::Result::done);
    EXPECT_EQ(programs.run({"false"}), ChildPrograms::Result::failed);
    EXPECT_EQ(programs.run({"sh", "-c", "kill -9 $$"}), ChildPrograms::Result::failed);
    EXPECT_EQ(programs.run({"velmora-no-such-program"}), ChildPrograms::Result::missing);
    EXPECT_EQ(programs.running(), 0u);
}

}  // namespace
}  // namespace velmora::linuxhost
