// The content of the settings file, out of the fields.
#pragma once

#include <string>

#include "base/regional.h"
#include "forms/forms.h"

namespace velmora {

/// All lines in their order, each scrambled and closed by CR LF. Errors 5 and 6 as prcEn.
std::string settingsText(const Forms& forms, const Regional& regional);

}  // namespace velmora
