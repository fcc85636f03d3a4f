// Cutting a text after the digits that it begins with.
#pragma once

#include <string>

#include "base/regional.h"

namespace velmora {

/// Cuts `chkstr` in place in front of the first character, from the second on, that isn't numeric
/// or equals `strStop`, and returns it too. A text of up to two characters stays as it is.
std::string prcChkString(std::string& chkstr, const std::string& strStop, const Regional& regional);

}  // namespace velmora
