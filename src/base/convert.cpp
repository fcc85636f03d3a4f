#include "base/convert.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "base/decimal_digits.h"
#include "base/runtime_error.h"

namespace velmora {

namespace {

template <typename Whole>
Whole toWhole(double value) {
    const double whole = roundTiesToEven(value);
    // Written so that NaN fails too.
    if (!(whole >= std::numeric_limits<Whole>::min() && whole <= std::numeric_limits<Whole>::max()))
        throw RuntimeError(error::overflow);
    return static_cast<Whole>(whole);
}

}  // namespace

bool isNumeric(std::string_view text, const Regional& regional) {
    return readNumber(text, regional).has_value();
}

double toDouble(std::string_view text, const Regional& regional) {
    const auto value = readNumber(text, regional);
    if (!value) throw RuntimeError(error::typeMismatch);
    return *value;
}

std::int16_t toInteger(std::string_view text, const Regional& regional) {
    return toInteger(toDouble(text, regional));
}

std::int32_t toLong(std::string_view text, const Regional& regional) {
    return toLong(toDouble(text, regional));
}

std::int16_t toInteger(double value) {
    return toWhole<std::int16_t>(value);
}

std::int32_t toLong(double value) {
    return toWhole<std::int32_t>(value);
}

double withinLong(double value) {
    using Limits = std::numeric_limits<std::int32_t>;
    return std::clamp<double>(value, Limits::min(), Limits::max());
}

double roundTiesToEven(double value) {
    // Whole already, as most are.
    constexpr double most = 1e15;
    if (std::abs(value) < most && value == static_cast<double>(static_cast<std::int64_t>(value)))
        return value;
    // remainder() takes ties to even in every rounding mode of the thread.
    return std::isfinite(value) ? value - std::remainder(value, 1.0) : value;
}

double roundTiesAway(double value, int decimals) {
    if (decimals < 0 || decimals > 15) throw RuntimeError(error::invalidCall);
    return toNumber(rounded(decimalDigits(value), decimals));
}

std::int32_t addLong(std::int32_t a, std::int32_t b) {
    const std::int64_t sum = std::int64_t{a} + b;
    if (sum != static_cast<std::int32_t>(sum)) throw RuntimeError(error::overflow);
    return static_cast<std::int32_t>(sum);
}

std::string toText(double value, const Regional& regional) {
    const DecimalDigits digits = decimalDigits(value);
    std::string text = digits.negative ? "-" : "";
    text += digits.whole.empty() ? "0" : digits.whole;
    if (!digits.fraction.empty()) text.append(regional.decimalPoint).append(digits.fraction);
    return text;
}

std::string toText(std::int64_t value) {
    return std::to_string(value);
}

}  // namespace velmora
