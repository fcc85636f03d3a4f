// Lines of the console's input, up to 1 MB each.
#pragma once

#include <cstddef>
#include <istream>
#include <string>

namespace velmora::console {

inline constexpr std::size_t longestLine = 1024 * 1024;

enum class LineRead {
    line,
    tooLong,  ///< passed over to its end
    end,
};

/// Reads one line without its line end (LF or CR LF); the last one may lack it. An input that can't
/// be read counts as ended.
LineRead readLine(std::istream& input, std::string& line);

}  // namespace velmora::console
