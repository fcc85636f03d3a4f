// The program's environment.
#pragma once

#include <string>

namespace velmora::windows {

/// The text of a variable; empty when it isn't set.
std::wstring environmentVariable(const wchar_t* name);

}  // namespace velmora::windows
