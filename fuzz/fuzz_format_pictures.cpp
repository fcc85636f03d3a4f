// Number and date pictures and the conversions back: any bytes give a text or a run-time error, and
// what was written can be read. The first 8 bytes are the value, the rest is
// the picture.
#include <cmath>
#include <cstring>
#include <string>

#include "base/convert.h"
#include "base/date_time.h"
#include "base/format_number.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "fuzz_target.h"

using namespace velmora;

namespace {

const Regional regionals[] = {
    {},
    {.digitGroup = ".",
     .decimalPoint = ",",
     .dateOrder = DateOrder::dayMonthYear,
     .dateSeparator = ".",
     .timeSeparator = ".",
     .twelveHourClock = false},
    {.digitGroup = "\u202F",
     .decimalPoint = ",",
     .dateOrder = DateOrder::yearMonthDay,
     .dateSeparator = "-"},
};

void numberPicture(double value, std::string_view picture, const Regional& regional) {
    try {
        const std::string shown = Format(value, picture, regional);
        require(std::isfinite(value), "no number has no form");
        require(value < 0 || shown.empty() || shown[0] != '-' || contains(picture, "-"),
                "only negative values take a minus sign");
        if (isValidUtf8(picture)) require(isValidUtf8(shown), "valid pictures give valid text");
    } catch (const RuntimeError& failure) {
        require(failure.number() == error::overflow && !std::isfinite(value),
                "only what is no number fails, by overflow");
    }
}

void numberText(double value, const Regional& regional) {
    if (!std::isfinite(value)) return;
    const double shown = toDouble(toText(value, regional), regional);
    require(std::fabs(shown - value) <= std::fabs(value) * 1e-14, "15 digits are kept");
    for (int decimals : {0, 2, 15}) {
        const std::string text = FormatNumber(value, decimals, Grouping::regional, regional);
        require(toDouble(text, regional) == roundTiesAway(value, decimals),
                "a formatted number reads back as it was rounded");
    }
}

void anyText(std::string_view text, const Regional& regional) {
    const auto value = readNumber(text, regional);
    require(!value || std::isfinite(*value), "what is read is a number");
    require(isNumeric(text, regional) == value.has_value(), "numeric is what can be read");
    try {
        const std::int32_t whole = toLong(text, regional);
        require(value && std::fabs(whole - *value) <= 0.5, "rounds to nearest");
    } catch (const RuntimeError& failure) {
        require(failure.number() == (value ? error::overflow : error::typeMismatch),
                "overflow for a number, type mismatch for other text");
    }
    if (const auto date = readDate(text, regional)) {
        require(isValid(*date), "dates that are read exist");
        require(readDate(dateText(*date, regional), regional) == date, "dates read back");
    }
}

void datePicture(std::uint64_t bits, std::string_view picture) {
    constexpr std::uint64_t secondsOfCalendar = 312'000'000'000;
    const DateTime value =
        fromSeconds(toSeconds({100, 1, 1}) + static_cast<std::int64_t>(bits % secondsOfCalendar));
    require(isValid(value) && fromSeconds(toSeconds(value)) == value, "seconds give the date back");
    const std::string shown = Format(value, picture);
    if (isValidUtf8(picture)) require(isValidUtf8(shown), "valid pictures give valid text");
    // The longest names: "September" for "mmmm".
    require(shown.size() <= picture.size() * 3, "a picture grows by its names only");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::uint64_t bits = 0;
    if (size < sizeof bits) return 0;
    std::memcpy(&bits, data, sizeof bits);
    double value = 0;
    std::memcpy(&value, data, sizeof value);
    const std::string_view picture = asText(data, size).substr(sizeof bits);
    for (const Regional& regional : regionals) {
        numberPicture(value, picture, regional);
        numberText(value, regional);
        anyText(picture, regional);
    }
    datePicture(bits, picture);
    return 0;
}
