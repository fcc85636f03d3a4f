// The tool bar: a button's caption is the key of its command.
#pragma once

#include "forms/forms.h"
#include "platform/host.h"
#include "platform/platform.h"
#include "shell/window_layout.h"

namespace velmora {

class ToolBarCommands {
  public:
    /// Connects the tool bar.
    ToolBarCommands(Forms& forms, Platform& platform, Host& host, WindowLayout& layout);
    ToolBarCommands(const ToolBarCommands&) = delete;
    ToolBarCommands& operator=(const ToolBarCommands&) = delete;

    /// Runs the command of the caption that button `index` has now; an unknown caption has none.
    void Toolbar1_ButtonClick(int index);

  private:
    void askForHelp();

    Forms& forms_;
    Platform& platform_;
    Host& host_;
    WindowLayout& layout_;
};

}  // namespace velmora
