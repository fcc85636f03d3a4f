#include "platform/linux/inventory/syslog_line.h"

#include <array>
#include <ctime>

#include "platform/linux/inventory/text_pieces.h"

namespace velmora::linuxhost {

namespace {

constexpr std::int64_t aSecond = 1'000'000;  // in microseconds

// Hours, minutes and seconds.
bool readTimeOfDay(std::string_view text, std::tm& time) {
    if (text.size() != 8 || text[2] != ':' || text[5] != ':') return false;
    const auto hour = parseNumber<unsigned>(text.substr(0, 2));
    const auto minute = parseNumber<unsigned>(text.substr(3, 2));
    const auto second = parseNumber<unsigned>(text.substr(6, 2));
    if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59) return false;
    time.tm_hour = static_cast<int>(*hour);
    time.tm_min = static_cast<int>(*minute);
    time.tm_sec = static_cast<int>(*second);
    return true;
}

int monthOf(std::string_view name) {
    constexpr std::array names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (int month = 0; month < 12; ++month)
        if (names[static_cast<std::size_t>(month)] == name) return month;
    return -1;
}

// Seconds since 1970 of a local time that isn't later than `now`. An hour that comes twice, when
// the clocks are put back, is its first or its second one.
std::optional<std::int64_t> localTimeUpTo(const std::tm& wanted, std::int64_t now) {
    for (const int isSummer : {-1, 1}) {
        std::tm time = wanted;
        time.tm_isdst = isSummer;
        const std::int64_t seconds = std::mktime(&time);
        const bool isThatHour = isSummer < 0 || time.tm_hour == wanted.tm_hour;
        const bool isThatDay = time.tm_mday == wanted.tm_mday;
        if (isThatDay && isThatHour && seconds <= now) return seconds;
    }
    return std::nullopt;
}

std::optional<std::int64_t> inLatestYear(std::tm time, std::int64_t now) {
    const std::time_t present = now;
    std::tm today{};
    if (!localtime_r(&present, &today)) return std::nullopt;
    constexpr int yearsBetweenLeapDays = 8;  // at most, around 1900 and 2100
    for (int back = 0; back <= yearsBetweenLeapDays; ++back) {
        time.tm_year = today.tm_year - back;
        if (const auto seconds = localTimeUpTo(time, now)) return *seconds * aSecond;
    }
    return std::nullopt;
}

// Takes "Mmm dd hh:mm:ss " away.
std::optional<std::int64_t> takeTraditionalTime(std::string_view& rest, std::int64_t now) {
    constexpr std::size_t size = 15;
    if (rest.size() <= size || rest[3] != ' ' || rest[6] != ' ' || rest[size] != ' ')
        return std::nullopt;
    std::tm time{};
    time.tm_mon = monthOf(rest.substr(0, 3));
    const bool hasOneDigit = rest[4] == ' ';
    const auto day = parseNumber<unsigned>(rest.substr(hasOneDigit ? 5 : 4, hasOneDigit ? 1 : 2));
    if (time.tm_mon < 0 || !day || *day < 1 || *day > 31) return std::nullopt;
    time.tm_mday = static_cast<int>(*day);
    if (!readTimeOfDay(rest.substr(7, 8), time)) return std::nullopt;
    const auto result = inLatestYear(time, now);
    if (result) rest.remove_prefix(size + 1);
    return result;
}

// Takes ".ffffff" away, if it is there: a part of a second in microseconds. Digits after the sixth
// count nothing.
std::optional<std::int64_t> takeFraction(std::string_view& text) {
    if (!text.starts_with('.')) return 0;
    text.remove_prefix(1);
    std::int64_t result = 0;
    std::int64_t unit = aSecond;
    std::size_t digits = 0;
    for (; digits < text.size() && text[digits] >= '0' && text[digits] <= '9'; ++digits) {
        unit /= 10;
        result += unit * (text[digits] - '0');
    }
    text.remove_prefix(digits);
    if (digits == 0) return std::nullopt;
    return result;
}

// Seconds east of Greenwich.
std::optional<std::int64_t> readOffset(std::string_view text) {
    if (text == "Z") return 0;
    if (text.size() != 6 || (text[0] != '+' && text[0] != '-') || text[3] != ':')
        return std::nullopt;
    const auto hours = parseNumber<unsigned>(text.substr(1, 2));
    const auto minutes = parseNumber<unsigned>(text.substr(4, 2));
    if (!hours || !minutes || *hours > 23 || *minutes > 59) return std::nullopt;
    const std::int64_t seconds = (*hours * 60 + *minutes) * 60;
    return text[0] == '-' ? -seconds : seconds;
}

bool readDay(std::string_view text, std::tm& time) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return false;
    const auto year = parseNumber<unsigned>(text.substr(0, 4));
    const auto month = parseNumber<unsigned>(text.substr(5, 2));
    const auto day = parseNumber<unsigned>(text.substr(8, 2));
    if (!year || !month || !day || *month < 1 || *month > 12 || *day < 1 || *day > 31) return false;
    time.tm_year = static_cast<int>(*year) - 1900;
    time.tm_mon = static_cast<int>(*month) - 1;
    time.tm_mday = static_cast<int>(*day);
    return true;
}

// Takes "yyyy-mm-ddThh:mm:ss.ffffff+hh:mm " away.
std::optional<std::int64_t> takeFullTime(std::string_view& rest) {
    constexpr std::size_t wholeSeconds = 19;
    std::string_view text = rest.substr(0, rest.find(' '));
    const std::size_t size = text.size();
    std::tm time{};
    if (size == rest.size() || size <= wholeSeconds || text[10] != 'T') return std::nullopt;
    if (!readDay(text.substr(0, 10), time) || !readTimeOfDay(text.substr(11, 8), time))
        return std::nullopt;
    text.remove_prefix(wholeSeconds);
    const auto fraction = takeFraction(text);
    const auto offset = readOffset(text);
    if (!fraction || !offset) return std::nullopt;
    const int day = time.tm_mday;
    const std::int64_t seconds = timegm(&time);
    if (time.tm_mday != day) return std::nullopt;
    rest.remove_prefix(size + 1);
    return (seconds - *offset) * aSecond + *fraction;
}

// Takes "tag[pid]: " away; empty when there is no such thing.
std::string_view takeTag(std::string_view& rest) {
    std::string_view tag = rest.substr(0, rest.find(' '));
    const std::size_t size = tag.size();
    if (!tag.ends_with(':')) return {};
    tag.remove_suffix(1);
    if (tag.ends_with(']')) tag = tag.substr(0, tag.rfind('['));
    if (tag.empty()) return {};
    rest.remove_prefix(size);
    if (!rest.empty()) rest.remove_prefix(1);
    return tag;
}

}  // namespace

SyslogLine readSyslogLine(std::string_view line, std::int64_t now) {
    SyslogLine result;
    std::string_view rest = line;
    result.time = takeFullTime(rest);
    if (!result.time) result.time = takeTraditionalTime(rest, now);
    result.host = rest.substr(0, rest.find(' '));
    rest.remove_prefix(result.host.size());
    if (!rest.empty()) rest.remove_prefix(1);
    result.tag = takeTag(rest);
    result.message = rest;
    if (!result.time || result.host.empty() || result.tag.empty())
        return {.time = std::nullopt, .host = {}, .tag = {}, .message = line};
    return result;
}

}  // namespace velmora::linuxhost
