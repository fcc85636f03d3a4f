// The look that all label buttons of the main window share: their letters brighten while they are
// pressed.
#pragma once

#include "forms/forms.h"

namespace velmora {

class LabelLook {
  public:
    /// Connects Label5, lblDP, lblSF and lblAl.
    explicit LabelLook(Forms& forms);
    LabelLook(const LabelLook&) = delete;
    LabelLook& operator=(const LabelLook&) = delete;
};

}  // namespace velmora
