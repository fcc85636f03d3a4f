#include "platform/linux/programs/command_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "platform/linux/paths/path_mapping.h"
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

TEST(CommandLine, ArgumentsFollowTheProgramsName) {
    EXPECT_EQ(argumentsIn("velmora\0a\0\0two words\0"s), (Arguments{"a", "", "two words"}));
    EXPECT_EQ(argumentsIn("velmora\0"s), Arguments{});
    EXPECT_EQ(argumentsIn(""), Arguments{});
    EXPECT_EQ(argumentsIn("velmora\0unclosed"s), Arguments{"unclosed"});
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

TEST_F(CommandLineTest, TheProcesssOwnArgumentsAreTaken) {
    const std::string text = ownCommand(volumes_);
    const auto arguments = testing::internal::GetArgvs().size() - 1;
    EXPECT_EQ(static_cast<std::size_t>(std::count(text.begin(), text.end(), '"')), arguments * 2);
}

}  // namespace
}  // namespace velmora::linuxhost
