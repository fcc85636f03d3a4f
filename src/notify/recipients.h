// The recipients of the mail: the entries of a box, with its buttons.
#pragma once

#include "controls/buttons.h"
#include "controls/list_box.h"

namespace velmora {

class Recipients {
  public:
    struct Buttons {
        CommandButton& cmdAdd;
        CommandButton& cmdRemove;
        CommandButton& cmdClear;
    };

    /// Connects the box and its buttons, which must outlive it.
    Recipients(ComboBox& cboNotEmail, Buttons buttons);
    Recipients(const Recipients&) = delete;
    Recipients& operator=(const Recipients&) = delete;

  private:
    void cmdAdd_Click();
    void cmdRemove_Click();
    void cboNotEmail_KeyPress(int code);

    ComboBox& box_;
};

}  // namespace velmora
