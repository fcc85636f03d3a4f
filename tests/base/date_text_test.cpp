#include <gtest/gtest.h>

#include <vector>

#include "base/date_time.h"
#include "regionals.h"

namespace velmora {
namespace {

const DateTime january5th{2024, 1, 5, 15, 4, 9};

TEST(DateText, FollowsTheRegion) {
    EXPECT_EQ(dateText(january5th, unitedStates), "1/5/2024 3:04:09 PM");
    EXPECT_EQ(dateText(january5th, germany), "05.01.2024 15:04:09");
    EXPECT_EQ(dateText(january5th, france), "05/01/2024 15:04:09");
    EXPECT_EQ(dateText(january5th, sweden), "2024-01-05 15:04:09");
    EXPECT_EQ(dateText(january5th, finland), "05.01.2024 15.04.09");
    EXPECT_EQ(dateText({123, 11, 12, 0, 0, 1}, unitedStates), "11/12/0123 12:00:01 AM");
}

TEST(DateText, IsTheDateAloneAtMidnight) {
    EXPECT_EQ(dateText({2024, 12, 31}, unitedStates), "12/31/2024");
    EXPECT_EQ(dateText({1899, 12, 29}, unitedStates), "12/29/1899");
    EXPECT_EQ(dateText({2024, 12, 31, 0, 0, 1}, germany), "31.12.2024 00:00:01");
}

TEST(DateText, IsTheTimeAloneForNoDate) {
    EXPECT_EQ(dateText({1899, 12, 30, 9, 5, 0}, unitedStates), "9:05:00 AM");
    EXPECT_EQ(dateText({1899, 12, 30, 9, 5, 0}, germany), "09:05:00");
    EXPECT_EQ(dateText(DateTime{}, unitedStates), "12:00:00 AM");
    EXPECT_EQ(dateText(DateTime{}, sweden), "00:00:00");
}

struct DateReading {
    const char* text;
    DateTime expected;
};

void expectDates(const std::vector<DateReading>& cases, const Regional& regional) {
    for (const auto& [text, expected] : cases) {
        const auto read = readDate(text, regional);
        ASSERT_TRUE(read.has_value()) << text;
        EXPECT_EQ(*read, expected) << text;
    }
}

TEST(ReadDate, ReadsMonthDayAndYearInTheRegionalOrder) {
    expectDates({{"1/5/2024", {2024, 1, 5}}, {"01/05/2024", {2024, 1, 5}}}, unitedStates);
    expectDates({{"1.5.2024", {2024, 5, 1}}}, germany);
    expectDates({{"2024-1-5", {2024, 1, 5}}}, sweden);
}

TEST(ReadDate, TakesOtherSeparatorsAsLongAsBothAreTheSame) {
    expectDates({{"1-5-2024", {2024, 1, 5}}, {"1.5.2024", {2024, 1, 5}}}, unitedStates);
    expectDates({{"2024/1/5", {2024, 1, 5}}, {"2024.1.5", {2024, 1, 5}}}, sweden);
    EXPECT_FALSE(readDate("1/5-2024", unitedStates));
    EXPECT_FALSE(readDate("1 5 2024", unitedStates));
    expectDates({{"5. 1. 2024", {2024, 1, 5}}, {"5/1/2024", {2024, 1, 5}}},
                Regional{.dateOrder = DateOrder::dayMonthYear, .dateSeparator = ". "});
}

TEST(ReadDate, ReadsTimesOnBothClocksWithOrWithoutSeconds) {
    for (const Regional& regional : {unitedStates, germany})
        expectDates({{"3:04:09 PM", {1899, 12, 30, 15, 4, 9}},
                     {"3:04 pm", {1899, 12, 30, 15, 4, 0}},
                     {"3:04PM", {1899, 12, 30, 15, 4, 0}},
                     {"03:04 Am", {1899, 12, 30, 3, 4, 0}},
                     {"12:00 AM", {1899, 12, 30, 0, 0, 0}},
                     {"12:00 PM", {1899, 12, 30, 12, 0, 0}},
                     {"15:04:09", {1899, 12, 30, 15, 4, 9}},
                     {"0:00", {1899, 12, 30, 0, 0, 0}},
                     {"23:59:59", {1899, 12, 30, 23, 59, 59}}},
                    regional);
    expectDates({{"15.04.09", {1899, 12, 30, 15, 4, 9}},
                 {"15:04", {1899, 12, 30, 15, 4, 0}},
                 {"5.1.2024 15.04", {2024, 1, 5, 15, 4, 0}}},
                finland);
}

TEST(ReadDate, ReadsADateWithATimeAfterBlanks) {
    expectDates({{"1/5/2024 3:04:09 PM", january5th},
                 {"  1/5/2024   15:04:09 ", january5th},
                 {"1/5/2024 0:00", {2024, 1, 5}},
                 {"2/29/2024", {2024, 2, 29}}},
                unitedStates);
}

TEST(ReadDate, RefusesDatesAndTimesThatDontExist) {
    for (const char* text : {"2/30/2024", "2/29/2023", "13/1/2024", "0/1/2024", "1/0/2024",
                             "1/32/2024", "1/1/0099", "012:30", "12:030", "12:30:010", "24:00",
                             "12:60", "12:00:60", "0:30 AM", "13:00 PM", "1/5/2024 25:00"})
        EXPECT_FALSE(readDate(text, unitedStates)) << text;
}

TEST(ReadDate, RefusesOtherText) {
    for (const char* text : {"",
                             " ",
                             "today",
                             "1/5",
                             "1/5/24",
                             "1/5/20245",
                             "001/5/2024",
                             "1/5/2024x",
                             "x1/5/2024",
                             "1/5/20243:04",
                             "1/5/2024 x",
                             "1/5/2024 3:04 XM",
                             "3:04 P",
                             "3:04 PMx",
                             "3:4",
                             "3",
                             "3:04:",
                             "3:04:5",
                             ":04",
                             "-1:04",
                             "/5/2024",
                             "1//2024",
                             "2024/1/5",
                             "1/5/2024\n",
                             "99999999999999999999/1/2024"})
        EXPECT_FALSE(readDate(text, unitedStates)) << text;
}

TEST(ReadDate, TimesOfOtherCountriesAreReadInEachForm) {
    for (const char* separator : {":", ".", "-"}) {
        Regional regional;
        regional.timeSeparator = separator;
        for (const char* text : {"13.05.09", "13:05:09"}) {
            const auto value = readDate(text, regional);
            ASSERT_TRUE(value) << separator << text;
            EXPECT_EQ(value->hour, 13);
            EXPECT_EQ(value->minute, 5);
            EXPECT_EQ(value->second, 9);
        }
        EXPECT_TRUE(readDate("1.05.09 PM", regional)) << separator;
        for (const char* text : {"0.5", "25.00.00", "1.2.3", "12."}) {
            EXPECT_FALSE(readDate(text, regional)) << separator << text;
        }
    }
}

}  // namespace
}  // namespace velmora
