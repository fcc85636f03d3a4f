#include "platform/linux/inventory/crontab_field.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "base/text.h"
#include "platform/linux/inventory/text_pieces.h"

namespace velmora::linuxhost {

namespace {

constexpr std::string_view monthNames[] = {"jan", "feb", "mar", "apr", "may", "jun",
                                           "jul", "aug", "sep", "oct", "nov", "dec"};
constexpr std::string_view dayNames[] = {"sun", "mon", "tue", "wed", "thu", "fri", "sat"};

struct FieldRange {
    unsigned least;
    unsigned greatest;
    std::span<const std::string_view> names = {};  // that of `least` first
};

FieldRange rangeOf(CronField field) {
    switch (field) {
        case CronField::minute:
            return {.least = 0, .greatest = 59};
        case CronField::hour:
            return {.least = 0, .greatest = 23};
        case CronField::dayOfMonth:
            return {.least = 1, .greatest = 31};
        case CronField::month:
            return {.least = 1, .greatest = 12, .names = monthNames};
        case CronField::dayOfWeek:
            break;
    }
    return {.least = 0, .greatest = 7, .names = dayNames};
}

std::optional<unsigned> valueIn(std::string_view text, const FieldRange& range) {
    const auto name = std::find(range.names.begin(), range.names.end(), lowerCase(text));
    if (name != range.names.end())
        return range.least + static_cast<unsigned>(name - range.names.begin());
    const auto number = parseNumber<unsigned>(text);
    if (!number || *number < range.least || *number > range.greatest) return std::nullopt;
    return number;
}

struct FirstAndLast {
    unsigned first;
    unsigned last;
};

// "*" or "first-last". "sun" at the end of a range is the end of the week.
std::optional<FirstAndLast> spanIn(std::string_view text, const FieldRange& range) {
    if (text == "*") return FirstAndLast{range.least, range.greatest};
    const auto dash = text.find('-');
    if (dash == std::string_view::npos) return std::nullopt;
    const auto first = valueIn(text.substr(0, dash), range);
    auto last = valueIn(text.substr(dash + 1), range);
    if (!first || !last) return std::nullopt;
    if (*first > 0 && *last == 0) last = range.greatest;
    if (*first > *last) return std::nullopt;
    return FirstAndLast{*first, *last};
}

// One entry of a list.
std::optional<std::uint64_t> entryValues(std::string_view text, const FieldRange& range) {
    if (const auto value = valueIn(text, range)) return std::uint64_t{1} << *value;
    const auto slash = text.find('/');
    const auto span = spanIn(text.substr(0, slash), range);
    unsigned step = 1;
    if (slash != std::string_view::npos)
        step = parseNumber<unsigned>(text.substr(slash + 1)).value_or(0);
    if (!span || step == 0) return std::nullopt;
    step = std::min(step, range.greatest + 1);
    std::uint64_t values = 0;
    for (unsigned value = span->first; value <= span->last; value += step)
        values |= std::uint64_t{1} << value;
    return values;
}

}  // namespace

std::optional<std::uint64_t> cronValues(std::string_view text, CronField field) {
    const FieldRange range = rangeOf(field);
    std::uint64_t values = 0;
    for (const std::string& entry : split(text, ",")) {
        const auto more = entryValues(entry, range);
        if (!more) return std::nullopt;
        values |= *more;
    }
    return values;
}

}  // namespace velmora::linuxhost
