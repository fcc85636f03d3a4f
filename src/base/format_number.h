// Numbers as the user reads them: FormatNumber and number pictures.
#pragma once

#include <string>
#include <string_view>

#include "base/regional.h"

namespace velmora {

/// The third argument of FormatNumber: digit groups or none. The regional default has them.
enum class Grouping { none, regional };

/// `value` with exactly `decimals` decimals (0 to 99, error 5 otherwise), rounded with ties away
/// from zero on the decimal digits that it shows, and at least one digit in front of the decimal
/// point. A negative value takes a minus sign; one that rounds to zero takes none. Error 6 for
/// infinities and NaN.
std::string FormatNumber(double value, int decimals, Grouping grouping, const Regional& regional);

/// A number by a picture: "#" an optional digit, "0" a required one, "," between digits digit
/// grouping, "." the decimal point (shown even when no digit follows); any other character stays as
/// it is. The value is rounded to the picture, ties away from zero; digits in front of the point
/// that have no place of their own go to the first place. A minus sign is in front of everything. A
/// picture without places and point is shown as it is; an empty one shows the value as toText does.
/// Error 6 for infinities and NaN.
std::string Format(double value, std::string_view picture, const Regional& regional);

}  // namespace velmora
