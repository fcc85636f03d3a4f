#include "base/date_time.h"

#include "base/runtime_error.h"

namespace velmora {

namespace {

constexpr std::int64_t secondsPerDay = 86400;
constexpr int yearsPerEra = 400;  // the calendar repeats itself after as many years and days
constexpr int daysPerEra = 146097;

bool isLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int daysInMonth(int year, int month) {
    if (month == 2) return isLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

/// Days in front of a month when the year begins with March, so that the leap day is its last.
constexpr int daysBefore(int monthFromMarch) {
    return (153 * monthFromMarch + 2) / 5;
}

/// Days since the 1st of March of the year 0. `year` not negative.
constexpr int dayNumber(int year, int month, int day) {
    if (month <= 2) --year;
    const int monthFromMarch = (month + 9) % 12;
    const int ofEra = year % yearsPerEra;
    return year / yearsPerEra * daysPerEra + ofEra * 365 + ofEra / 4 - ofEra / 100 +
           daysBefore(monthFromMarch) + day - 1;
}

constexpr int dayZero = dayNumber(1899, 12, 30);  // a Saturday
constexpr std::int64_t firstSecond = (dayNumber(100, 1, 1) - dayZero) * secondsPerDay;
constexpr std::int64_t endOfTime = (dayNumber(9999, 12, 31) + 1 - dayZero) * secondsPerDay;

DateTime dateOfDay(int number) {
    const int ofEra = number % daysPerEra;
    // Takes out the leap days of 4, 100 and 400 years, the last day of the era among them.
    const int yearOfEra = (ofEra - ofEra / 1460 + ofEra / 36524 - ofEra / 146096) / 365;
    const int ofYear = ofEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int monthFromMarch = (5 * ofYear + 2) / 153;
    DateTime result;
    result.month = monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9;
    result.year = number / daysPerEra * yearsPerEra + yearOfEra + (result.month <= 2 ? 1 : 0);
    result.day = ofYear - daysBefore(monthFromMarch) + 1;
    return result;
}

bool within(int value, int least, int most) {
    return least <= value && value <= most;
}

int checkedDayNumber(const DateTime& value) {
    if (!isValid(value)) throw RuntimeError(error::invalidCall);
    return dayNumber(value.year, value.month, value.day);
}

}  // namespace

bool isValid(const DateTime& value) {
    return within(value.year, 100, 9999) && within(value.month, 1, 12) &&
           within(value.day, 1, daysInMonth(value.year, value.month)) &&
           within(value.hour, 0, 23) && within(value.minute, 0, 59) && within(value.second, 0, 59);
}

int weekday(const DateTime& value) {
    constexpr int wednesday = 3;  // the 1st of March of the year 0
    return (checkedDayNumber(value) + wednesday) % 7;
}

std::int64_t toSeconds(const DateTime& value) {
    return (checkedDayNumber(value) - dayZero) * secondsPerDay + value.hour * 3600 +
           value.minute * 60 + value.second;
}

DateTime fromSeconds(std::int64_t seconds) {
    if (seconds < firstSecond || seconds >= endOfTime) throw RuntimeError(error::overflow);
    const std::int64_t sinceStart = seconds + dayZero * secondsPerDay;
    DateTime result = dateOfDay(static_cast<int>(sinceStart / secondsPerDay));
    const int ofDay = static_cast<int>(sinceStart % secondsPerDay);
    result.hour = ofDay / 3600;
    result.minute = ofDay / 60 % 60;
    result.second = ofDay % 60;
    return result;
}

}  // namespace velmora
