// The values of the caption language's keys: numbers, colours, texts with line breaks.
#pragma once

#include <charconv>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "controls/buttons.h"

namespace velmora {

/// The number of digits that a text begins with.
std::size_t countDigits(std::string_view text);

/// A whole number from `least` to `most` into the field. False when the text isn't one; the field
/// stays as it is then.
template <class Field>
bool readWhole(Field& field, std::string_view digits, int least, int most) {
    int number = 0;
    const char* end = digits.data() + digits.size();
    const auto [last, failure] = std::from_chars(digits.data(), end, number);
    const bool isWhole = failure == std::errc() && last == end;
    if (!isWhole || countDigits(digits) == 0 || number < least || number > most) return false;
    field = number;
    return true;
}

/// The number of a picture or a panel into the field, from 0 to MenuCaption::mostNumber.
bool readNumber(std::optional<int>& field, std::string_view digits);

/// A colour into the field, as for readWhole: a decimal number, also a negative one as a form
/// stores colours of the system, or a hexadecimal one with "&H" in front and perhaps "&" behind.
bool readColour(Colour& field, std::string_view text);

/// Each "<BR!>" as CR LF.
std::string withLineBreaks(std::string_view text);

}  // namespace velmora
