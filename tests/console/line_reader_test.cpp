#include "console/line_reader.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace velmora::console {
namespace {

using Lines = std::vector<std::string>;

// The lines in order; "(too long)" for one that was passed over.
Lines linesOf(const std::string& text) {
    std::istringstream input(text);
    Lines lines;
    std::string line;
    for (LineRead read; (read = readLine(input, line)) != LineRead::end;) {
        lines.push_back(read == LineRead::tooLong ? "(too long)" : line);
    }
    return lines;
}

TEST(LineReader, TakesLinesOffAtEitherLineEnd) {
    EXPECT_EQ(linesOf("a\nb\r\nc\n"), (Lines{"a", "b", "c"}));
}

TEST(LineReader, TakesALastLineWithoutALineEnd) {
    EXPECT_EQ(linesOf("a\nb"), (Lines{"a", "b"}));
    EXPECT_EQ(linesOf("a\r"), Lines{"a"});
}

TEST(LineReader, FindsNothingInAnEmptyInput) {
    EXPECT_EQ(linesOf(""), Lines{});
}

TEST(LineReader, KeepsEmptyLines) {
    EXPECT_EQ(linesOf("\n\r\na\n\n"), (Lines{"", "", "a", ""}));
}

TEST(LineReader, KeepsOtherBytesAsTheyAre) {
    const std::string bytes("\0a\rb\xff\t ", 7);
    EXPECT_EQ(linesOf(bytes + "\n"), Lines{bytes});
    EXPECT_EQ(linesOf("a\r\r\n"), Lines{"a\r"});
}

TEST(LineReader, ReadsALineOfAMegabyte) {
    const std::string longest(longestLine, 'x');
    EXPECT_EQ(linesOf(longest), Lines{longest});
    EXPECT_EQ(linesOf(longest + "\nb"), (Lines{longest, "b"}));
    EXPECT_EQ(linesOf(longest + "\r\nb"), (Lines{longest, "b"}));
}

TEST(LineReader, PassesOverALongerLineAndGoesOnAfterIt) {
    const std::string longest(longestLine, 'x');
    EXPECT_EQ(linesOf(longest + "y\nb"), (Lines{"(too long)", "b"}));
    EXPECT_EQ(linesOf(longest + "y\r\nb"), (Lines{"(too long)", "b"}));
    EXPECT_EQ(linesOf(longest + "\r\r\nb"), (Lines{"(too long)", "b"}));
    EXPECT_EQ(linesOf(longest + "\ry\nb"), (Lines{"(too long)", "b"}));
    EXPECT_EQ(linesOf(longest + longest + longest), Lines{"(too long)"});
}

// Like the buffer of a file that turns out to be a folder.
class Unreadable : public std::streambuf {
  protected:
    int_type underflow() override { throw std::ios_base::failure("can't be read"); }
};

TEST(LineReader, TakesAnInputThatCantBeReadAsEnded) {
    Unreadable buffer;
    std::istream input(&buffer);
    std::string line;
    EXPECT_EQ(readLine(input, line), LineRead::end);
}

}  // namespace
}  // namespace velmora::console
