// Date pictures.
#include <algorithm>
#include <cstddef>
#include <vector>

#include "base/date_time.h"
#include "base/padded.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace velmora {

namespace {

constexpr const char* monthNames[] = {"January",   "February", "March",    "April",
                                      "May",       "June",     "July",     "August",
                                      "September", "October",  "November", "December"};
constexpr const char* weekdayNames[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                        "Thursday", "Friday", "Saturday"};

enum class Part { literal, year, month, day, hour, minute, second, amPm };

struct Token {
    Part part;
    std::size_t size;  ///< in characters of the picture
    char character;    ///< of a literal
};

Part partOf(char letter) {
    switch (letter) {
        case 'y':
            return Part::year;
        case 'm':
            return Part::month;
        case 'd':
            return Part::day;
        case 'h':
            return Part::hour;
        case 'n':
            return Part::minute;
        case 's':
            return Part::second;
        default:
            return Part::literal;
    }
}

/// How many of `run` equal letters (up to 4) make one token.
std::size_t tokenSize(Part part, std::size_t run) {
    switch (part) {
        case Part::year:
            return run >= 4 ? 4 : std::min<std::size_t>(run, 2);
        case Part::month:
        case Part::day:
            return run;
        case Part::literal:
            return 1;
        default:
            return std::min<std::size_t>(run, 2);
    }
}

Token tokenAt(std::string_view picture, std::string_view lower, std::size_t at) {
    constexpr std::string_view amPm = "ampm";
    if (lower.substr(at).starts_with(amPm)) return {Part::amPm, amPm.size(), 0};
    const Part part = partOf(lower[at]);
    std::size_t run = 1;
    while (run < 4 && at + run < lower.size() && lower[at + run] == lower[at]) ++run;
    const std::size_t size = tokenSize(part, run);
    if (part == Part::year && size == 1) return {Part::literal, 1, picture[at]};
    return {part, size, picture[at]};
}

/// "mm" is minutes after hours and before seconds; names of months are never minutes.
void separateMinutesFromMonths(std::vector<Token>& tokens) {
    std::vector<Token*> parts;
    for (Token& token : tokens)
        if (token.part != Part::literal && token.part != Part::amPm) parts.push_back(&token);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (parts[i]->part != Part::month || parts[i]->size > 2) continue;
        const bool afterHour = i > 0 && parts[i - 1]->part == Part::hour;
        const bool beforeSecond = i + 1 < parts.size() && parts[i + 1]->part == Part::second;
        if (afterHour || beforeSecond) parts[i]->part = Part::minute;
    }
}

std::vector<Token> readDatePicture(std::string_view picture) {
    std::string lower(picture);  // bytes only, so that positions stay those of the picture
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    std::vector<Token> tokens;
    for (std::size_t at = 0; at < picture.size(); at += tokens.back().size)
        tokens.push_back(tokenAt(picture, lower, at));
    separateMinutesFromMonths(tokens);
    return tokens;
}

std::string numberOrName(int value, std::size_t size, std::string_view name) {
    if (size == 4) return std::string(name);
    return size == 3 ? left(name, 3) : padded(value, static_cast<int>(size));
}

std::string yearText(int year, std::size_t size) {
    return size == 4 ? padded(year, 4) : padded(year % 100, 2);
}

int shownHour(int hour, bool twelveHours) {
    if (!twelveHours) return hour;
    return hour % 12 == 0 ? 12 : hour % 12;
}

std::string tokenText(const DateTime& value, const Token& token, bool twelveHours) {
    const int width = static_cast<int>(token.size);
    switch (token.part) {
        case Part::year:
            return yearText(value.year, token.size);
        case Part::month:
            return numberOrName(value.month, token.size, monthNames[value.month - 1]);
        case Part::day:
            return numberOrName(value.day, token.size, weekdayNames[weekday(value)]);
        case Part::hour:
            return padded(shownHour(value.hour, twelveHours), width);
        case Part::minute:
            return padded(value.minute, width);
        case Part::second:
            return padded(value.second, width);
        case Part::amPm:
            return value.hour < 12 ? "AM" : "PM";
        case Part::literal:
            break;
    }
    return std::string(1, token.character);
}

}  // namespace

std::string Format(const DateTime& value, std::string_view picture) {
    if (!isValid(value)) throw RuntimeError(error::invalidCall);
    const std::vector<Token> tokens = readDatePicture(picture);
    const bool twelveHours = std::any_of(
        tokens.begin(), tokens.end(), [](const Token& token) { return token.part == Part::amPm; });
    std::string text;
    for (const Token& token : tokens) text += tokenText(value, token, twelveHours);
    return text;
}

}  // namespace velmora
