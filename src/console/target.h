// Names on the console: [FORM.]CONTROL[(INDEX)][.PROPERTY].
#pragma once

#include <optional>
#include <string>

#include "controls/property.h"
#include "forms/forms.h"

namespace velmora::console {

/// What a name refers to: a form, a control on it, or a numbered part of a control.
struct Target {
    Form* form = nullptr;
    Control* control = nullptr;  ///< null for the form itself
    std::optional<int> part;     ///< panel, button, column or entry
    std::string property;        ///< empty when the name has none

    Properties properties() const;
    /// The named property, or the main one; CommandError when there is none.
    Property find() const;
};

/// Finds the control (on Form1 unless a form is named) in any letter case. CommandError for a name
/// that isn't there.
Target resolve(Forms& forms, const std::string& name);

/// The same for a command on the control itself; CommandError when it names a form or a property.
Target resolveControl(Forms& forms, const std::string& name);

}  // namespace velmora::console
