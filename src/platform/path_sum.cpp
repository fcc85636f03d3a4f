#include "platform/path_sum.h"

#include <cstdint>

namespace velmora {

std::string sumOfPath(std::string_view path) {
    std::uint64_t sum = 14695981039346656037U;
    for (const char c : path) sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211U;
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (int shift = 60; shift >= 0; shift -= 4) text += digits[(sum >> shift) & 15];
    return text;
}

}  // namespace velmora
