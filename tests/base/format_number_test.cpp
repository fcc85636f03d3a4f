#include "base/format_number.h"

#include <gtest/gtest.h>

#include <vector>

#include "errors.h"
#include "regionals.h"
#include "special_numbers.h"

namespace velmora {
namespace {

TEST(FormatNumber, GroupsWholeNumbersByThreeDigits) {
    const struct {
        double value;
        const char *grouped, *plain;
    } cases[] = {
        {0, "0", "0"},
        {7, "7", "7"},
        {999, "999", "999"},
        {1000, "1,000", "1000"},
        {12345, "12,345", "12345"},
        {999999, "999,999", "999999"},
        {1000000, "1,000,000", "1000000"},
        {-1000, "-1,000", "-1000"},
        {-999, "-999", "-999"},
        {4294967296, "4,294,967,296", "4294967296"},
    };
    for (const auto& [value, grouped, plain] : cases) {
        EXPECT_EQ(FormatNumber(value, 0, Grouping::regional, unitedStates), grouped);
        EXPECT_EQ(FormatNumber(value, 0, Grouping::none, unitedStates), plain);
    }
}

TEST(FormatNumber, RoundsToTheDecimalsWithTiesAwayFromZero) {
    const struct {
        double value;
        int decimals;
        const char* expected;
    } cases[] = {
        {0.5, 0, "1"},         {1.5, 0, "2"},
        {2.5, 0, "3"},         {-2.5, 0, "-3"},
        {2.4999, 0, "2"},      {999.5, 0, "1,000"},
        {0.125, 2, "0.13"},    {1.005, 2, "1.01"},
        {50, 2, "50.00"},      {0.05, 1, "0.1"},
        {-0.05, 1, "-0.1"},    {1234.5, 1, "1,234.5"},
        {99.995, 2, "100.00"}, {1e-9, 2, "0.00"},
        {12.3, 5, "12.30000"}, {0.1 + 0.7, 17, "0.80000000000000000"},
    };
    for (const auto& [value, decimals, expected] : cases)
        EXPECT_EQ(FormatNumber(value, decimals, Grouping::regional, unitedStates), expected);
}

TEST(FormatNumber, ShowsNoMinusSignForARoundedZero) {
    EXPECT_EQ(FormatNumber(-0.4, 0, Grouping::regional, unitedStates), "0");
    EXPECT_EQ(FormatNumber(-0.004, 2, Grouping::regional, unitedStates), "0.00");
    EXPECT_EQ(FormatNumber(-0.0, 1, Grouping::regional, unitedStates), "0.0");
    EXPECT_EQ(FormatNumber(-0.005, 2, Grouping::regional, unitedStates), "-0.01");
}

TEST(FormatNumber, TakesTheRegionalMarks) {
    const double value = -1234567.891;
    EXPECT_EQ(FormatNumber(value, 2, Grouping::regional, germany), "-1.234.567,89");
    EXPECT_EQ(FormatNumber(value, 2, Grouping::none, germany), "-1234567,89");
    EXPECT_EQ(FormatNumber(value, 1, Grouping::regional, france), "-1\u202F234\u202F567,9");
    EXPECT_EQ(FormatNumber(value, 0, Grouping::regional, sweden), "-1\u00A0234\u00A0568");
    EXPECT_EQ(FormatNumber(value, 1, Grouping::regional, arabicPoint), "-1234567\u066B9");
}

TEST(FormatNumber, ShowsHugeValuesInFull) {
    EXPECT_EQ(FormatNumber(1e15, 0, Grouping::regional, unitedStates), "1,000,000,000,000,000");
    EXPECT_EQ(FormatNumber(999999999999999.0, 0, Grouping::none, unitedStates), "999999999999999");
    EXPECT_EQ(FormatNumber(9007199254740992.0, 2, Grouping::none, unitedStates),
              "9007199254740992.00");
    EXPECT_EQ(FormatNumber(1e300, 0, Grouping::none, unitedStates), "1" + std::string(300, '0'));
    EXPECT_EQ(FormatNumber(1e300, 0, Grouping::regional, unitedStates).size(), 401u);
}

TEST(FormatNumber, OverflowsWithoutANumber) {
    for (double value : {infinity, -infinity, noNumber})
        EXPECT_EQ(errorOf([&] { FormatNumber(value, 0, Grouping::none, unitedStates); }), 6);
}

TEST(FormatNumber, RefusesDecimalsOutOfRange) {
    EXPECT_EQ(errorOf([] { FormatNumber(1, -1, Grouping::none, unitedStates); }), 5);
    EXPECT_EQ(errorOf([] { FormatNumber(1, 100, Grouping::none, unitedStates); }), 5);
    EXPECT_EQ(FormatNumber(1, 99, Grouping::none, unitedStates), "1." + std::string(99, '0'));
}

struct DrawnNumber {
    double value;
    const char *picture, *expected;
};

void expectDrawnNumbers(const std::vector<DrawnNumber>& cases, const Regional& regional) {
    for (const auto& [value, picture, expected] : cases)
        EXPECT_EQ(Format(value, picture, regional), expected) << value << " in " << picture;
}

TEST(NumberPicture, LeavesOptionalDigitsOutAndKeepsThePoint) {
    expectDrawnNumbers({{0, "##.##", "."},
                        {0.5, "##.##", ".5"},
                        {12, "##.##", "12."},
                        {12.3, "##.##", "12.3"},
                        {12.345, "##.##", "12.35"},
                        {0.05, "##.##", ".05"},
                        {0.004, "##.##", "."},
                        {12.34, "###.0", "12.3"},
                        {0, "###.0", ".0"},
                        {0, "###,###,###", ""},
                        {0, "#", ""},
                        {5, "#", "5"}},
                       unitedStates);
}

TEST(NumberPicture, FillsRequiredDigitsWithZeros) {
    expectDrawnNumbers({{50, "#0.0#", "50.0"},
                        {0.05, "#0.0#", "0.05"},
                        {0.123, "#0.0#", "0.12"},
                        {7, "00", "07"},
                        {0, "00", "00"},
                        {7, "0#", "07"},  // an optional digit after a required one is required
                        {0.5, "0.#0", "0.50"},
                        {0, "0.#", "0."},
                        {3, "0.00", "3.00"}},
                       unitedStates);
}

TEST(NumberPicture, GroupsDigitsWithACommaBetweenThem) {
    expectDrawnNumbers({{999, "##,##0.0", "999.0"},
                        {1500.25, "##,##0.0", "1,500.3"},
                        {1000, "###,###,###", "1,000"},
                        {1000000, "###,###,###", "1,000,000"},
                        {999, "###,###,###", "999"},
                        {1234567, "#,#", "1,234,567"},  // by threes at any place of the comma
                        {5, "0,000", "0,005"},
                        {1000, "####", "1000"}},
                       unitedStates);
}

TEST(NumberPicture, GivesDigitsWithoutAPlaceToTheFirstPlace) {
    expectDrawnNumbers({{12345, "#", "12345"},
                        {12345, "0.0", "12345.0"},
                        {1234567, "#,##0", "1,234,567"},
                        {12345, "(#) 0", "(1234) 5"},
                        {12.5, ".00", "12.50"},
                        {0.5, ".00", ".50"}},
                       unitedStates);
}

TEST(NumberPicture, RoundsTiesAwayFromZero) {
    expectDrawnNumbers({{0.5, "0", "1"},
                        {1.5, "0", "2"},
                        {2.5, "0", "3"},
                        {-2.5, "0", "-3"},
                        {0.49, "#", ""},
                        {99.95, "#0.0", "100.0"},
                        {999.95, "#,##0.0", "1,000.0"},
                        {1.005, "0.00", "1.01"}},
                       unitedStates);
}

TEST(NumberPicture, PutsAMinusSignInFrontOfEverythingButZero) {
    expectDrawnNumbers({{-5, "0", "-5"},
                        {-1500.25, "##,##0.0", "-1,500.3"},
                        {-0.5, "##.##", "-.5"},
                        {-5, "$0", "-$5"},
                        {-0.04, "0.0", "0.0"},
                        {-0.4, "#", ""},
                        {-0.0, "##.##", "."}},
                       unitedStates);
}

TEST(NumberPicture, ShowsOtherCharactersAsTheyAre) {
    expectDrawnNumbers({{50, "0%", "50%"},
                        {1.5, "0.0 MB", "1.5 MB"},
                        {5551234, "000-0000", "555-1234"},
                        {5, ",0", ",5"},  // a comma outside the digits groups nothing
                        {5000, "0,", "5000,"},
                        {1.5, "0.0,0", "1.5,0"},
                        {1.5, "0.0.0", "1.5.0"},
                        {3, "€ 0", "€ 3"},
                        {3, "abc", "abc"},
                        {-3, "a,b", "a,b"}},
                       unitedStates);
}

TEST(NumberPicture, ShowsThePlainNumberWhenItIsEmpty) {
    expectDrawnNumbers({{1234.5, "", "1234.5"}, {0, "", "0"}}, unitedStates);
    expectDrawnNumbers({{-1234.5, "", "-1234,5"}}, germany);
}

TEST(NumberPicture, TakesTheRegionalMarks) {
    expectDrawnNumbers({{1500.25, "##,##0.0", "1.500,3"}, {0, "##.##", ","}}, germany);
    expectDrawnNumbers({{1234567, "###,###,###", "1\u202F234\u202F567"}}, france);
    expectDrawnNumbers({{1500.25, "##,##0.0", "1\u00A0500,3"}}, sweden);
    expectDrawnNumbers({{1500.25, "##,##0.0", "1500\u066B3"}}, arabicPoint);
}

TEST(NumberPicture, ShowsHugeAndTinyValues) {
    EXPECT_EQ(Format(1e15, "#,##0", unitedStates), "1,000,000,000,000,000");
    EXPECT_EQ(Format(1e300, "0.0", unitedStates), "1" + std::string(300, '0') + ".0");
    EXPECT_EQ(Format(-1e300, "#", unitedStates), "-1" + std::string(300, '0'));
    EXPECT_EQ(Format(1e-300, "0.00", unitedStates), "0.00");
    EXPECT_EQ(Format(5e-324, "#.#", unitedStates), ".");
}

TEST(NumberPicture, OverflowsWithoutANumberInEveryPicture) {
    for (double value : {infinity, -infinity, noNumber})
        for (const char* picture : {"", "0.0", "abc"})
            EXPECT_EQ(errorOf([&] { Format(value, picture, unitedStates); }), 6) << picture;
}

}  // namespace
}  // namespace velmora
