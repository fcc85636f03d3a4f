// What the settings that were just saved will be after the next start, found out in memory.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/forms.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

/// A field that doesn't come back as it is.
struct SettingsHint {
    std::string field;       ///< as the console names it
    std::string text;        ///< what happens and how to change it, without the field's value
    bool endsStart = false;  ///< the next start would end with an error

    bool operator==(const SettingsHint&) const = default;
};

/// Reads the content into forms of its own and compares them with `forms`. Nothing of the program
/// or of the machine changes.
std::vector<SettingsHint> readBack(std::string_view content, const Forms& forms, Platform& platform,
                                   Host& host);

}  // namespace velmora
