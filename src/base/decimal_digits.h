// The decimal digits that a number shows, as rounding, pictures and plain text use them.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// The digits on both sides of the decimal point, "" for zero: no leading zeros in `whole`, no
/// trailing ones in `fraction`.
struct DecimalDigits {
    bool negative = false;
    std::string whole;
    std::string fraction;

    bool isZero() const { return whole.empty() && fraction.empty(); }
};

/// 15 significant digits, which hide the noise of binary fractions (0.1 + 0.2 shows 0.3); from
/// 1E15 on the fewest that distinguish the number from its neighbours, padded with zeros. Error 6
/// for infinities and NaN.
DecimalDigits decimalDigits(double value);

/// Rounded to `decimals` (not negative), ties away from zero. Zero is never negative.
DecimalDigits rounded(DecimalDigits digits, int decimals);

/// The number that the digits represent.
double toNumber(const DecimalDigits& digits);

/// Whole digits with a mark between groups of three.
std::string grouped(std::string_view whole, std::string_view mark);

}  // namespace velmora
