// Dates as text in the regional form, and back.
#include <array>
#include <cstddef>

#include "base/date_time.h"
#include "base/padded.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace velmora {

namespace {

std::string shortDate(const DateTime& value, const Regional& regional) {
    const int width = regional.dateOrder == DateOrder::monthDayYear ? 1 : 2;
    const std::string year = padded(value.year, 4);
    const std::string month = padded(value.month, width);
    const std::string day = padded(value.day, width);
    const std::string& mark = regional.dateSeparator;
    switch (regional.dateOrder) {
        case DateOrder::monthDayYear:
            return month + mark + day + mark + year;
        case DateOrder::dayMonthYear:
            return day + mark + month + mark + year;
        case DateOrder::yearMonthDay:
            break;
    }
    return year + mark + month + mark + day;
}

std::string timeText(const DateTime& value, const Regional& regional) {
    const std::string& mark = regional.timeSeparator;
    const std::string rest = mark + padded(value.minute, 2) + mark + padded(value.second, 2);
    if (!regional.twelveHourClock) return padded(value.hour, 2) + rest;
    const int hour = value.hour % 12 == 0 ? 12 : value.hour % 12;
    return padded(hour, 1) + rest + (value.hour < 12 ? " AM" : " PM");
}

/// Walks over a text; every step returns whether it found what it expected.
class Cursor {
  public:
    explicit Cursor(std::string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }

    bool mark(std::string_view mark) {
        if (mark.empty() || !rest_.starts_with(mark)) return false;
        rest_.remove_prefix(mark.size());
        return true;
    }

    bool blanks() {
        const bool found = rest_.starts_with(' ');
        while (rest_.starts_with(' ')) rest_.remove_prefix(1);
        return found;
    }

    /// All digits at this place, from `least` to `most` of them.
    bool number(std::size_t least, std::size_t most, int& value) {
        std::size_t count = 0;
        int result = 0;
        for (; count < rest_.size() && rest_[count] >= '0' && rest_[count] <= '9'; ++count) {
            if (count == most) return false;
            result = result * 10 + (rest_[count] - '0');
        }
        if (count < least) return false;
        rest_.remove_prefix(count);
        value = result;
        return true;
    }

    /// "AM" or "PM" in any case, with nothing after it.
    bool halfOfDay(bool& afternoon) {
        const std::string half = lowerCase(rest_);
        if (half != "am" && half != "pm") return false;
        afternoon = half == "pm";
        rest_ = {};
        return true;
    }

  private:
    std::string_view rest_;
};

bool readDatePart(Cursor& cursor, DateOrder order, std::string_view mark, DateTime& value) {
    const auto year = [&] { return cursor.number(4, 4, value.year); };
    const auto month = [&] { return cursor.number(1, 2, value.month); };
    const auto day = [&] { return cursor.number(1, 2, value.day); };
    const auto between = [&] { return cursor.mark(mark); };
    switch (order) {
        case DateOrder::monthDayYear:
            return month() && between() && day() && between() && year();
        case DateOrder::dayMonthYear:
            return day() && between() && month() && between() && year();
        case DateOrder::yearMonthDay:
            break;
    }
    return year() && between() && month() && between() && day();
}

/// The time, with nothing after it.
bool readTimePart(Cursor& cursor, const Regional& regional, DateTime& value) {
    // Settings may have been saved where times are written in the other way.
    const auto between = [&] {
        return cursor.mark(regional.timeSeparator) || cursor.mark(":") || cursor.mark(".");
    };
    if (!cursor.number(1, 2, value.hour) || !between() || !cursor.number(2, 2, value.minute))
        return false;
    if (between() && !cursor.number(2, 2, value.second)) return false;
    cursor.blanks();
    if (cursor.atEnd()) return true;
    bool afternoon = false;
    if (!cursor.halfOfDay(afternoon) || value.hour < 1 || value.hour > 12) return false;
    value.hour = value.hour % 12 + (afternoon ? 12 : 0);
    return true;
}

std::optional<DateTime> readWithDate(std::string_view text, std::string_view mark,
                                     const Regional& regional) {
    Cursor cursor(text);
    DateTime value;
    if (!readDatePart(cursor, regional.dateOrder, mark, value)) return std::nullopt;
    if (!cursor.atEnd() && !(cursor.blanks() && readTimePart(cursor, regional, value)))
        return std::nullopt;
    return isValid(value) ? std::optional(value) : std::nullopt;
}

}  // namespace

std::string dateText(const DateTime& value, const Regional& regional) {
    if (!isValid(value)) throw RuntimeError(error::invalidCall);
    const DateTime noDate;
    const DateTime midnight{value.year, value.month, value.day};
    if (midnight == noDate) return timeText(value, regional);
    const std::string date = shortDate(value, regional);
    return value == midnight ? date : date + ' ' + timeText(value, regional);
}

std::optional<DateTime> readDate(std::string_view text, const Regional& regional) {
    const std::string trimmed = trim(text);
    for (std::string_view mark :
         std::array<std::string_view, 4>{regional.dateSeparator, "/", "-", "."})
        if (const auto value = readWithDate(trimmed, mark, regional)) return value;
    Cursor cursor(trimmed);
    DateTime value;
    const bool time = readTimePart(cursor, regional, value) && isValid(value);
    return time ? std::optional(value) : std::nullopt;
}

}  // namespace velmora
