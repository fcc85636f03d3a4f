#include "base/code_page.h"

#include <array>

namespace velmora {

namespace {

// Code points of the bytes 0x80 to 0x9F; all others are their own code points.
constexpr std::array<char16_t, 32> upperControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void append(std::string& text, char16_t point) {
    if (point < 0x80) {
        text += static_cast<char>(point);
    } else if (point < 0x800) {
        text += static_cast<char>(0xC0 | point >> 6);
        text += static_cast<char>(0x80 | (point & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | point >> 12);
        text += static_cast<char>(0x80 | (point >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (point & 0x3F));
    }
}

}  // namespace

std::string fromWindows1252(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        append(text, code >= 0x80 && code < 0xA0 ? upperControls[code - 0x80u] : code);
    }
    return text;
}

}  // namespace velmora
