// Windows-1252, the code page of older files and of dumps.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// UTF-8 of bytes in Windows-1252; the five undefined ones become the control characters of the
/// same number.
std::string fromWindows1252(std::string_view bytes);

}  // namespace velmora
