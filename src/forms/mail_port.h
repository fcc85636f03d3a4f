// The port of a mail server as a text box holds it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/convert.h"

namespace velmora {

/// The port from 1 to 65535 that the text names; nothing for any other text.
inline std::optional<std::int32_t> mailPort(const std::string& text, const Regional& regional) {
    constexpr double greatest = 65535;
    const std::optional<double> number = readNumber(text, regional);
    if (!number || *number < 1 || *number > greatest || *number != roundTiesToEven(*number)) {
        return std::nullopt;
    }
    return toLong(*number);
}

}  // namespace velmora
