#include "platform/linux/programs/command_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/support/mounting.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

using Arguments = std::vector<std::string>;
using namespace std::string_literals;

class CommandLineTest : public testing::Test {
  protected:
    std::string textOf(const Arguments& arguments) { return commandText(arguments, volumes_); }
    std::string drivePath(const std::string& hostPath) {
        return drivePathOf(hostPath, volumes_.roots());
    }

    TestFolder folder_;
    Volumes volumes_;
};

// One start's arguments as another program has them.
struct HandedOver : CommandLineTest {
    std::string throughOthers(const Arguments& arguments) {
        const std::string text = textForOthers(arguments, volumes_);
        const auto before = std::filesystem::current_path();
        std::filesystem::current_path("/");
        Volumes others;
        std::string command = commandFromOther(text, others);
        std::filesystem::current_path(before);
        return command;
    }
};

// What the kernel says of this process, without the program's name.
TEST_F(CommandLineTest, TheProgramsOwnArgumentsAreThoseOfItsStart) {
    std::ifstream file("/proc/self/cmdline");
    Arguments arguments;
    for (std::string each; std::getline(file, each, '\0');) arguments.push_back(each);
    ASSERT_FALSE(arguments.empty());
    arguments.erase(arguments.begin());
    EXPECT_EQ(ownCommand(volumes_), textOf(arguments));
}

TEST_F(CommandLineTest, WhatIsThereBecomesADrivePathInQuotes) {
    std::ofstream(folder_ / "a file") << "x";
    EXPECT_EQ(textOf({folder_ / "a file", folder_.path() + "/"}),
              '"' + drivePath(folder_ / "a file") + "\" \"" + drivePath(folder_.path()) + '"');
    EXPECT_EQ(textOf({"/"}), "\"C:\\\"");
}

TEST_F(CommandLineTest, AnOptionInFrontStaysAlsoWhereAFileHasItsName) {
    std::ofstream(folder_ / "--keep-running") << "x";
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder_.path());
    // The file of a script isn't one of the paths.
    std::ofstream(folder_ / "script") << "x";
    EXPECT_EQ(textOf({"--script", "script", "--json"}), "\"--script\" \"script\" \"--json\"");
    EXPECT_EQ(textOf({"--json", "--script"}), "\"--json\" \"--script\"");
    const std::string text = textOf({"--keep-running", "a", "--keep-running"});
    std::filesystem::current_path(before);
    EXPECT_EQ(text, "\"--keep-running\" \"a\" \"" + drivePath(folder_ / "--keep-running") + '"');
}

TEST_F(CommandLineTest, ARelativePathBelongsToTheWorkingFolder) {
    std::ofstream(folder_ / "here") << "x";
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder_.path());
    const std::string text = textOf({"here", "./here", "nowhere"});
    std::filesystem::current_path(before);
    const std::string path = '"' + drivePath(folder_ / "here") + '"';
    EXPECT_EQ(text, path + ' ' + path + " \"nowhere\"");
}

TEST_F(CommandLineTest, LinksAboveAPathAreResolvedInBothForms) {
    std::filesystem::create_directory(folder_ / "real");
    std::filesystem::create_directory_symlink("real", folder_ / "way");
    std::ofstream(folder_ / "real/file") << "x";
    const std::string path = '"' + drivePath(folder_ / "real/file") + '"';
    EXPECT_EQ(textOf({folder_ / "way/file", drivePath(folder_ / "way") + "\\file"}),
              path + ' ' + path);
}

TEST_F(CommandLineTest, AQuoteInANameComesBackFromItsDrivePath) {
    const std::string path = folder_ / "the \"quoted\" one";
    std::ofstream(path) << "x";
    const std::string text = textOf({path});
    EXPECT_EQ(text.find('"', 1), text.size() - 1);
    EXPECT_EQ(hostPathOf(text.substr(1, text.size() - 2), volumes_.roots()), path);
}

TEST_F(CommandLineTest, OtherArgumentsStayButForTheirQuotes) {
    EXPECT_EQ(textOf({"/hidden", "D:\\data", "", "say \"hi\""}),
              "\"/hidden\" \"D:\\data\" \"\" \"say \uF022hi\uF022\"");
    EXPECT_EQ(textOf({}), "");
}

TEST_F(HandedOver, PathsBelongToTheWorkingFolderOfTheirStart) {
    std::ofstream(folder_ / "here") << "x";
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder_.path());
    const std::string command = throughOthers({"--single", "here", "nowhere", "tmp"});
    std::filesystem::current_path(before);
    EXPECT_EQ(command, '"' + drivePath(folder_ / "here") + "\" \"nowhere\" \"tmp\"")
        << "what wasn't found there isn't found in the other's folder either";
}

TEST_F(HandedOver, NamesAndOtherArgumentsComeWhole) {
    std::filesystem::create_directory(folder_ / "real");
    std::filesystem::create_directory_symlink("real", folder_ / "way");
    const std::string name = "a \"quoted\" \\ \xFF name\n";
    std::ofstream(folder_ / ("real/" + name)) << "x";
    EXPECT_EQ(
        throughOthers({folder_ / ("way/" + name), "/", "C:\\data", "/hidden", "", "say \"hi\""}),
        '"' + drivePath(folder_ / ("real/" + name)) +
            "\" \"C:\\\" \"C:\\data\" \"/hidden\" \"\" \"say \uF022hi\uF022\"");
    EXPECT_EQ(throughOthers({"--single"}), "");
    EXPECT_EQ(throughOthers({"--script", "/tmp", "--json"}), "");
}

TEST_F(MountingTest, APathHandedOverHasTheLetterOfTheProgramThatTakesIt) {
    TestMount former;
    ASSERT_TRUE(former.mountTmpfs("size=64k"));
    Volumes running;
    const std::string letters = running.letters();
    TestMount drive;
    ASSERT_TRUE(drive.mountTmpfs("size=64k"));
    std::ofstream(drive.path() + "/file") << "x";
    ASSERT_GT(running.letters().size(), letters.size());
    former.unmount();
    Volumes later;
    const std::string path = drive.path() + "/file";
    const std::string here = drivePathOf(path, running.roots());
    ASSERT_NE(drivePathOf(path, later.roots()), here) << "the letters must differ";
    EXPECT_EQ(commandFromOther(textForOthers({path}, later), running), '"' + here + '"');
}

TEST_F(CommandLineTest, TheProcesssOwnArgumentsAreTaken) {
    const std::string text = ownCommand(volumes_);
    const auto arguments = testing::internal::GetArgvs().size() - 1;
    EXPECT_EQ(static_cast<std::size_t>(std::count(text.begin(), text.end(), '"')), arguments * 2);
}

}  // namespace
}  // namespace velmora::linuxhost
