// Dates and times of day, to the second, in local time.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/regional.h"

namespace velmora {

struct DateTime {
    int year = 1899;  ///< 100 to 9999
    int month = 12;   ///< 1 to 12
    int day = 30;     ///< 1 to 31; the default is the day that means "no date"
    int hour = 0;     ///< 0 to 23
    int minute = 0;   ///< 0 to 59
    int second = 0;   ///< 0 to 59

    auto operator<=>(const DateTime&) const = default;
};

/// No date, the time alone.
inline DateTime timeOfDay(int hour, int minute) {
    return {.hour = hour, .minute = minute};
}

/// Whether every field is in its range and the day exists in its month.
bool isValid(const DateTime& value);

/// 0 for Sunday to 6 for Saturday. Error 5 for a date that isn't valid.
int weekday(const DateTime& value);

/// Seconds since the default DateTime; negative before it. Error 5 for a date that isn't valid.
std::int64_t toSeconds(const DateTime& value);
/// Error 6 outside the years 100 to 9999.
DateTime fromSeconds(std::int64_t seconds);

/// A date by a picture: "yyyy", "yy", "mm" and "m", "Mmm" and "Mmmm" (month names), "dd", "d",
/// "Ddd" and "Dddd" (weekday names), "hh" and "h" (24-hour unless the picture has "AMPM"), "nn" and
/// "n" (minutes), "ss" and "s", "AMPM". "mm" and "m" are minutes when the closest of these before
/// them is an hour or the next after them is seconds ("AMPM" not counted), and otherwise the month.
/// Upper and lower case are the same; names are English, always written "Jan". Other characters
/// stay as they are; "/" and ":" too, in every region. Error 5 for a date that isn't valid.
std::string Format(const DateTime& value, std::string_view picture);

/// The regional short date, a blank and the regional time; the time alone for the default date,
/// the date alone at midnight of another. Years have four digits; months, days and hours are
/// padded to two digits unless the region starts with the month (days, months) or has a 12-hour
/// clock (hours): "1/5/2024 3:04:05 PM", "05.01.2024 15:04:05". Error 5 for a date that isn't
/// valid.
std::string dateText(const DateTime& value, const Regional& regional);

/// Reads what dateText writes, also with other separators of "/", "-" and ".", with ":" in the
/// time, with or without seconds, 12- or 24-hour, padded or not, blanks around it. The year has
/// four digits. Nothing if it is no such text or no date that exists.
std::optional<DateTime> readDate(std::string_view text, const Regional& regional);

}  // namespace velmora
