#include "platform/linux/drives/entry_counts.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;

class EntryCountsTest : public testing::Test {
  protected:
    std::string within(const std::string& name) const { return folder_.path() + "/" + name; }
    void expectCounts(std::uint64_t files, std::uint64_t folders) {
        CountedFolder counted;
        counted.counts = {77, 77};
        EXPECT_EQ(countEntries(folder_.path().c_str(), counted), 0);
        EXPECT_EQ(counted.counts.files, files);
        EXPECT_EQ(counted.counts.folders, folders);
    }

    TestFolder folder_;
};

TEST_F(EntryCountsTest, LinksCountAsWhatTheyPointTo) {
    fs::create_directory(within("folder"));
    std::ofstream(within("file")) << "x";
    fs::create_directory_symlink("folder", within("to a folder"));
    fs::create_symlink("file", within("to a file"));
    fs::create_symlink("to a folder", within("to a link"));
    expectCounts(2, 3);
}

TEST_F(EntryCountsTest, ALinkThatLeadsNowhereIsAFile) {
    fs::create_symlink("nowhere", within("gone"));
    fs::create_symlink("round", within("round"));
    expectCounts(2, 0);
}

TEST_F(EntryCountsTest, PipesAreNoFilesAndDontKeepTheCallerWaiting) {
    ASSERT_EQ(mkfifo(within("pipe").c_str(), 0600), 0);
    expectCounts(0, 0);
    fs::create_symlink("pipe", within("to a pipe"));
    std::ofstream(within("file")) << "x";
    expectCounts(1, 0);
}

TEST_F(EntryCountsTest, NamesThatAreNoUtf8Count) {
    std::ofstream(within("\xff\xfe")) << "x";
    expectCounts(1, 0);
}

TEST_F(EntryCountsTest, WhatCanNotBeReadGivesTheReason) {
    CountedFolder counts;
    EXPECT_EQ(countEntries(within("missing").c_str(), counts), ENOENT);
    std::ofstream(within("file")) << "x";
    EXPECT_EQ(countEntries(within("file").c_str(), counts), ENOTDIR);
}

}  // namespace
}  // namespace velmora::linuxhost
