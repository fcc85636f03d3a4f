#include "persist/scramble.h"

#include <gtest/gtest.h>

#include "base/errors.h"

namespace velmora {
namespace {

TEST(Scrambling, ShiftsEveryByteUpByOne) {
    EXPECT_EQ(prcEn("custtime=0"), "dvtuujnf>1");
    EXPECT_EQ(prcEn("AZaz09"), "B[b{1:");
}

TEST(Scrambling, ShiftsEveryByteBackByOne) {
    EXPECT_EQ(prcDe("dvtuujnf>1"), "custtime=0");
}

TEST(Scrambling, TurnsAPlusIntoACommaAndAnExclamationMarkIntoAQuote) {
    EXPECT_EQ(prcEn("+"), ",");
    EXPECT_EQ(prcEn("!"), "\"");
}

TEST(Scrambling, HidesALineEndInTwoOtherBytes) {
    EXPECT_EQ(prcEn("\r\n"), "\x0E\x0B");
    EXPECT_EQ(prcDe("\x0E\x0B"), "\r\n");
}

TEST(Scrambling, KeepsTheEmptyTextEmptyInBothDirections) {
    EXPECT_EQ(prcEn(""), "");
    EXPECT_EQ(prcDe(""), "");
}

TEST(Scrambling, GivesEveryTextOfCodes1To254Back) {
    std::string all;
    for (int code = 1; code <= 254; ++code) all += static_cast<char>(code);
    const std::string hidden = prcEn(all);
    EXPECT_EQ(hidden.size(), all.size());
    EXPECT_EQ(prcDe(hidden), all);
    for (const char byte : all) EXPECT_EQ(prcDe(prcEn(std::string(3, byte))), std::string(3, byte));
}

TEST(Scrambling, ShiftsTheBytesOfLettersBeyondAscii) {
    EXPECT_EQ(prcEn("\xC3\xA9"), "\xC4\xAA");
    EXPECT_EQ(prcDe("\xC4\xAA"), "\xC3\xA9");
}

TEST(Scrambling, LeavesItsArgumentUnchanged) {
    const std::string text = "abc";
    prcEn(text);
    prcDe(text);
    EXPECT_EQ(text, "abc");
}

TEST(Scrambling, Code254GoesToCode255AndBack) {
    EXPECT_EQ(prcEn("\xFE"), "\xFF");
    EXPECT_EQ(prcDe("\xFF"), "\xFE");
}

TEST(Scrambling, RefusesCode255AtAnyPlace) {
    for (const char* text : {"\xFF",
                             "\xFF"
                             "abc",
                             "ab\xFF"
                             "c",
                             "abc\xFF"}) {
        EXPECT_EQ(errorOf([&] { prcEn(text); }), error::invalidCall);
    }
}

TEST(Scrambling, RefusesToReadCode0AtAnyPlace) {
    for (const std::string& text :
         {std::string("\0", 1), std::string("\0ab", 3), std::string("a\0b", 3)}) {
        EXPECT_EQ(errorOf([&] { prcDe(text); }), error::invalidCall);
    }
    EXPECT_EQ(prcEn(std::string("\0", 1)), "\x01");
}

TEST(Scrambling, TakesUpTo32767Bytes) {
    const std::string longest(32767, 'a');
    EXPECT_EQ(prcEn(longest), std::string(32767, 'b'));
    EXPECT_EQ(prcDe(longest), std::string(32767, '`'));
    EXPECT_EQ(errorOf([&] { prcEn(longest + 'a'); }), error::overflow);
    EXPECT_EQ(errorOf([&] { prcDe(longest + 'a'); }), error::overflow);
}

}  // namespace
}  // namespace velmora
