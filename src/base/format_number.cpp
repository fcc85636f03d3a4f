#include "base/format_number.h"

#include <algorithm>
#include <cstddef>

#include "base/convert.h"
#include "base/decimal_digits.h"
#include "base/runtime_error.h"

namespace velmora {

namespace {

constexpr int mostDecimals = 99;

bool isPlace(char c) {
    return c == '#' || c == '0';
}

std::size_t countPlaces(std::string_view part) {
    return static_cast<std::size_t>(std::count_if(part.begin(), part.end(), isPlace));
}

/// A picture cut at its decimal point. Commas that ask for digit groups are gone from `whole`.
struct Picture {
    std::string whole;
    std::string_view fraction;
    bool point = false;
    bool grouping = false;
};

Picture readNumberPicture(std::string_view picture) {
    Picture result;
    const std::size_t point = picture.find('.');
    result.point = point != std::string_view::npos;
    if (result.point) result.fraction = picture.substr(point + 1);

    const std::string_view whole = picture.substr(0, point);
    const std::size_t first = whole.find_first_of("#0");
    const std::size_t last = whole.find_last_of("#0");
    for (std::size_t i = 0; i < whole.size(); ++i) {
        const bool group = whole[i] == ',' && first < i && i < last;
        if (group)
            result.grouping = true;
        else
            result.whole += whole[i];
    }
    return result;
}

/// Lays whole digits into the places of a picture, from left to right.
class WholePart {
  public:
    WholePart(const Picture& picture, std::string_view digits, std::string_view mark)
        : picture_(picture.whole), digits_(digits), places_(countPlaces(picture.whole)) {
        if (picture.grouping) mark_ = mark;
    }

    std::string text() {
        const std::size_t firstRequired = std::min(picture_.find('0'), picture_.size());
        std::size_t place = places_;
        for (std::size_t i = 0; i < picture_.size(); ++i) {
            if (!isPlace(picture_[i])) {
                text_ += picture_[i];
                continue;
            }
            if (place == places_) surplus();
            digit(--place, i >= firstRequired);
        }
        if (places_ == 0) surplus();
        return text_;
    }

  private:
    /// The digits that have no place of their own.
    void surplus() {
        for (std::size_t power = digits_.size(); power > places_;) digit(--power, false);
    }

    /// The digit of a power of ten and the mark after it.
    void digit(std::size_t power, bool required) {
        if (power < digits_.size())
            text_ += digits_[digits_.size() - 1 - power];
        else if (required)
            text_ += '0';
        else
            return;
        if (power > 0 && power % 3 == 0) text_.append(mark_);
    }

    std::string_view picture_;
    std::string_view digits_;
    std::string_view mark_;
    std::size_t places_;
    std::string text_;
};

std::string fractionText(std::string_view picture, std::string_view digits) {
    const std::size_t afterRequired = picture.find_last_of('0') + 1;  // 0 when there is none
    std::string text;
    std::size_t place = 0;
    for (std::size_t i = 0; i < picture.size(); ++i) {
        if (!isPlace(picture[i])) {
            text += picture[i];
            continue;
        }
        if (place < digits.size())
            text += digits[place];
        else if (i < afterRequired)
            text += '0';
        ++place;
    }
    return text;
}

}  // namespace

std::string FormatNumber(double value, int decimals, Grouping grouping, const Regional& regional) {
    if (decimals < 0 || decimals > mostDecimals) throw RuntimeError(error::invalidCall);
    DecimalDigits digits = rounded(decimalDigits(value), decimals);
    if (digits.whole.empty()) digits.whole = "0";
    digits.fraction.resize(static_cast<std::size_t>(decimals), '0');

    std::string text = digits.negative ? "-" : "";
    text +=
        grouping == Grouping::regional ? grouped(digits.whole, regional.digitGroup) : digits.whole;
    if (decimals > 0) text.append(regional.decimalPoint).append(digits.fraction);
    return text;
}

std::string Format(double value, std::string_view picture, const Regional& regional) {
    if (picture.empty()) return toText(value, regional);
    const DecimalDigits exact = decimalDigits(value);
    const Picture parts = readNumberPicture(picture);
    if (!parts.point && countPlaces(parts.whole) == 0) return std::string(picture);

    const DecimalDigits digits = rounded(exact, static_cast<int>(countPlaces(parts.fraction)));
    std::string text = digits.negative ? "-" : "";
    text += WholePart(parts, digits.whole, regional.digitGroup).text();
    if (parts.point)
        text.append(regional.decimalPoint).append(fractionText(parts.fraction, digits.fraction));
    return text;
}

}  // namespace velmora
