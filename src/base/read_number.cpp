// Reading numbers: a text is brought into the plain form that from_chars reads on every machine.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <system_error>

#include "base/convert.h"
#include "base/text.h"

namespace velmora {

namespace {

constexpr std::string_view noBreakBlank = "\u00A0";
constexpr std::string_view narrowNoBreakBlank = "\u202F";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

class NumberReader {
  public:
    NumberReader(std::string_view text, const Regional& regional)
        : text_(text), regional_(regional) {}

    std::optional<double> read() {
        const bool negative = rest().starts_with('-');
        if (negative || rest().starts_with('+')) ++at_;
        const std::size_t whole = wholeDigits();
        const std::size_t fraction = fractionDigits();
        if (whole + fraction == 0) return std::nullopt;
        if (!exponent() || at_ != text_.size()) return std::nullopt;
        const auto magnitude = value();
        if (!magnitude) return std::nullopt;
        return negative ? -*magnitude : *magnitude;
    }

  private:
    std::string_view rest() const { return text_.substr(at_); }

    std::size_t digits() {
        const std::size_t from = at_;
        while (at_ < text_.size() && isDigit(text_[at_])) ++at_;
        plain_.append(text_.substr(from, at_ - from));
        return at_ - from;
    }

    std::size_t wholeDigits() {
        std::size_t count = digits();
        while (const std::size_t mark = count > 0 ? groupMark() : 0) {
            at_ += mark;
            count += digits();
        }
        return count;
    }

    /// The size of the group mark at this place, 0 for none: a digit must follow it.
    std::size_t groupMark() const {
        const std::string_view mark = regional_.digitGroup;
        if (mark == regional_.decimalPoint) return 0;
        if (const std::size_t size = markSize(mark)) return size;
        if (mark != noBreakBlank && mark != narrowNoBreakBlank) return 0;
        for (std::string_view blank : {std::string_view(" "), noBreakBlank, narrowNoBreakBlank})
            if (const std::size_t size = markSize(blank)) return size;
        return 0;
    }

    std::size_t markSize(std::string_view mark) const {
        const std::size_t after = at_ + mark.size();
        const bool found = rest().starts_with(mark) && after < text_.size();
        return found && isDigit(text_[after]) ? mark.size() : 0;
    }

    std::size_t fractionDigits() {
        const std::string_view point = regional_.decimalPoint;
        if (point.empty() || !rest().starts_with(point)) return 0;
        at_ += point.size();
        plain_ += '.';
        return digits();
    }

    /// False if an exponent begins and isn't one.
    bool exponent() {
        if (!rest().starts_with('e') && !rest().starts_with('E')) return true;
        ++at_;
        plain_ += 'e';
        const bool small = rest().starts_with('-');
        if (small) plain_ += '-';
        if (small || rest().starts_with('+')) ++at_;
        return digits() > 0;
    }

    std::optional<double> value() const {
        // from_chars wants a digit in front of the point on some compilers.
        const std::string text = '0' + plain_;
        double result = 0;
        const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), result);
        if (failure == std::errc() && std::isfinite(result)) return result;
        if (isBelowOne()) return 0.0;
        return std::nullopt;
    }

    /// For values out of a double's range: whether it is the small end.
    bool isBelowOne() const {
        const std::string_view all = plain_;
        const std::size_t e = all.find('e');
        const std::string_view mantissa = all.substr(0, e);
        const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
        const std::size_t first = mantissa.find_first_of("123456789");
        if (first == mantissa.npos) return true;
        const auto places = static_cast<std::ptrdiff_t>(point) - static_cast<std::ptrdiff_t>(first);
        return places + (e == all.npos ? 0 : exponentValue(all.substr(e + 1))) <= 0;
    }

    /// Used for any larger exponent: no text is long enough for its digits to outweigh it.
    static std::ptrdiff_t exponentValue(std::string_view digits) {
        constexpr std::ptrdiff_t huge = 2'000'000'000;
        std::ptrdiff_t result = 0;
        const auto [end, failure] =
            std::from_chars(digits.data(), digits.data() + digits.size(), result);
        if (failure == std::errc()) return std::min(std::max(result, -huge), huge);
        return digits.starts_with('-') ? -huge : huge;
    }

    std::string_view text_;
    const Regional& regional_;
    std::size_t at_ = 0;
    std::string plain_;  ///< digits, perhaps a point and an exponent
};

// Whole numbers with or without digit groups, which the rows of a check consist of: nothing for any
// other text, and for one that is longer than a double's digits.
std::optional<double> readPlain(std::string_view text, const Regional& regional) {
    constexpr int most = 15;
    const std::string& mark = regional.digitGroup;
    const bool hasMark = mark.size() == 1 && mark != regional.decimalPoint;
    std::int64_t value = 0;
    int digits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isDigit(text[i])) {
            if (++digits > most) return std::nullopt;
            value = value * 10 + (text[i] - '0');
        } else if (!hasMark || text[i] != mark[0] || digits == 0 || i + 1 == text.size() ||
                   !isDigit(text[i + 1])) {
            return std::nullopt;
        }
    }
    if (digits == 0) return std::nullopt;
    return static_cast<double>(value);
}

}  // namespace

std::optional<double> readNumber(std::string_view text, const Regional& regional) {
    if (const auto plain = readPlain(text, regional)) return plain;
    // Settings carry their line end with them; what is no part of the number is passed over.
    constexpr std::string_view around = " \t\r\n";
    const std::size_t first = text.find_first_not_of(around);
    if (first == text.npos) return std::nullopt;
    text = text.substr(first, text.find_last_not_of(around) - first + 1);
    return NumberReader(text, regional).read();
}

}  // namespace velmora
