// Reading the settings file into the fields.
#pragma once

#include <cstddef>
#include <string_view>

#include "persist/keys/settings_key.h"

namespace velmora {

/// Sets a field for each line that holds a known key and passes over all others. Fields fire their
/// events. Errors: 5 and 6 as prcDe; 13 for a value that isn't the number or date that is wanted,
/// and for an index outside its list; 380 for a check box value that is none.
/// `place` is where the field begins that is being read, also after an error.
void readSettings(std::string_view content, const SettingsTarget& to, std::size_t& place);

}  // namespace velmora
