#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/convert.h"
#include "errors.h"
#include "regionals.h"

namespace velmora {
namespace {

struct NumberReading {
    std::string text;
    double value;
};

void expectNumbers(const std::vector<NumberReading>& cases, const Regional& regional) {
    for (const auto& [text, value] : cases) {
        const auto read = readNumber(text, regional);
        ASSERT_TRUE(read.has_value()) << '"' << text << '"';
        EXPECT_EQ(*read, value) << '"' << text << '"';
        EXPECT_TRUE(isNumeric(text, regional)) << '"' << text << '"';
        EXPECT_EQ(toDouble(text, regional), value) << '"' << text << '"';
    }
}

void expectNoNumbers(const std::vector<std::string>& texts, const Regional& regional) {
    for (const std::string& text : texts) {
        EXPECT_FALSE(readNumber(text, regional).has_value()) << '"' << text << '"';
        EXPECT_FALSE(isNumeric(text, regional)) << '"' << text << '"';
        EXPECT_EQ(errorOf([&] { toDouble(text, regional); }), 13) << '"' << text << '"';
        EXPECT_EQ(errorOf([&] { toInteger(text, regional); }), 13) << '"' << text << '"';
        EXPECT_EQ(errorOf([&] { toLong(text, regional); }), 13) << '"' << text << '"';
    }
}

TEST(ReadNumber, ReadsSignsPointsGroupsAndExponents) {
    expectNumbers({{"0", 0},
                   {"60", 60},
                   {"-17", -17},
                   {"+17", 17},
                   {"007", 7},
                   {"1.5", 1.5},
                   {".5", 0.5},
                   {"-.5", -0.5},
                   {"5.", 5},
                   {"1,234.5", 1234.5},
                   {"1,234,567", 1234567},
                   {"1,2,3", 123},
                   {"1E3", 1000},
                   {"1.5e-2", 0.015},
                   {"2E+2", 200},
                   {"1,000E-3", 1},
                   {"9007199254740993", 9007199254740992.0}},
                  unitedStates);
}

TEST(ReadNumber, PassesOverBlanksTabsAndLineEndsAroundTheNumber) {
    expectNumbers({{" 12", 12}, {"12  ", 12}, {"  -1.5 ", -1.5}}, unitedStates);
    expectNumbers({{"60\r\n", 60}, {"\t-1\n", -1}, {"\r\n 2.5\t", 2.5}}, unitedStates);
}

TEST(ReadNumber, RefusesOtherText) {
    expectNoNumbers(
        {"",        " ",    "abc",    "12a",   "a12",   "-",     "+",       ".",    "-.",  "--1",
         "+-1",     "- 1",  "1 2",    "1.2.3", "1-",    "e5",    ".e5",     "1e",   "1e+", "1e5.5",
         "1e5,000", ",1",   "1,",     "1,,2",  "1.2,3", "1,.5",  "0x10",    "&H10", "inf", "nan",
         "1\t2",    "\r\n", "1\r\n2", "$5",    "(5)",   "1e5 x", "\xD9\xA1"},
        unitedStates);
}

TEST(ReadNumber, RefusesZeroBytes) {
    expectNoNumbers({std::string("1\0", 2), std::string("\0", 1)}, unitedStates);
}

TEST(ReadNumber, ReadsTheRegionalMarks) {
    expectNumbers({{"1.234,5", 1234.5}, {"1.5", 15}, {",5", 0.5}}, germany);
    expectNoNumbers({"1,5.0", "1,234.5"}, germany);
    expectNumbers({{"1\u202F234,5", 1234.5}, {"-12\u202F345\u202F678", -12345678}}, france);
    expectNumbers({{"1\u00A0234,5", 1234.5}}, sweden);
    expectNumbers({{"1234\u066B5", 1234.5}, {"\u066B5", 0.5}}, arabicPoint);
    expectNoNumbers({"1,234", "1.5", "1\xD9"}, arabicPoint);
}

TEST(ReadNumber, TakesAnyBlankForANoBreakOneBetweenDigits) {
    for (const Regional& regional : {france, sweden}) {
        expectNumbers({{"1 234,5", 1234.5}, {"1\u00A0234", 1234}, {"1\u202F234", 1234}}, regional);
        expectNoNumbers({"1  234", "1\u00A0", "\u202F1", "1 ,5", "1,5 0"}, regional);
    }
    expectNoNumbers({"1 234", "1\u00A0234"}, germany);
}

TEST(ReadNumber, PrefersTheDecimalPointWhenTheGroupMarkIsTheSame) {
    expectNumbers({{"1.5", 1.5}}, Regional{.digitGroup = ".", .decimalPoint = "."});
}

TEST(ReadNumber, RefusesValuesBeyondADoubleAndTakesTooSmallOnesForZero) {
    expectNoNumbers(
        {"1E309", "-1E309", "1E99999999999999999999", std::string(400, '9'), "0.001E400"},
        unitedStates);
    expectNumbers({{"1E308", 1e308},
                   {"1E-400", 0},
                   {"1E-99999999999999999999", 0},
                   {"0E999", 0},
                   {"0." + std::string(400, '0') + "1", 0},
                   {std::string(400, '0') + "7", 7},
                   {"1" + std::string(400, '0') + "E-400", 1}},
                  unitedStates);
    // Its exponent alone doesn't tell on which end a value lies.
    const std::string zeros(700, '0');
    EXPECT_EQ(readNumber("0." + zeros + "1e100", Regional{}), 0.0);
    EXPECT_EQ(readNumber("1" + zeros + "e-100", Regional{}), std::nullopt);
}

}  // namespace
}  // namespace velmora
