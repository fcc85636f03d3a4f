// A text for a reader, and its fields for a program.
#pragma once

#include <optional>
#include <string>

#include "controls/control.h"

namespace velmora::console {

struct Report {
    std::string text = {};                      ///< line ends CR LF
    std::optional<Control::Table> fields = {};  ///< for a program, where it has fields
    Control::Table::value_type about = {};      ///< for a program: what holds for all rows
};

}  // namespace velmora::console
