// The text after the program's name in the line that started it.
#pragma once

#include <string_view>

namespace velmora::windows {

/// Without the blanks in front. The name ends at the first blank, or at its second quote when it
/// begins with one.
std::wstring_view afterName(std::wstring_view commandLine);

}  // namespace velmora::windows
