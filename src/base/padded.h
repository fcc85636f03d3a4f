// Whole numbers with leading zeros, as dates are written.
#pragma once

#include <cstddef>
#include <string>

namespace velmora {

/// At least `width` digits. `value` is not negative.
inline std::string padded(int value, int width) {
    const std::string digits = std::to_string(value);
    const auto wanted = static_cast<std::size_t>(width);
    return digits.size() < wanted ? std::string(wanted - digits.size(), '0') + digits : digits;
}

}  // namespace velmora
