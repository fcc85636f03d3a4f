// Why the settings could not be read at the start.
#pragma once

#include <cstddef>
#include <string>

namespace velmora {

struct SettingsFault {
    std::string key = {};  ///< of the line that can't be read; empty when the file can't be
    std::size_t line = 0;  ///< its number from 1; 0 when the file can't be read, or lacks the line
};

}  // namespace velmora
