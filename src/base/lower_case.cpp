// Lower case without the C library's tables, which depend on the machine's locale.
#include <algorithm>
#include <iterator>

#include "base/text.h"

namespace velmora {

namespace {

/// Capital letters from `first` to `last`, every one or every second, whose small letters are
/// `offset` further on.
struct Capitals {
    char32_t first, last;
    int step, offset;
};

// The simple case mappings of Unicode beyond ASCII, in ascending order.
// clang-format off
constexpr Capitals capitals[] = {
    {0x00C0, 0x00D6, 1, 32}, {0x00D8, 0x00DE, 1, 32}, {0x0100, 0x012E, 2, 1},
    {0x0130, 0x0130, 1, -199}, {0x0132, 0x0136, 2, 1}, {0x0139, 0x0147, 2, 1},
    {0x014A, 0x0176, 2, 1}, {0x0178, 0x0178, 1, -121}, {0x0179, 0x017D, 2, 1},
    {0x0181, 0x0181, 1, 210}, {0x0182, 0x0184, 2, 1}, {0x0186, 0x0186, 1, 206},
    {0x0187, 0x0187, 1, 1}, {0x0189, 0x018A, 1, 205}, {0x018B, 0x018B, 1, 1},
    {0x018E, 0x018E, 1, 79}, {0x018F, 0x018F, 1, 202}, {0x0190, 0x0190, 1, 203},
    {0x0191, 0x0191, 1, 1}, {0x0193, 0x0193, 1, 205}, {0x0194, 0x0194, 1, 207},
    {0x0196, 0x0196, 1, 211}, {0x0197, 0x0197, 1, 209}, {0x0198, 0x0198, 1, 1},
    {0x019C, 0x019C, 1, 211}, {0x019D, 0x019D, 1, 213}, {0x019F, 0x019F, 1, 214},
    {0x01A0, 0x01A4, 2, 1}, {0x01A6, 0x01A6, 1, 218}, {0x01A7, 0x01A7, 1, 1},
    {0x01A9, 0x01A9, 1, 218}, {0x01AC, 0x01AC, 1, 1}, {0x01AE, 0x01AE, 1, 218},
    {0x01AF, 0x01AF, 1, 1}, {0x01B1, 0x01B2, 1, 217}, {0x01B3, 0x01B5, 2, 1},
    {0x01B7, 0x01B7, 1, 219}, {0x01B8, 0x01B8, 1, 1}, {0x01BC, 0x01BC, 1, 1},
    {0x01C4, 0x01C4, 1, 2}, {0x01C5, 0x01C5, 1, 1}, {0x01C7, 0x01C7, 1, 2}, {0x01C8, 0x01C8, 1, 1},
    {0x01CA, 0x01CA, 1, 2}, {0x01CB, 0x01DB, 2, 1}, {0x01DE, 0x01EE, 2, 1}, {0x01F1, 0x01F1, 1, 2},
    {0x01F2, 0x01F4, 2, 1}, {0x01F6, 0x01F6, 1, -97}, {0x01F7, 0x01F7, 1, -56},
    {0x01F8, 0x021E, 2, 1}, {0x0220, 0x0220, 1, -130}, {0x0222, 0x0232, 2, 1},
    {0x023A, 0x023A, 1, 10795}, {0x023B, 0x023B, 1, 1}, {0x023D, 0x023D, 1, -163},
    {0x023E, 0x023E, 1, 10792}, {0x0241, 0x0241, 1, 1}, {0x0243, 0x0243, 1, -195},
    {0x0244, 0x0244, 1, 69}, {0x0245, 0x0245, 1, 71}, {0x0246, 0x024E, 2, 1},
    {0x0370, 0x0372, 2, 1}, {0x0376, 0x0376, 1, 1}, {0x037F, 0x037F, 1, 116},
    {0x0386, 0x0386, 1, 38}, {0x0388, 0x038A, 1, 37}, {0x038C, 0x038C, 1, 64},
    {0x038E, 0x038F, 1, 63}, {0x0391, 0x03A1, 1, 32}, {0x03A3, 0x03AB, 1, 32},
    {0x03CF, 0x03CF, 1, 8}, {0x03D8, 0x03EE, 2, 1}, {0x03F4, 0x03F4, 1, -60},
    {0x03F7, 0x03F7, 1, 1}, {0x03F9, 0x03F9, 1, -7}, {0x03FA, 0x03FA, 1, 1},
    {0x03FD, 0x03FF, 1, -130}, {0x0400, 0x040F, 1, 80}, {0x0410, 0x042F, 1, 32},
    {0x0460, 0x0480, 2, 1}, {0x048A, 0x04BE, 2, 1}, {0x04C0, 0x04C0, 1, 15}, {0x04C1, 0x04CD, 2, 1},
    {0x04D0, 0x052E, 2, 1}, {0x0531, 0x0556, 1, 48}, {0x1E00, 0x1E94, 2, 1},
    {0x1E9E, 0x1E9E, 1, -7615}, {0x1EA0, 0x1EFE, 2, 1}, {0x1F08, 0x1F0F, 1, -8},
    {0x1F18, 0x1F1D, 1, -8}, {0x1F28, 0x1F2F, 1, -8}, {0x1F38, 0x1F3F, 1, -8},
    {0x1F48, 0x1F4D, 1, -8}, {0x1F59, 0x1F5F, 2, -8}, {0x1F68, 0x1F6F, 1, -8},
    {0x1F88, 0x1F8F, 1, -8}, {0x1F98, 0x1F9F, 1, -8}, {0x1FA8, 0x1FAF, 1, -8},
    {0x1FB8, 0x1FB9, 1, -8}, {0x1FBA, 0x1FBB, 1, -74}, {0x1FBC, 0x1FBC, 1, -9},
    {0x1FC8, 0x1FCB, 1, -86}, {0x1FCC, 0x1FCC, 1, -9}, {0x1FD8, 0x1FD9, 1, -8},
    {0x1FDA, 0x1FDB, 1, -100}, {0x1FE8, 0x1FE9, 1, -8}, {0x1FEA, 0x1FEB, 1, -112},
    {0x1FEC, 0x1FEC, 1, -7}, {0x1FF8, 0x1FF9, 1, -128}, {0x1FFA, 0x1FFB, 1, -126},
    {0x1FFC, 0x1FFC, 1, -9},
};
// clang-format on

char32_t smallLetter(char32_t letter) {
    const auto* range = std::lower_bound(
        std::begin(capitals), std::end(capitals), letter,
        [](const Capitals& candidate, char32_t wanted) { return candidate.last < wanted; });
    if (range == std::end(capitals) || letter < range->first) return letter;
    const bool capital = (letter - range->first) % static_cast<char32_t>(range->step) == 0;
    return capital ? static_cast<char32_t>(static_cast<int>(letter) + range->offset) : letter;
}

/// The character of 2 or 3 valid bytes.
char32_t decode(std::string_view bytes) {
    char32_t letter = static_cast<unsigned char>(bytes[0]) & (bytes.size() == 2 ? 0x1Fu : 0x0Fu);
    for (char byte : bytes.substr(1))
        letter = letter << 6 | (static_cast<unsigned char>(byte) & 0x3Fu);
    return letter;
}

void append(std::string& text, char32_t letter) {
    if (letter < 0x80) {
        text += static_cast<char>(letter);
        return;
    }
    if (letter < 0x800) {
        text += static_cast<char>(0xC0 | letter >> 6);
    } else {
        text += static_cast<char>(0xE0 | letter >> 12);
        text += static_cast<char>(0x80 | (letter >> 6 & 0x3F));
    }
    text += static_cast<char>(0x80 | (letter & 0x3F));
}

}  // namespace

std::string lowerCase(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = characterSize(text, at);
        if (size == 1) {
            const char byte = text[at];
            result += byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
        } else if (size == 4) {  // none of these scripts' letters
            result.append(text.substr(at, size));
        } else {
            append(result, smallLetter(decode(text.substr(at, size))));
        }
        at += size;
    }
    return result;
}

}  // namespace velmora
