#include "platform/windows/system/utf16.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora::windows {
namespace {

TEST(Utf16, TextComesBackAsItWas) {
    const std::string text = "plain, caf\u00e9, \u0416, \u4e2d, \U0001F4BE";
    EXPECT_EQ(toUtf8(toUtf16(text)), text);
    EXPECT_EQ(toUtf16("\U0001F4BE"), L"\xD83D\xDCBE");
    EXPECT_EQ(toUtf8(toUtf16("")), "");
}

TEST(Utf16, TextKeepsItsNulCharacters) {
    const std::string text("a\0b", 3);
    EXPECT_EQ(toUtf8(toUtf16(text)), text);
}

TEST(Utf16, HalfAPairBecomesTheReplacementCharacter) {
    EXPECT_EQ(toUtf8(L"a\xD83D"), "a\uFFFD");
    EXPECT_EQ(toUtf8(L"\xDCBEz"), "\uFFFDz");
}

TEST(Utf16, BytesThatAreNoTextBecomeTheReplacementCharacter) {
    EXPECT_EQ(toUtf8(toUtf16("a\xFFz")), "a\uFFFDz");
    EXPECT_EQ(toUtf8(toUtf16("caf\xE9")), "caf\uFFFD");
}

TEST(SystemPath, AShortPathStaysAsItIs) {
    EXPECT_EQ(systemPath(R"(C:\data\log.txt)"), LR"(C:\data\log.txt)");
    EXPECT_EQ(systemPath(R"(log.txt)"), LR"(log.txt)");
    EXPECT_EQ(systemPath(R"(\\host\share\)"), LR"(\\host\share\)");
}

// The longest that stays is one below the limit for folders.
TEST(SystemPath, ThePrefixBeginsWhereTheSystemsLimitDoes) {
    const std::string longest = "C:\\" + std::string(244, 'a');
    EXPECT_EQ(systemPath(longest), toUtf16(longest));
    EXPECT_EQ(systemPath(longest + "b"), LR"(\\?\)" + toUtf16(longest + "b"));
}

TEST(SystemPath, ALongPathIsTidiedBecauseThePrefixTurnsThatOff) {
    const std::string name(250, 'a');
    EXPECT_EQ(systemPath("C:/x/../" + name), LR"(\\?\C:\)" + toUtf16(name));
}

TEST(SystemPath, ALongPathOnAShareTakesThePrefixOfShares) {
    const std::string name(250, 'a');
    EXPECT_EQ(systemPath(R"(\\host\share\)" + name), LR"(\\?\UNC\host\share\)" + toUtf16(name));
}

TEST(SystemPath, ALongPathWithThePrefixKeepsIt) {
    const std::string path = R"(\\?\C:\)" + std::string(250, 'a');
    EXPECT_EQ(systemPath(path), toUtf16(path));
}

TEST(WithoutLongPrefix, GivesThePathAsUsersKnowIt) {
    EXPECT_EQ(withoutLongPrefix(R"(\\?\C:\data)"), R"(C:\data)");
    EXPECT_EQ(withoutLongPrefix(R"(\\?\UNC\host\share)"), R"(\\host\share)");
    EXPECT_EQ(withoutLongPrefix(R"(C:\data)"), R"(C:\data)");
    EXPECT_EQ(withoutLongPrefix(R"(\\host\share)"), R"(\\host\share)");
    EXPECT_EQ(withoutLongPrefix(""), "");
}

}  // namespace
}  // namespace velmora::windows
