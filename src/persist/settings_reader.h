// Reading the settings file into the fields.
#pragma once

#include <string_view>

#include "forms/forms.h"
#include "platform/platform.h"

namespace velmora {

/// Sets a field for each line that holds a known key and passes over all others. Fields fire their
/// events. Errors: 5 and 6 as prcDe; 13 for a value that isn't the number or date that is wanted,
/// and for an index outside its list; 380 for a check box value that is none.
void readSettings(std::string_view content, Forms& forms, Platform& platform);

}  // namespace velmora
