#include <gtest/gtest.h>

#include <vector>

#include "base/date_time.h"

namespace velmora {
namespace {

const DateTime afternoon{2024, 3, 7, 15, 4, 9};  // a Thursday
const DateTime night{2009, 11, 22, 0, 58, 0};    // a Sunday

struct DrawnDate {
    DateTime value;
    const char *picture, *expected;
};

void expectDrawnDates(const std::vector<DrawnDate>& cases) {
    for (const auto& [value, picture, expected] : cases)
        EXPECT_EQ(Format(value, picture), expected) << picture;
}

TEST(DatePicture, DrawsWholeDatesAndTimes) {
    expectDrawnDates({{afternoon, "mm/dd HH:mm:ss", "03/07 15:04:09"},
                      {afternoon, "yyyymmdd HH:mm", "20240307 15:04"},
                      {afternoon, "hh:mm:ss mm/dd", "15:04:09 03/07"},
                      {afternoon, "yyyy/mm/dd hh:mm AMPM", "2024/03/07 03:04 PM"},
                      {afternoon, "Ddd, dd Mmm yyyy HH:mm:ss", "Thu, 07 Mar 2024 15:04:09"},
                      {night, "yyyymmddhhmmss", "20091122005800"},
                      {night, "yy-m-d h:n:s", "09-11-22 0:58:0"}});
}

TEST(DatePicture, TakesMmForMinutesAfterHoursAndBeforeSecondsOnly) {
    expectDrawnDates({{afternoon, "mm", "03"},
                      {afternoon, "hh:mm", "15:04"},
                      {afternoon, "mm:ss", "04:09"},
                      {afternoon, "hh mm mm", "15 04 03"},  // minutes aren't hours
                      {afternoon, "hh dd mm", "15 07 03"},  // a day comes closer
                      {afternoon, "mm hh", "03 15"},
                      {afternoon, "ss mm", "09 03"},
                      {afternoon, "mm dd ss", "03 07 09"},
                      {afternoon, "hhmm", "1504"},
                      {afternoon, "hh 'o' mm", "15 'o' 04"},  // other characters don't part them
                      {afternoon, "hh AMPM mm", "03 PM 04"},
                      {afternoon, "h:m", "15:4"},
                      {afternoon, "hh nn", "15 04"},
                      {afternoon, "nn", "04"},
                      {afternoon, "hh Mmm", "15 Mar"}});
}

TEST(DatePicture, CountsHoursToTwelveWithAmPm) {
    const auto at = [](int hour) { return DateTime{2024, 3, 7, hour, 30, 0}; };
    expectDrawnDates(
        {{at(0), "hh:mm AMPM", "12:30 AM"},
         {at(1), "hh:mm AMPM", "01:30 AM"},
         {at(11), "hh:mm AMPM", "11:30 AM"},
         {at(12), "hh:mm AMPM", "12:30 PM"},
         {at(13), "hh:mm AMPM", "01:30 PM"},
         {at(23), "hh:mm AMPM", "11:30 PM"},
         {at(13), "AMPM h", "PM 1"},
         {at(0), "hh:mm", "00:30"},
         {at(12), "hh:mm", "12:30"},
         {at(23), "hh:mm", "23:30"},
         {at(13), "HH ampm", "01 PM"},
         {at(13), "hh AM", "13 A30"}});  // no AMPM: a letter, and minutes after the hour
}

TEST(DatePicture, PadsTwoLetterPartsOnly) {
    expectDrawnDates({{{2005, 6, 7, 8, 9, 1}, "yy yyyy m mm d dd", "05 2005 6 06 7 07"},
                      {{2005, 6, 7, 8, 9, 1}, "h hh n nn s ss", "8 08 9 09 1 01"},
                      {{123, 6, 7, 8, 9, 1}, "yyyy yy", "0123 23"}});
}

TEST(DatePicture, NamesEveryMonthInEnglish) {
    const char* shortNames[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (int month = 1; month <= 12; ++month)
        EXPECT_EQ(Format(DateTime{2024, month, 1}, "Mmm"), shortNames[month - 1]);
    const char* names[] = {"January", "February", "March",     "April",   "May",      "June",
                           "July",    "August",   "September", "October", "November", "December"};
    for (int month = 1; month <= 12; ++month)
        EXPECT_EQ(Format(DateTime{2024, month, 1}, "Mmmm"), names[month - 1]);
    expectDrawnDates({{night, "mmmm", "November"},
                      {night, "MMM mmm", "Nov Nov"},
                      {afternoon, "mmmmm", "March3"}});  // four letters are the longest form
}

TEST(DatePicture, NamesEveryWeekdayInEnglish) {
    const char* shortNames[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    for (int day = 0; day < 7; ++day)  // the 3rd of March 2024 is a Sunday
        EXPECT_EQ(Format(DateTime{2024, 3, 3 + day}, "Ddd"), shortNames[day]);
    const char* names[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                           "Thursday", "Friday", "Saturday"};
    for (int day = 0; day < 7; ++day)
        EXPECT_EQ(Format(DateTime{2024, 3, 3 + day}, "Dddd"), names[day]);
    expectDrawnDates({{night, "DDD dddd", "Sun Sunday"}});
}

TEST(DatePicture, ShowsOtherCharactersAsTheyAre) {
    expectDrawnDates({{afternoon, "", ""},
                      {afternoon, "[yyyy]", "[2024]"},
                      {afternoon, "€ é yy", "€ é 24"},
                      {afternoon, "X y .", "X y ."},  // one letter of the year is none of its forms
                      {afternoon, "yyy", "24y"},
                      {afternoon, "dd.mm.", "07.03."}});
}

}  // namespace
}  // namespace velmora
