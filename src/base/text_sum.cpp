#include "base/text_sum.h"

#include <cstdint>

namespace velmora {

std::string sumOfText(std::string_view text) {
    std::uint64_t sum = 14695981039346656037U;
    for (const char c : text) sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211U;
    constexpr std::string_view digits = "0123456789abcdef";
    std::string written;
    for (int shift = 60; shift >= 0; shift -= 4) written += digits[(sum >> shift) & 15];
    return written;
}

}  // namespace velmora
