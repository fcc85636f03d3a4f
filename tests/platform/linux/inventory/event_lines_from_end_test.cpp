#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <vector>

#include "platform/linux/inventory/lines_from_end.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

class EventLinesFromEnd : public testing::Test {
  protected:
    void write(const std::string& content) { std::ofstream(path_, std::ios::binary) << content; }
    std::vector<std::string> allLines() const {
        LinesFromEnd lines(path_);
        std::vector<std::string> all;
        while (auto line = lines.next()) all.push_back(*line);
        return all;
    }

    TestFolder folder_;
    std::string path_ = folder_ / "log";
};

using LogLines = std::vector<std::string>;

TEST_F(EventLinesFromEnd, TheLastComesFirst) {
    write("one\ntwo\nthree\n");
    EXPECT_EQ(allLines(), (LogLines{"three", "two", "one"}));
}

TEST_F(EventLinesFromEnd, TheLastNeedsNoLineEndAndEmptyOnesArePassedOver) {
    write("\n\none\r\n\ntwo\n\nthree");
    EXPECT_EQ(allLines(), (LogLines{"three", "two", "one"}));
    write("");
    EXPECT_EQ(allLines(), LogLines{});
    write("\n");
    EXPECT_EQ(allLines(), LogLines{});
}

TEST_F(EventLinesFromEnd, LinesMayLieOnTheBordersOfBlocks) {
    constexpr int count = 40'000;
    std::string content;
    for (int i = 0; i < count; ++i) content += "line " + std::to_string(i) + '\n';
    ASSERT_GT(content.size(), 5u * 64 * 1024);
    write(content);
    LinesFromEnd lines(path_);
    for (int i = count - 1; i >= 0; --i) ASSERT_EQ(lines.next(), "line " + std::to_string(i));
    EXPECT_EQ(lines.next(), std::nullopt);
}

// Blocks are counted from the end, so each length puts the border elsewhere in a line.
TEST_F(EventLinesFromEnd, ABorderAtAnyPlaceOfALineDoesNoHarm) {
    constexpr std::size_t block = 64 * 1024;
    const std::string last(block - 5, 'z');
    for (std::size_t shift = 0; shift < 12; ++shift) {
        write("first\nabc\n" + last.substr(shift) + '\n');
        const LogLines read = allLines();
        ASSERT_EQ(read.size(), 3u) << shift;
        EXPECT_EQ(read[0], last.substr(shift)) << shift;
        EXPECT_EQ(read[1], "abc") << shift;
        EXPECT_EQ(read[2], "first") << shift;
    }
}

TEST_F(EventLinesFromEnd, ALongLineIsCutTo64KB) {
    constexpr std::size_t longest = 64 * 1024;
    for (const std::size_t size : {longest, longest + 1, 3 * longest, 10 * longest + 17}) {
        std::string line(size, 'x');
        line.replace(0, 5, "begin");
        write("before\n" + line + "\nafter\n");
        const LogLines read = allLines();
        ASSERT_EQ(read.size(), 3u) << size;
        EXPECT_EQ(read[0], "after");
        EXPECT_TRUE(read[1] == line.substr(0, longest)) << size;
        EXPECT_EQ(read[2], "before");
        write(line);
        EXPECT_TRUE(allLines() == LogLines{line.substr(0, longest)}) << size;
    }
}

TEST_F(EventLinesFromEnd, AHoleInAFileEndsTheReading) {
    write("lost\n");
    ASSERT_EQ(truncate(path_.c_str(), off_t{1} << 33), 0);
    std::ofstream(path_, std::ios::binary | std::ios::app) << "\none\ntwo\n";
    EXPECT_EQ(allLines(), (LogLines{"two", "one"}));
}

TEST_F(EventLinesFromEnd, WhatIsAppendedMeanwhileIsNotRead) {
    write("one\ntwo\n");
    LinesFromEnd lines(path_);
    std::ofstream(path_, std::ios::app) << "three\n";
    EXPECT_EQ(lines.next(), "two");
    EXPECT_EQ(lines.next(), "one");
    EXPECT_EQ(lines.next(), std::nullopt);
}

TEST_F(EventLinesFromEnd, ARotatedFileStaysTheSame) {
    write("one\ntwo\n");
    LinesFromEnd lines(path_);
    std::filesystem::rename(path_, path_ + ".1");
    write("new\n");
    EXPECT_EQ(lines.next(), "two");
    EXPECT_EQ(lines.next(), "one");
    EXPECT_EQ(lines.next(), std::nullopt);
}

TEST_F(EventLinesFromEnd, OfAFileThatIsCutMeanwhileTheRestIsRead) {
    std::string content;
    for (int i = 0; i < 30'000; ++i) content += "line " + std::to_string(10'000 + i) + '\n';
    write(content);
    LinesFromEnd lines(path_);
    EXPECT_EQ(lines.next(), "line 39999");
    ASSERT_EQ(truncate(path_.c_str(), 33), 0);  // three lines of 11 bytes
    LogLines rest;
    while (auto line = lines.next()) rest.push_back(*line);
    ASSERT_GE(rest.size(), 3u);
    // What was in the block that was read already is still there; the line on its border isn't.
    const LogLines end(rest.end() - 3, rest.end());
    EXPECT_EQ(end, (LogLines{"line 10002", "line 10001", "line 10000"}));
    for (const std::string& line : rest) EXPECT_EQ(line.size(), 10u) << line;

    LinesFromEnd emptied(path_);
    ASSERT_EQ(truncate(path_.c_str(), 0), 0);
    EXPECT_EQ(emptied.next(), std::nullopt);
}

TEST_F(EventLinesFromEnd, WhatIsNoFileHasNoLines) {
    EXPECT_EQ(LinesFromEnd(folder_ / "none").next(), std::nullopt);
    EXPECT_EQ(LinesFromEnd(folder_.path()).next(), std::nullopt);
    ASSERT_EQ(mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(LinesFromEnd(folder_ / "pipe").next(), std::nullopt);
}

}  // namespace
}  // namespace velmora::linuxhost
