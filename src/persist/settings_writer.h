// The content of the settings file, out of the fields.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/regional.h"
#include "forms/forms.h"
#include "platform/host.h"

namespace velmora {

/// A line of the file that was written.
struct WrittenLine {
    std::size_t place = 0;  ///< where it begins
    std::string_view key;
};

/// Appends all lines in their order to `text`, each scrambled and closed by CR LF. Errors 5 and 6
/// as prcEn; `text` holds the lines before the failing one then, which is the last of `lines`.
/// Yields as prcLstContent.
void appendSettings(std::string& text, const Forms& forms, const Regional& regional, Host& host,
                    std::vector<WrittenLine>& lines);

}  // namespace velmora
