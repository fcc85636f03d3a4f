// The fields of the forms by name, for those who look for one.
#pragma once

#include <string>

#include "console/report.h"
#include "forms/forms.h"

namespace velmora::console {

/// The name of a field as `get` takes it: "txtSpace", "frmNotify.txtFrom".
std::string fieldName(const Forms& forms, const Control& control);

/// The fields whose name or words contain the pattern, in any letter case; all of them for an empty
/// one. A pattern with "*" or "?" is compared with the whole name. A line each: the name as `get`
/// takes it, the value, the words. A password is shown as stars.
Report fieldList(Forms& forms, const std::string& pattern);

}  // namespace velmora::console
