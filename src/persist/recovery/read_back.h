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

/// Reads the content, which has these lines, into forms of its own and compares them with `forms`.
/// Names first each field that would end the next start, then those that would come back changed
/// if it didn't. Nothing of the program or of the machine changes.
std::vector<Hint> readBack(std::string_view content, const std::vector<WrittenLine>& lines,
                           const Forms& forms, Platform& platform, Host& host);

}  // namespace velmora
