#include "inspect/sectors/sector_text.h"

#include <cmath>
#include <cstdio>

#include "base/code_page.h"
#include "base/convert.h"
#include "base/text.h"

namespace velmora {

std::string fHexPad(std::int16_t Width, std::uint32_t Value) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%X", Value);
    std::string text(digits);
    const auto width = static_cast<std::size_t>(Width < 1 ? 0 : Width);
    if (text.size() < width) text.insert(0, width - text.size(), '0');
    return text;
}

std::string fBytesToString(std::string_view Bytes) {
    return fromWindows1252(Bytes);
}

std::string fCutAtNull(const std::string& Text) {
    return Text.substr(0, Text.find('\0'));
}

std::int32_t fWordToLong(std::int16_t Word) {
    return static_cast<std::uint16_t>(Word);
}

std::uint8_t fLowByte(std::int16_t Word) {
    return static_cast<std::uint8_t>(Word & 0xFF);
}

std::uint8_t fHighByte(const std::int16_t& Word) {
    const auto address = reinterpret_cast<std::uintptr_t>(&Word);
    return static_cast<std::uint8_t>((address + 1) & 0xFF);
}

double fQwordToDouble(std::string_view Bytes) {
    const std::uint64_t low = unsignedAt(Bytes, 0, 4);
    const std::uint64_t high = unsignedAt(Bytes, 4, 4);
    return static_cast<double>(static_cast<std::int64_t>(high << 32 | low));
}

std::string scientificText(double value, const Regional& regional) {
    constexpr double firstWithExponent = 1E15;
    if (std::abs(value) < firstWithExponent) return toText(value, regional);
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.14E", value);
    const std::string text(digits);
    const std::size_t exponent = text.find('E');
    std::string mantissa = text.substr(0, exponent);
    while (mantissa.ends_with('0')) mantissa.pop_back();
    if (mantissa.ends_with('.')) mantissa.pop_back();
    return replaceAll(mantissa, ".", regional.decimalPoint) + text.substr(exponent);
}

std::uint32_t unsignedAt(std::string_view sector, std::size_t offset, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = size; i > 0; --i) {
        value = value << 8 | static_cast<std::uint8_t>(sector[offset + i - 1]);
    }
    return value;
}

}  // namespace velmora
