// What the settings that were just saved will be after the next start, found out in memory.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/forms.h"
#include "persist/settings_writer.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

/// A field that isn't saved, or doesn't come back as it is.
struct SettingsHint {
    std::string field;       ///< as the console names it
    std::string text;        ///< what happens and how to change it, without the field's value
    bool endsStart = false;  ///< the next start would end with an error
    bool isSaved = true;     ///< false for one that can't be written

    bool operator==(const SettingsHint&) const = default;
};

/// Reads the content, which has these lines, into forms of its own and compares them with `forms`.
/// Names first each field that would end the next start, then those that would come back changed
/// if it didn't. Nothing of the program or of the machine changes.
std::vector<SettingsHint> readBack(std::string_view content, const std::vector<WrittenLine>& lines,
                                   const Forms& forms, Platform& platform, Host& host);

}  // namespace velmora
