#include "base/leading_number.h"

#include <gtest/gtest.h>

#include "regionals.h"

namespace velmora {
namespace {

std::string cut(std::string text, const std::string& stop = "") {
    const std::string returned = prcChkString(text, stop, unitedStates);
    EXPECT_EQ(returned, text) << "the argument itself is changed too";
    return returned;
}

TEST(ChkString, CutsAtTheFirstCharacterThatIsNotNumeric) {
    EXPECT_EQ(cut("50000\r\n"), "50000");
    EXPECT_EQ(cut("1234 KB"), "1234");
    EXPECT_EQ(cut("12.5"), "12");
    EXPECT_EQ(cut("1,234"), "1");
    EXPECT_EQ(cut("12\u00E9"), "12");
}

TEST(ChkString, CutsAtTheStopCharacter) {
    EXPECT_EQ(cut("12345", "3"), "12");
    EXPECT_EQ(cut("12|45", "|"), "12");
    EXPECT_EQ(cut("12345", "9"), "12345");
}

TEST(ChkString, NeverCutsAtTheFirstCharacter) {
    EXPECT_EQ(cut("x12y"), "x12");
    EXPECT_EQ(cut("xyz"), "x");
    EXPECT_EQ(cut("3345", "3"), "3");
    EXPECT_EQ(cut("\u00E912y"), "\u00E912");
}

TEST(ChkString, LeavesANumericTextWhole) {
    EXPECT_EQ(cut("123456789012"), "123456789012");
}

TEST(ChkString, LeavesTextsOfUpToTwoCharactersAsTheyAre) {
    for (const char* text : {"", "x", "1x", "xy", "\u00E9\u00E8"}) EXPECT_EQ(cut(text), text);
    EXPECT_EQ(cut("13", "3"), "13");
}

TEST(ChkString, FollowsTheRegionCharacterByCharacter) {
    std::string text = "1\u202F500";
    EXPECT_EQ(prcChkString(text, "", france), "1");
}

TEST(ChkString, TakesBrokenBytesAsCharactersThatAreNotNumeric) {
    EXPECT_EQ(cut("12\xC3"), "12");
    EXPECT_EQ(cut("\xFF\xFE\xFD"), "\xFF");
}

}  // namespace
}  // namespace velmora
