#include "base/date_time.h"

#include <gtest/gtest.h>

#include "errors.h"

namespace velmora {
namespace {

TEST(DateTime, IsTheDayThatMeansNoDateByDefault) {
    EXPECT_EQ(DateTime{}, (DateTime{1899, 12, 30, 0, 0, 0}));
    EXPECT_TRUE(isValid(DateTime{}));
}

TEST(DateTime, ComparesFromTheYearDown) {
    EXPECT_LT((DateTime{2023, 12, 31, 23, 59, 59}), (DateTime{2024, 1, 1, 0, 0, 0}));
    EXPECT_LT((DateTime{2024, 1, 31, 0, 0, 0}), (DateTime{2024, 2, 1, 0, 0, 0}));
    EXPECT_LT((DateTime{2024, 1, 1, 9, 59, 0}), (DateTime{2024, 1, 1, 10, 0, 0}));
}

TEST(IsValid, AcceptsTheEdgesOfEveryField) {
    for (const DateTime& value :
         {DateTime{100, 1, 1, 0, 0, 0}, DateTime{9999, 12, 31, 23, 59, 59}, DateTime{2024, 2, 29},
          DateTime{2000, 2, 29}, DateTime{2023, 4, 30}, DateTime{2023, 2, 28}})
        EXPECT_TRUE(isValid(value)) << value.year << '/' << value.month << '/' << value.day;
}

TEST(IsValid, RefusesDaysAndTimesThatDontExist) {
    for (const DateTime& value : {DateTime{99, 1, 1},
                                  DateTime{10000, 1, 1},
                                  DateTime{2024, 0, 1},
                                  DateTime{2024, 13, 1},
                                  DateTime{2024, 1, 0},
                                  DateTime{2024, 1, 32},
                                  DateTime{2024, 4, 31},
                                  DateTime{2024, 6, 31},
                                  DateTime{2024, 9, 31},
                                  DateTime{2024, 11, 31},
                                  DateTime{2024, 2, 30},
                                  DateTime{2023, 2, 29},
                                  DateTime{1900, 2, 29},
                                  DateTime{2100, 2, 29},
                                  DateTime{2024, 1, 1, 24, 0, 0},
                                  DateTime{2024, 1, 1, -1, 0, 0},
                                  DateTime{2024, 1, 1, 0, 60, 0},
                                  DateTime{2024, 1, 1, 0, -1, 0},
                                  DateTime{2024, 1, 1, 0, 0, 60},
                                  DateTime{2024, 1, 1, 0, 0, -1}})
        EXPECT_FALSE(isValid(value)) << value.year << '/' << value.month << '/' << value.day << ' '
                                     << value.hour << ':' << value.minute << ':' << value.second;
}

TEST(Weekday, CountsFromSunday) {
    const struct {
        DateTime date;
        int expected;
    } cases[] = {
        {{1899, 12, 30}, 6}, {{1970, 1, 1}, 4}, {{2000, 1, 1}, 6},   {{2000, 2, 29}, 2},
        {{2024, 2, 29}, 4},  {{2024, 3, 1}, 5}, {{2023, 12, 31}, 0}, {{1582, 10, 15}, 5},
        {{2024, 1, 1}, 1},   {{1900, 3, 1}, 4},
    };
    for (const auto& [date, expected] : cases)
        EXPECT_EQ(weekday(date), expected) << date.year << '/' << date.month << '/' << date.day;
}

TEST(Seconds, CountFromTheDayThatMeansNoDate) {
    constexpr std::int64_t day = 86400;
    const struct {
        DateTime date;
        std::int64_t seconds;
    } cases[] = {
        {{1899, 12, 30, 0, 0, 0}, 0},
        {{1899, 12, 30, 0, 0, 1}, 1},
        {{1899, 12, 30, 23, 59, 59}, day - 1},
        {{1899, 12, 31, 0, 0, 0}, day},
        {{1899, 12, 29, 23, 59, 59}, -1},
        {{1899, 12, 29, 0, 0, 0}, -day},
        {{1900, 1, 1, 0, 0, 0}, 2 * day},
        {{1900, 3, 1, 0, 0, 0}, 61 * day},  // 1900 has no leap day
        {{1970, 1, 1, 0, 0, 0}, 25569 * day},
        {{2000, 1, 1, 12, 0, 0}, 36526 * day + day / 2},
        {{2000, 3, 1, 0, 0, 0}, (36526 + 31 + 29) * day},
        {{9999, 12, 31, 23, 59, 59}, 2958466 * day - 1},
        {{100, 1, 1, 0, 0, 0}, -657434 * day},
    };
    for (const auto& [date, seconds] : cases) {
        EXPECT_EQ(toSeconds(date), seconds);
        EXPECT_EQ(fromSeconds(seconds), date) << seconds;
    }
}

TEST(Seconds, AddUpAcrossMonthsYearsAndLeapDays) {
    const auto after = [](const DateTime& value, std::int64_t seconds) {
        return fromSeconds(toSeconds(value) + seconds);
    };
    EXPECT_EQ(after({2023, 12, 31, 23, 59, 59}, 1), (DateTime{2024, 1, 1, 0, 0, 0}));
    EXPECT_EQ(after({2024, 2, 28, 12, 0, 0}, 86400), (DateTime{2024, 2, 29, 12, 0, 0}));
    EXPECT_EQ(after({2023, 2, 28, 12, 0, 0}, 86400), (DateTime{2023, 3, 1, 12, 0, 0}));
    EXPECT_EQ(after({2000, 2, 29, 0, 0, 0}, -1), (DateTime{2000, 2, 28, 23, 59, 59}));
    EXPECT_EQ(after({2024, 1, 1, 0, 0, 0}, 366 * 86400), (DateTime{2025, 1, 1, 0, 0, 0}));
}

TEST(Seconds, OverflowOutsideTheCalendar) {
    constexpr std::int64_t day = 86400;
    EXPECT_EQ(errorOf([] { fromSeconds(2958466 * day); }), 6);
    EXPECT_EQ(errorOf([] { fromSeconds(-657434 * day - 1); }), 6);
    EXPECT_EQ(errorOf([] { fromSeconds(INT64_MAX); }), 6);
    EXPECT_EQ(errorOf([] { fromSeconds(INT64_MIN); }), 6);
}

TEST(DateTime, IsRefusedWhenItDoesntExist) {
    const DateTime noSuchDay{2023, 2, 29};
    EXPECT_EQ(errorOf([&] { toSeconds(noSuchDay); }), 5);
    EXPECT_EQ(errorOf([&] { weekday(noSuchDay); }), 5);
    EXPECT_EQ(errorOf([&] { Format(noSuchDay, "dd"); }), 5);
    EXPECT_EQ(errorOf([&] { dateText(noSuchDay, Regional{}); }), 5);
    EXPECT_EQ(errorOf([] { Format(DateTime{2024, 99, 1}, ""); }), 5);
}

}  // namespace
}  // namespace velmora
