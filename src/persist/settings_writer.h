// The content of the settings file, out of the fields.
#pragma once

#include <string>
#include <string_view>

#include "base/regional.h"
#include "forms/forms.h"
#include "platform/host.h"

namespace velmora {

/// Appends all lines in their order to `text`, each scrambled and closed by CR LF. Errors 5 and 6
/// as prcEn; `text` holds the lines before the failing one then, and `key` is that of the failing
/// one. Yields as prcLstContent.
void appendSettings(std::string& text, const Forms& forms, const Regional& regional, Host& host,
                    std::string_view& key);

}  // namespace velmora
