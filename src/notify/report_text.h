// What the texts of the mail have in common.
#pragma once

#include <string>

#include "base/text.h"

namespace velmora {

namespace report {
/// The rule between the pieces of a text.
inline constexpr const char* rule = "=============";
}  // namespace report

/// A line end as a text to join.
inline std::string endLine() {
    return std::string(lineEnd);
}

}  // namespace velmora
