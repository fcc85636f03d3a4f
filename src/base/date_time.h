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
    int day = 30;     ///< 1 to 31; the default is the day that stands for "no date"
    int hour = 0;     ///< 0 to 23
    int minute = 0;   ///< 0 to 59
    int second = 0;   ///< 0 to 59

    auto operator<=>(const DateTime&) const = default;
};

/// Whether every field is in its range and the day exists in its month.
bool isValid(const DateTime& value);

/// 0 for Sunday to 6 for Saturday.
int weekday(const DateTime& value);

/// Seconds since the default DateTime; negative before it.
std::int64_t toSeconds(const DateTime& value);
DateTime fromSeconds(std::int64_t seconds);

/// A date by a picture: "yyyy", "yy", "mm" and "m" (minutes behind an hour or in front of
/// seconds), "dd", "d", "Mmm" and "Mmmm" (month names), "Ddd" and "Dddd" (weekday names), "hh" or
/// "HH" (24-hour unless "AMPM" stands in the picture), "nn" minutes, "ss", "AMPM". Upper and lower
/// case are the same; the letter case of names is always that of English. Other characters stand
/// for themselves; "/" and ":" too, whatever the region.
std::string Format(const DateTime& value, std::string_view picture);

/// The regional short date, a blank and the regional time; the time alone for the default date,
/// the date alone at midnight of another.
std::string dateText(const DateTime& value, const Regional& regional);

/// Reads what dateText writes, also with other separators of "/", "-" and ".", with or without
/// seconds, 12- or 24-hour. Nothing if it is no such text or no date that exists.
std::optional<DateTime> readDate(std::string_view text, const Regional& regional);

}  // namespace velmora
