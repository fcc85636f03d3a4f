#include "base/decimal_digits.h"

#include <gtest/gtest.h>

#include <limits>

#include "errors.h"

namespace velmora {
namespace {

TEST(DecimalDigits, AreThoseOnBothSidesOfThePoint) {
    const struct {
        double value;
        bool negative;
        std::string whole, fraction;
    } cases[] = {
        {0, false, "", ""},
        {-0.0, false, "", ""},
        {100, false, "100", ""},
        {-0.05, true, "", "05"},
        {12.5, false, "12", "5"},
        {0.1 + 0.2, false, "", "3"},
        {1.0 / 3, false, "", "333333333333333"},
        {999999999999999.9, false, "1000000000000000", ""},  // 16 digits: the last is rounded
        {1234567890123456.0, false, "1234567890123456", ""},
        {1e23, false, "1" + std::string(23, '0'), ""},
        {5e-324, false, "", std::string(323, '0') + "494065645841247"},
    };
    for (const auto& [value, negative, whole, fraction] : cases) {
        const DecimalDigits digits = decimalDigits(value);
        EXPECT_EQ(digits.negative, negative) << value;
        EXPECT_EQ(digits.whole, whole);
        EXPECT_EQ(digits.fraction, fraction);
        EXPECT_EQ(digits.isZero(), value == 0);
    }
}

TEST(DecimalDigits, OverflowWithoutANumber) {
    EXPECT_EQ(errorOf([] { decimalDigits(std::numeric_limits<double>::infinity()); }), 6);
    EXPECT_EQ(errorOf([] { decimalDigits(std::numeric_limits<double>::quiet_NaN()); }), 6);
}

TEST(Rounded, CarriesAcrossThePointAndIntoANewDigit) {
    const auto round = [](const DecimalDigits& digits, int decimals) {
        const DecimalDigits result = rounded(digits, decimals);
        return (result.negative ? "-" : "") + result.whole + "." + result.fraction;
    };
    EXPECT_EQ(round({false, "1", "25"}, 1), "1.3");
    EXPECT_EQ(round({false, "1", "249"}, 1), "1.2");
    EXPECT_EQ(round({true, "9", "95"}, 1), "-10.");
    EXPECT_EQ(round({false, "", "5"}, 0), "1.");
    EXPECT_EQ(round({true, "", "4"}, 0), ".");
    EXPECT_EQ(round({false, "1", "1004"}, 3), "1.1");
    EXPECT_EQ(round({false, "1", "5"}, 4), "1.5");
}

TEST(ToNumber, IsTheValueOfTheDigits) {
    EXPECT_EQ(toNumber({false, "", ""}), 0);
    EXPECT_EQ(toNumber({true, "12", "5"}), -12.5);
    EXPECT_EQ(toNumber({false, "", "001"}), 0.001);
}

TEST(Grouped, PutsAMarkBetweenGroupsOfThree) {
    EXPECT_EQ(grouped("", ","), "");
    EXPECT_EQ(grouped("999", ","), "999");
    EXPECT_EQ(grouped("1000", ","), "1,000");
    EXPECT_EQ(grouped("1000000", "\u00A0"), "1\u00A0000\u00A0000");
    EXPECT_EQ(grouped("1000", ""), "1000");
}

}  // namespace
}  // namespace velmora
