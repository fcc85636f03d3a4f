// The main window's buttons that only forward.
#pragma once

#include "forms/forms.h"
#include "shell/shell_ports.h"

namespace velmora {

class ButtonCommands {
  public:
    /// Connects the buttons. Whoever saves the settings on Command8 must be connected to it before:
    /// the about box comes after the saving, and not at all when that fails.
    ButtonCommands(Forms& forms, AboutDialog& about);
    ButtonCommands(const ButtonCommands&) = delete;
    ButtonCommands& operator=(const ButtonCommands&) = delete;

    void showAboutAfterSaving();

  private:
    AboutDialog& about_;
};

}  // namespace velmora
