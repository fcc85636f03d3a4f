#include "platform/linux/entries/replace_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

std::size_t entriesOf(const std::string& folder) {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& each : std::filesystem::directory_iterator(folder)) ++count;
    return count;
}

TEST(ReplaceFile, AFileIsMadeWithTheFoldersAboveIt) {
    const TestFolder folder;
    EXPECT_EQ(replaceFile(folder / "a/b/c", "content", 0644), 0);
    EXPECT_EQ(contentsOf(folder / "a/b/c"), "content");
    EXPECT_EQ(entriesOf(folder / "a/b"), 1u);
}

TEST(ReplaceFile, TheOldFileGivesWayAndTheModeIsTheOneAskedFor) {
    const TestFolder folder;
    ASSERT_EQ(replaceFile(folder / "file", "a long old content", 0600), 0);
    ASSERT_EQ(replaceFile(folder / "file", "new", 0755), 0);
    EXPECT_EQ(contentsOf(folder / "file"), "new");
    struct stat status {};
    ASSERT_EQ(stat((folder / "file").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0755u);
}

TEST(ReplaceFile, WhatCanNotBeReplacedStaysAndNothingIsLeftBeside) {
    const TestFolder folder;
    std::filesystem::create_directories(folder / "taken/inside");
    EXPECT_EQ(replaceFile(folder / "taken", "x", 0644), EISDIR);
    EXPECT_EQ(entriesOf(folder.path()), 1u);
    std::ofstream(folder / "file") << "x";
    EXPECT_EQ(replaceFile(folder / "file/below", "x", 0644), ENOTDIR);
}

TEST(ReplaceFile, WhatAKilledProcessLeftGoesAndNothingElseDoes) {
    const TestFolder folder;
    // Greater than any number that the system gives.
    std::ofstream(folder / ".velmora-new.2000000000") << "half";
    std::ofstream(folder / ".other.2000000000") << "x";
    EXPECT_EQ(replaceFile(folder / "file", "new", 0644), 0);
    EXPECT_EQ(contentsOf(folder / "file"), "new");
    EXPECT_FALSE(std::filesystem::exists(folder / ".velmora-new.2000000000"));
    EXPECT_TRUE(std::filesystem::exists(folder / ".other.2000000000"));
}

TEST(ReplaceFile, WhatWasLeftUnderTheSameNumberIsNotFollowed) {
    const TestFolder folder;
    std::ofstream(folder / "kept") << "kept";
    std::filesystem::create_symlink(folder / "kept",
                                    folder / ".velmora-new." + std::to_string(getpid()));
    EXPECT_EQ(replaceFile(folder / "file", "new", 0644), 0);
    EXPECT_EQ(contentsOf(folder / "file"), "new");
    EXPECT_EQ(contentsOf(folder / "kept"), "kept");
}

}  // namespace
}  // namespace velmora::linuxhost
