// The tool bar: a button's caption is the key of its command.
#pragma once

#include "forms/form1.h"
#include "forms/frm_wizard.h"
#include "platform/host.h"
#include "platform/platform.h"
#include "shell/window_layout.h"

namespace velmora {

class ToolBarCommands {
  public:
    /// Connects the tool bar.
    ToolBarCommands(Form1& form1, FrmWizard& frmWizard, Platform& platform, Host& host,
                    WindowLayout& layout);
    ToolBarCommands(const ToolBarCommands&) = delete;
    ToolBarCommands& operator=(const ToolBarCommands&) = delete;

    /// Runs the command of the caption that button `index` has now; an unknown caption has none.
    void Toolbar1_ButtonClick(int index);

  private:
    Form1& form1_;
    FrmWizard& frmWizard_;
    Platform& platform_;
    Host& host_;
    WindowLayout& layout_;
};

}  // namespace velmora
