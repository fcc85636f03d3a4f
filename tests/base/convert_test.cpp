#include "base/convert.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>

#include "errors.h"
#include "regionals.h"
#include "special_numbers.h"

namespace velmora {
namespace {

TEST(ToInteger, RoundsTiesOfATextToEven) {
    const struct {
        const char* text;
        int expected;
    } cases[] = {{"2.5", 2},   {"3.5", 4},      {"0.5", 0},        {"1.5", 2},
                 {"-2.5", -2}, {"-3.5", -4},    {"2.51", 3},       {"2.49", 2},
                 {"-0.5", 0},  {"1,000", 1000}, {"32767.4", 32767}};
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(toInteger(text, unitedStates), expected) << text;
        EXPECT_EQ(toLong(text, unitedStates), expected) << text;
    }
}

TEST(ToInteger, OverflowsBeyondSixteenBits) {
    EXPECT_EQ(toInteger(32767.0), 32767);
    EXPECT_EQ(toInteger(-32768.0), -32768);
    EXPECT_EQ(toInteger(32767.49), 32767);
    EXPECT_EQ(toInteger(-32768.5), -32768);  // a tie whose even side is still in range
    EXPECT_EQ(toInteger("-32768", unitedStates), -32768);
    for (double value :
         {32768.0, -32769.0, 32767.5, -32768.51, 1e300, infinity, -infinity, noNumber})
        EXPECT_EQ(errorOf([&] { toInteger(value); }), 6) << value;
    EXPECT_EQ(errorOf([] { toInteger("32768", unitedStates); }), 6);
    EXPECT_EQ(errorOf([] { toInteger("-40,000", unitedStates); }), 6);
}

TEST(ToLong, OverflowsBeyondThirtyTwoBits) {
    EXPECT_EQ(toLong(2147483647.0), 2147483647);
    EXPECT_EQ(toLong(-2147483648.0), -2147483647 - 1);
    EXPECT_EQ(toLong(-2147483648.5), -2147483647 - 1);
    EXPECT_EQ(toLong("2147483647.4", unitedStates), 2147483647);
    for (double value :
         {2147483648.0, -2147483649.0, 2147483647.5, 1e300, infinity, -infinity, noNumber})
        EXPECT_EQ(errorOf([&] { toLong(value); }), 6) << value;
    EXPECT_EQ(errorOf([] { toLong("2147483648", unitedStates); }), 6);
    EXPECT_EQ(errorOf([] { toLong("1E10", unitedStates); }), 6);
}

TEST(RoundTiesToEven, GoesToTheNearestWholeNumber) {
    const struct {
        double value, expected;
    } cases[] = {{0.5, 0},
                 {1.5, 2},
                 {2.5, 2},
                 {-0.5, 0},
                 {-1.5, -2},
                 {-2.5, -2},
                 {2.4, 2},
                 {2.6, 3},
                 {-2.6, -3},
                 {0.49999999999999994, 0},
                 {7, 7},
                 {1e300, 1e300},
                 {4503599627370497.5, 4503599627370498.0}};
    for (const auto& [value, expected] : cases)
        EXPECT_EQ(roundTiesToEven(value), expected) << value;
}

TEST(RoundTiesToEven, DoesNotDependOnTheRoundingModeOfTheThread) {
    const int before = std::fegetround();
    std::fesetround(FE_UPWARD);
    const double rounded = roundTiesToEven(2.25);
    std::fesetround(before);
    EXPECT_EQ(rounded, 2);
}

TEST(RoundTiesToEven, LeavesInfinitiesAndNoNumberAsTheyAre) {
    EXPECT_EQ(roundTiesToEven(infinity), infinity);
    EXPECT_EQ(roundTiesToEven(-infinity), -infinity);
    EXPECT_TRUE(std::isnan(roundTiesToEven(noNumber)));
}

TEST(RoundTiesAway, RoundsTheDecimalDigitsThatTheValueShows) {
    const struct {
        double value;
        int decimals;
        double expected;
    } cases[] = {
        {1.005, 2, 1.01},  // a little less than that in binary
        {2.5, 0, 3},          {-2.5, 0, -3},
        {0.5, 0, 1},          {0.49, 0, 0},
        {-0.04, 1, 0},        {1.25, 1, 1.3},
        {-1.25, 1, -1.3},     {9.995, 2, 10},
        {999.9999, 3, 1000},  {1234.5678, 2, 1234.57},
        {0.1 + 0.2, 15, 0.3}, {1e300, 2, 1e300},
        {1.1, 15, 1.1},       {0, 3, 0},
        {1e-300, 15, 0},
    };
    for (const auto& [value, decimals, expected] : cases)
        EXPECT_EQ(roundTiesAway(value, decimals), expected) << value << ' ' << decimals;
}

TEST(RoundTiesAway, RefusesOtherDecimalsAndValuesThatArentNumbers) {
    EXPECT_EQ(errorOf([] { roundTiesAway(1, -1); }), 5);
    EXPECT_EQ(errorOf([] { roundTiesAway(1, 16); }), 5);
    EXPECT_EQ(errorOf([] { roundTiesAway(infinity, 2); }), 6);
    EXPECT_EQ(errorOf([] { roundTiesAway(noNumber, 2); }), 6);
}

TEST(AddLong, OverflowsBeyondThirtyTwoBits) {
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(addLong(2, 3), 5);
    EXPECT_EQ(addLong(most, 0), most);
    EXPECT_EQ(addLong(most - 1, 1), most);
    EXPECT_EQ(addLong(least + 1, -1), least);
    EXPECT_EQ(addLong(most, least), -1);
    EXPECT_EQ(errorOf([] { addLong(most, 1); }), 6);
    EXPECT_EQ(errorOf([] { addLong(least, -1); }), 6);
    EXPECT_EQ(errorOf([] { addLong(most, most); }), 6);
}

TEST(ToText, ShowsNumbersWithoutGroups) {
    const struct {
        double value;
        const char* expected;
    } cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {60, "60"},
        {-17, "-17"},
        {1234567, "1234567"},
        {1.5, "1.5"},
        {0.5, "0.5"},
        {-0.25, "-0.25"},
        {1e-7, "0.0000001"},
        {0.1 + 0.2, "0.3"},
        {1e15, "1000000000000000"},
        {100, "100"},
        {9007199254740993.0, "9007199254740992"},
        {2.0 / 3, "0.666666666666667"},  // 15 digits
        {1e20, "100000000000000000000"},
        {123456.789, "123456.789"},
    };
    for (const auto& [value, expected] : cases) EXPECT_EQ(toText(value, unitedStates), expected);
    EXPECT_EQ(toText(1e300, unitedStates), "1" + std::string(300, '0'));
}

TEST(ToText, WritesTheRegionalDecimalPoint) {
    EXPECT_EQ(toText(1234.5, germany), "1234,5");
    EXPECT_EQ(toText(-0.5, arabicPoint), "-0\u066B5");
}

TEST(ToText, OverflowsWithoutANumber) {
    EXPECT_EQ(errorOf([] { toText(infinity, unitedStates); }), 6);
    EXPECT_EQ(errorOf([] { toText(noNumber, unitedStates); }), 6);
}

TEST(ToText, ShowsWholeNumbersOfSixtyFourBits) {
    EXPECT_EQ(toText(std::int64_t{0}), "0");
    EXPECT_EQ(toText(std::int64_t{-42}), "-42");
    EXPECT_EQ(toText(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
    EXPECT_EQ(toText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

}  // namespace
}  // namespace velmora
