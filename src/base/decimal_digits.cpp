#include "base/decimal_digits.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "base/runtime_error.h"

namespace velmora {

namespace {

constexpr int significantDigits = 15;

/// "d.ddde+xx".
std::string scientific(double value) {
    char buffer[64];
    const auto result = value < 1e15
                            ? std::to_chars(std::begin(buffer), std::end(buffer), value,
                                            std::chars_format::scientific, significantDigits - 1)
                            : std::to_chars(std::begin(buffer), std::end(buffer), value,
                                            std::chars_format::scientific);
    return std::string(buffer, result.ptr);
}

int exponentOf(std::string_view digits) {
    if (digits.front() == '+') digits.remove_prefix(1);
    int exponent = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    return exponent;
}

void removeTrailingZeros(std::string& digits) {
    digits.erase(digits.find_last_not_of('0') + 1);
}

/// Adds one in the last place; whether it carries over the first.
bool increment(std::string& digits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] != '9') {
            ++digits[i];
            return false;
        }
        digits[i] = '0';
    }
    return true;
}

}  // namespace

DecimalDigits decimalDigits(double value) {
    if (!std::isfinite(value)) throw RuntimeError(error::overflow);
    if (value == 0) return {};
    const std::string text = scientific(std::fabs(value));
    const std::size_t e = text.find('e');
    const int exponent = exponentOf(std::string_view(text).substr(e + 1));
    std::string digits = text.substr(0, 1);
    if (e > 2) digits += text.substr(2, e - 2);

    DecimalDigits result;
    result.negative = value < 0;
    if (exponent < 0) {
        result.fraction = std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    } else {
        const std::size_t places = static_cast<std::size_t>(exponent) + 1;
        if (digits.size() < places) digits.append(places - digits.size(), '0');
        result.whole = digits.substr(0, places);
        result.fraction = digits.substr(places);
    }
    removeTrailingZeros(result.fraction);
    return result;
}

DecimalDigits rounded(DecimalDigits digits, int decimals) {
    const auto places = static_cast<std::size_t>(decimals);
    if (digits.fraction.size() > places) {
        const bool up = digits.fraction[places] >= '5';
        digits.fraction.resize(places);
        if (up && increment(digits.fraction) && increment(digits.whole))
            digits.whole.insert(digits.whole.begin(), '1');
        removeTrailingZeros(digits.fraction);
    }
    if (digits.isZero()) digits.negative = false;
    return digits;
}

double toNumber(const DecimalDigits& digits) {
    const std::string text = '0' + digits.whole + '.' + digits.fraction + '0';
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return digits.negative ? -value : value;
}

std::string grouped(std::string_view whole, std::string_view mark) {
    std::string result;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (i > 0 && (whole.size() - i) % 3 == 0) result.append(mark);
        result += whole[i];
    }
    return result;
}

}  // namespace velmora
