// Texts of jobs.
#pragma once

#include <algorithm>
#include <string>

#include "platform/linux/inventory/record_text.h"

namespace velmora::linuxhost {

/// One line with blanks for tabs, which are no more than that between fields and commands.
inline std::string jobText(std::string text) {
    std::replace(text.begin(), text.end(), '\t', ' ');
    return oneLine(text);
}

}  // namespace velmora::linuxhost
