// Conversions between text and numbers in the regional form, and rounding.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/regional.h"

namespace velmora {

/// The number that a text represents: blanks, tabs and line ends around it, a sign in front, digits
/// with or without digit groups, a decimal part, an exponent ("1,234.5", "-.5", " 12 ", "1E3").
/// Group marks may be between any two digits in front of the decimal point; where the regional mark
/// is a no-break blank, a plain blank and the other no-break blank do as well, as people type
/// those. Nothing for any other text, for an empty one, and for one whose value is beyond a double.
std::optional<double> readNumber(std::string_view text, const Regional& regional);

/// Whether the text is readable as a number.
bool isNumeric(std::string_view text, const Regional& regional);

/// Error 13 on a text that isn't numeric, also on an empty one.
double toDouble(std::string_view text, const Regional& regional);
/// Rounds to nearest, ties to even. Error 13 as above, error 6 beyond 16 bits.
std::int16_t toInteger(std::string_view text, const Regional& regional);
/// Rounds to nearest, ties to even. Error 13 as above, error 6 beyond 32 bits.
std::int32_t toLong(std::string_view text, const Regional& regional);

/// Ties to even. Error 6 beyond 16 bits or for NaN.
std::int16_t toInteger(double value);
/// Ties to even. Error 6 beyond 32 bits or for NaN.
std::int32_t toLong(double value);
/// The nearest value that 32 bits can hold: sums over drives of more than 2 TB must not fail.
double withinLong(double value);

/// The nearest whole number; infinities and NaN stay what they are.
double roundTiesToEven(double value);
/// Ties away from zero, on the decimal digits that the value shows (so 1.005 to two decimals is
/// 1.01). `decimals` from 0 to 15, error 5 otherwise; error 6 for infinities and NaN.
double roundTiesAway(double value, int decimals);

/// The sum as a 32-bit number; error 6 if it doesn't fit.
std::int32_t addLong(std::int32_t a, std::int32_t b);

/// A number as text without digit groups: whole numbers without a decimal point, others with up
/// to 15 significant digits and the regional decimal point, a leading zero for values below 1.
/// Never an exponent. Error 6 for infinities and NaN.
std::string toText(double value, const Regional& regional);
std::string toText(std::int64_t value);

}  // namespace velmora
