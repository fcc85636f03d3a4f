// The folder browser and the question, with scripts in place of the desktop's dialog programs.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "platform/linux/desktop/linux_shell32.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

class DesktopDialogs : public testing::Test {
  protected:
    DesktopDialogs() { std::filesystem::create_directory(home_ / "bin"); }

    // A program that writes down its arguments, prints the file "answer" and ends with the status.
    void install(const std::string& name, int status = 0) {
        const std::string path = home_ / ("bin/" + name);
        std::ofstream(path) << "#!/bin/sh\nprintf '%s\\n' " + name + " \"$@\" >'" +
                                   (home_ / "called") + "'\n/bin/cat '" + (home_ / "answer") +
                                   "'\nexit " + std::to_string(status) + '\n';
        chmod(path.c_str(), 0755);
    }
    void answer(const std::string& text) {
        std::ofstream(home_ / "answer", std::ios::binary) << text;
    }
    Browse browse(const std::function<void()>& whileOpen = {}) {
        return shell_.SHBrowseForFolder(
            {.owner = "Form1", .title = "Select Folder/Path", .flags = 3, .whileOpen = whileOpen},
            list_);
    }
    // The chosen folder as a path of the host.
    std::string chosen() { return hostPathOf(list_.place, volumes_.roots()); }
    std::string called() { return contentsOf(home_ / "called"); }

    TestFolder home_;
    OtherUser user_{home_.path()};
    Environment path_{"PATH", home_ / "bin"};
    Environment display_{"DISPLAY", ":99"};
    Environment wayland_{"WAYLAND_DISPLAY", std::nullopt};
    Volumes volumes_;
    LinuxShell32 shell_{volumes_};
    ItemIdList list_{"as before"};
};

TEST_F(DesktopDialogs, TheChosenFolderIsADrivePath) {
    install("zenity");
    answer("/srv/my data/Größe 日本\n");
    EXPECT_EQ(browse(), Browse::chosen);
    EXPECT_EQ(chosen(), "/srv/my data/Größe 日本");
    EXPECT_EQ(list_.place[1], ':');
    EXPECT_EQ(called(), "zenity\n--file-selection\n--directory\n--title=Select Folder/Path\n");
}

TEST_F(DesktopDialogs, OneLineEndIsNoPartOfTheName) {
    install("zenity");
    for (const std::string name : {"/srv/two\nlines", "/srv/open\n", "/srv/\\ and \xff", "/"}) {
        answer(name + '\n');
        ASSERT_EQ(browse(), Browse::chosen);
        EXPECT_EQ(chosen(), name);
    }
    answer("/srv/no line end");
    ASSERT_EQ(browse(), Browse::chosen);
    EXPECT_EQ(chosen(), "/srv/no line end");
}

TEST_F(DesktopDialogs, TheOtherProgramIsAskedWhereTheFirstIsMissing) {
    install("kdialog");
    answer("/srv\n");
    EXPECT_EQ(browse(), Browse::chosen);
    EXPECT_EQ(chosen(), "/srv");
    EXPECT_EQ(called(), "kdialog\n--title\nSelect Folder/Path\n--getexistingdirectory\n/\n");
    install("zenity");
    EXPECT_EQ(browse(), Browse::chosen);
    EXPECT_TRUE(called().starts_with("zenity\n"));
}

TEST_F(DesktopDialogs, ADismissedOneChoosesNothing) {
    answer("/srv\n");
    for (const int status : {1, 5, 255}) {
        install("zenity", status);
        EXPECT_EQ(browse(), Browse::dismissed) << status;
    }
    install("zenity");
    for (const char* text : {"", "\n", "no path\n"}) {
        answer(text);
        EXPECT_EQ(browse(), Browse::dismissed) << text;
    }
    EXPECT_EQ(list_.place, "as before");
}

TEST_F(DesktopDialogs, WithoutProgramOrDisplayThereIsNone) {
    EXPECT_EQ(browse(), Browse::unavailable);
    install("zenity");
    answer("/srv\n");
    for (const auto& none : {std::optional<std::string>{}, std::optional<std::string>{""}}) {
        const Environment noDisplay("DISPLAY", none);
        EXPECT_EQ(browse(), Browse::unavailable);
    }
    EXPECT_EQ(called(), "");
    EXPECT_EQ(list_.place, "as before");
    const Environment noX("DISPLAY", std::nullopt);
    const Environment wayland("WAYLAND_DISPLAY", "wayland-0");
    EXPECT_EQ(browse(), Browse::chosen);
}

TEST_F(DesktopDialogs, TheProgramGoesOnWhileItIsOpen) {
    const std::string mark = home_ / "go on";
    std::ofstream(home_ / "bin/zenity")
        << "#!/bin/sh\nuntil [ -e '" + mark + "' ]; do /bin/sleep 0.01; done\necho /srv\n";
    chmod((home_ / "bin/zenity").c_str(), 0755);
    EXPECT_EQ(browse([&] { std::ofstream(mark) << "x"; }), Browse::chosen);
    EXPECT_EQ(chosen(), "/srv");
}

// Nothing may be confirmed in these: that would empty the trash of the drive of temporary files.
class EmptyingQuestion : public DesktopDialogs {
  protected:
    EmptyingQuestion() {
        const std::string trash = home_ / ".local/share/Trash";
        std::filesystem::create_directories(trash + "/files");
        std::filesystem::create_directories(trash + "/info");
        std::ofstream(file_) << "x";
    }
    std::string file_ = home_ / ".local/share/Trash/files/kept";
    std::string root_ = driveNameOf(drivePathOf(home_.path(), volumes_.roots())) + '\\';
};

TEST_F(EmptyingQuestion, ANoRemovesNothing) {
    for (const char* program : {"kdialog", "zenity"}) {
        install(program, 1);
        answer("");
        EXPECT_EQ(shell_.SHEmptyRecycleBinA("Form1", root_, 6), 1223) << program;
        EXPECT_TRUE(called().starts_with(program)) << called();
        EXPECT_NE(called().find("Remove everything in the trash of this drive for good?"),
                  std::string::npos);
    }
    EXPECT_TRUE(std::filesystem::exists(file_));
}

TEST_F(EmptyingQuestion, WithoutAWayToAskNothingIsRemoved) {
    EXPECT_EQ(shell_.SHEmptyRecycleBinA("Form1", root_, 0), 1223);
    install("zenity");
    answer("");
    const Environment noDisplay("DISPLAY", std::nullopt);
    EXPECT_EQ(shell_.SHEmptyRecycleBinA("Form1", root_, 0), 1223);
    EXPECT_EQ(called(), "");
    EXPECT_TRUE(std::filesystem::exists(file_));
}

TEST_F(EmptyingQuestion, IsNotAskedAboutADriveThatIsNotThere) {
    install("zenity");
    answer("");
    EXPECT_EQ(shell_.SHEmptyRecycleBinA("Form1", "\\\\no\\share", 0), 15);
    EXPECT_EQ(shell_.SHEmptyRecycleBinA("Form1", "no drive", 7), 15);
    EXPECT_EQ(called(), "");
}

}  // namespace
}  // namespace velmora::linuxhost
