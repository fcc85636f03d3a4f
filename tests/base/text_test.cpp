#include "base/text.h"

#include <gtest/gtest.h>

#include "errors.h"

namespace velmora {
namespace {

// Characters of 2, 3 and 4 bytes, which are not the same as bytes.
const std::string eAcute = "\u00E9";
const std::string euro = "\u20AC";
const std::string disk = "\U0001F4BE";
const std::string mixed = "a" + eAcute + euro + disk + "z";

TEST(Length, CountsCharactersNotBytes) {
    const struct {
        std::string text;
        std::size_t characters;
    } cases[] = {
        {"", 0},
        {"C:\\", 3},
        {"1234567", 7},
        {"12345678", 8},  // the fast path takes eight at a time
        {"123456789", 9},
        {mixed, 5},
        {"12345678" + eAcute, 9},
        {"1234567" + eAcute + "12345678", 16},
        {std::string(1000, 'x') + euro, 1001},
        {std::string("a\0b", 3), 3},
    };
    for (const auto& [text, characters] : cases) EXPECT_EQ(length(text), characters) << text;
}

TEST(Length, CountsEveryInvalidByteAsOneCharacter) {
    EXPECT_EQ(length("\x80"), 1u);
    EXPECT_EQ(length("\xC3"), 1u);              // a lead byte at the end
    EXPECT_EQ(length("\xE2\x82"), 2u);          // two of three bytes
    EXPECT_EQ(length("\xE2\x82z"), 3u);         // broken off by a letter
    EXPECT_EQ(length("\xC0\xAF"), 2u);          // overlong
    EXPECT_EQ(length("\xED\xA0\x80"), 3u);      // a surrogate
    EXPECT_EQ(length("\xF4\x90\x80\x80"), 4u);  // above U+10FFFF
    EXPECT_EQ(length("\xFF" + eAcute + "\xFE"), 3u);
}

TEST(Mid, TakesCharactersFromAPosition) {
    const struct {
        std::string text;
        std::size_t start, count;
        std::string expected;
    } cases[] = {
        {"C:\\temp", 1, 2, "C:"},
        {"C:\\temp", 4, 4, "temp"},
        {"C:\\temp", 4, 99, "temp"},
        {"C:\\temp", 7, 1, "p"},
        {"C:\\temp", 8, 1, ""},
        {"C:\\temp", 99, 1, ""},
        {"C:\\temp", 3, 0, ""},
        {"", 1, 5, ""},
        {mixed, 2, 1, eAcute},
        {mixed, 3, 2, euro + disk},
        {mixed, 5, 9, "z"},
        {mixed, 6, 1, ""},
        {"123456789" + euro + "abcdefghij", 10, 10, euro + "abcdefghi"},
        {"a\xFF" + eAcute, 2, 2, "\xFF" + eAcute},
    };
    for (const auto& [text, start, count, expected] : cases)
        EXPECT_EQ(mid(text, start, count), expected) << text << ' ' << start << ' ' << count;
}

TEST(Mid, TakesTheRestWithoutACount) {
    EXPECT_EQ(mid("C:\\temp", 3), "\\temp");
    EXPECT_EQ(mid(mixed, 4), disk + "z");
    EXPECT_EQ(mid("abc", 4), "");
}

TEST(Mid, FailsForPositionZero) {
    EXPECT_EQ(errorOf([] { mid("abc", 0, 1); }), 5);
    EXPECT_EQ(errorOf([] { mid("", 0); }), 5);
}

TEST(Left, TakesTheFirstCharacters) {
    EXPECT_EQ(left("C:\\", 2), "C:");
    EXPECT_EQ(left("C:\\", 0), "");
    EXPECT_EQ(left("C:\\", 3), "C:\\");
    EXPECT_EQ(left("C:\\", 4), "C:\\");
    EXPECT_EQ(left("", 1), "");
    EXPECT_EQ(left(mixed, 2), "a" + eAcute);
    EXPECT_EQ(left(mixed, std::string::npos), mixed);
    EXPECT_EQ(left("1234567" + euro + "9", 8), "1234567" + euro);
}

TEST(Right, TakesTheLastCharacters) {
    EXPECT_EQ(right("set.dat", 3), "dat");
    EXPECT_EQ(right("set.dat", 0), "");
    EXPECT_EQ(right("set.dat", 7), "set.dat");
    EXPECT_EQ(right("set.dat", 8), "set.dat");
    EXPECT_EQ(right("", 1), "");
    EXPECT_EQ(right(mixed, 2), disk + "z");
    EXPECT_EQ(right(mixed, 4), eAcute + euro + disk + "z");
    EXPECT_EQ(right(mixed, std::string::npos), mixed);
    EXPECT_EQ(right("a" + std::string(20, 'b'), 20), std::string(20, 'b'));
}

TEST(Position, FindsTheFirstOccurrenceInCharacters) {
    EXPECT_EQ(position("a;b;c", ";"), 2u);
    EXPECT_EQ(position("a;b;c", "c"), 5u);
    EXPECT_EQ(position("a;b;c", "a"), 1u);
    EXPECT_EQ(position("a;b;c", "C"), 0u);
    EXPECT_EQ(position("ab", "abc"), 0u);
    EXPECT_EQ(position(mixed, "z"), 5u);
    EXPECT_EQ(position(mixed, euro), 3u);
}

TEST(Position, FindsAnEmptyTextAtTheStartOfAnyTextButTheEmptyOne) {
    EXPECT_EQ(position("abc", ""), 1u);
    EXPECT_EQ(position("", ""), 0u);
    EXPECT_EQ(position("", "a"), 0u);
}

TEST(LastPosition, FindsTheLastOccurrenceInCharacters) {
    EXPECT_EQ(lastPosition("C:\\a\\b", "\\"), 5u);
    EXPECT_EQ(lastPosition("aaa", "aa"), 2u);
    EXPECT_EQ(lastPosition("abc", "d"), 0u);
    EXPECT_EQ(lastPosition("", "d"), 0u);
    EXPECT_EQ(lastPosition(eAcute + "\\" + euro + "\\x", "\\"), 4u);
    EXPECT_EQ(lastPosition("ab" + eAcute, ""), 3u);
}

TEST(Contains, FindsTextAnywhere) {
    EXPECT_TRUE(contains("low disk space", "disk"));
    EXPECT_TRUE(contains("low disk space", ""));
    EXPECT_FALSE(contains("low disk space", "Disk"));
    EXPECT_FALSE(contains("", "disk"));
}

TEST(ReplaceAll, ReplacesEveryOccurrenceOnceOver) {
    EXPECT_EQ(replaceAll("a-b-c", "-", "::"), "a::b::c");
    EXPECT_EQ(replaceAll("--", "-", ""), "");
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaceAll("aaa", "a", "aa"), "aaaaaa");  // what is put in isn't searched again
    EXPECT_EQ(replaceAll("abc", "x", "y"), "abc");
    EXPECT_EQ(replaceAll("abc", "", "y"), "abc");
    EXPECT_EQ(replaceAll("", "x", "y"), "");
    EXPECT_EQ(replaceAll("1 " + euro, euro, "EUR"), "1 EUR");
}

TEST(Trim, RemovesBlanksAtBothEndsOnly) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("a"), "a");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(""), "");
}

TEST(Trim, KeepsLineEndsTabsAndNoBreakBlanks) {
    EXPECT_EQ(trim(" a \r\n"), "a \r\n");
    EXPECT_EQ(trim("\t a \t"), "\t a \t");
    EXPECT_EQ(trim("\n a"), "\n a");
    EXPECT_EQ(trim("\u00A0a\u00A0"), "\u00A0a\u00A0");
}

TEST(Split, CutsAtEverySeparator) {
    using Parts = std::vector<std::string>;
    EXPECT_EQ(split("a;b;c", ";"), (Parts{"a", "b", "c"}));
    EXPECT_EQ(split(";a;;", ";"), (Parts{"", "a", "", ""}));
    EXPECT_EQ(split("", ";"), (Parts{""}));
    EXPECT_EQ(split("abc", ";"), (Parts{"abc"}));
    EXPECT_EQ(split("a\r\nb\nc", "\r\n"), (Parts{"a", "b\nc"}));
    EXPECT_EQ(split("aaa", "aa"), (Parts{"", "a"}));
    EXPECT_EQ(split("abc", ""), (Parts{"abc"}));
}

TEST(LineEnd, IsCarriageReturnAndLineFeed) {
    EXPECT_EQ(lineEnd, "\x0D\x0A");
}

TEST(IsValidUtf8, AcceptsTheFirstAndLastCharacterOfEverySize) {
    for (const char* text : {"", "ascii", "\x7F", "\u0080", "\u07FF", "\u0800", "\uD7FF", "\uE000",
                             "\uFFFF", "\U00010000", "\U0010FFFF"})
        EXPECT_TRUE(isValidUtf8(text)) << text;
    EXPECT_TRUE(isValidUtf8(std::string_view("\0", 1)));
}

TEST(IsValidUtf8, RefusesBrokenText) {
    for (const char* text : {
             "\x80",
             "a\xBF",
             "\xC3",
             "\xC3z",
             "\xE2\x82",
             "\xF0\x9F\x92",
             "\xE2\x28\xA1",
             "\xC0\x80",
             "\xC1\xBF",
             "\xE0\x9F\xBF",
             "\xF0\x8F\xBF\xBF",  // overlong
             "\xED\xA0\x80",
             "\xED\xBF\xBF",  // surrogates
             "\xF4\x90\x80\x80",
             "\xF5\x80\x80\x80",
             "\xFE",
             "\xFF",
         })
        EXPECT_FALSE(isValidUtf8(text)) << testing::PrintToString(text);
}

TEST(CharacterSize, IsTheNumberOfBytesOrOneForABrokenCharacter) {
    EXPECT_EQ(characterSize(mixed, 0), 1u);
    EXPECT_EQ(characterSize(mixed, 1), 2u);
    EXPECT_EQ(characterSize(mixed, 2), 1u);  // in the middle of a character
    EXPECT_EQ(characterSize(mixed, 3), 3u);
    EXPECT_EQ(characterSize(mixed, 6), 4u);
    EXPECT_EQ(characterSize("\xE2\x82", 0), 1u);
}

}  // namespace
}  // namespace velmora
