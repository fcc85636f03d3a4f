#include "shell/menus/caption_values.h"

#include <cstdint>

#include "base/text.h"
#include "shell/menus/caption_tokens.h"
#include "shell/menus/menu_caption.h"

namespace velmora {

namespace {

constexpr std::string_view hexBegin = "&H";
constexpr char hexEnd = '&';
constexpr Colour white = 0xFFFFFF;

/// Blue, green and red, or the number of a colour of the system.
bool isColour(Colour value) {
    return value <= white || (value & 0xFFFFFF00) == 0x80000000;
}

}  // namespace

std::size_t countDigits(std::string_view text) {
    const std::size_t end = text.find_first_not_of("0123456789");
    return end == text.npos ? text.size() : end;
}

bool readNumber(std::optional<int>& field, std::string_view digits) {
    return readWhole(field, digits, 0, MenuCaption::mostNumber);
}

bool readColour(Colour& field, std::string_view text) {
    const bool isHex = text.starts_with(hexBegin);
    if (isHex) text.remove_prefix(hexBegin.size());
    if (isHex && text.ends_with(hexEnd)) text.remove_suffix(1);
    if (isHex && text.starts_with('-')) return false;
    std::int64_t number = 0;
    const char* end = text.data() + text.size();
    const auto [last, failure] = std::from_chars(text.data(), end, number, isHex ? 16 : 10);
    const bool isNumber = failure == std::errc() && last == end;
    if (!isNumber || number < INT32_MIN || number > UINT32_MAX) return false;
    const auto value = static_cast<Colour>(number);
    if (isColour(value)) field = value;
    return isColour(value);
}

std::string writeColour(Colour colour) {
    constexpr std::size_t digits = 16;
    char hex[digits] = {};
    const auto [end, failure] = std::to_chars(hex, hex + digits, colour, 16);
    std::string written(hexBegin);
    for (const char* at = hex; at != end; ++at) {
        written += *at >= 'a' ? static_cast<char>(*at - 'a' + 'A') : *at;
    }
    return written + hexEnd;
}

std::string withLineBreaks(std::string_view text) {
    return replaceAll(text, mark::lineBreak, lineEnd);
}

}  // namespace velmora
