// The look that all label buttons of the main window share: their letters brighten while they are
// pressed.
#pragma once

#include "forms/dialogs.h"
#include "forms/form1.h"

namespace velmora {

class LabelLook {
  public:
    /// Connects Label5, lblDP, lblSF and lblAl.
    LabelLook(Form1& form1, DlgAlert& dlgAlert);
    LabelLook(const LabelLook&) = delete;
    LabelLook& operator=(const LabelLook&) = delete;
};

}  // namespace velmora
