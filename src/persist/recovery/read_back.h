// What the settings that were just saved will be after the next start, found out in memory.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/forms.h"
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

/// What is said of a field that can't be written, by the error that told it. `isAllKept` when the
/// file was left as it was; it ends before the field otherwise.
SettingsHint unwritable(std::string_view key, int number, bool isAllKept);

/// Reads the content into forms of its own and compares them with `forms`. Nothing of the program
/// or of the machine changes.
std::vector<SettingsHint> readBack(std::string_view content, const Forms& forms, Platform& platform,
                                   Host& host);

}  // namespace velmora
