// The main window's buttons that only forward.
#pragma once

#include "forms/forms.h"
#include "persist/settings_file.h"
#include "shell/about_box.h"

namespace velmora {

class ButtonCommands {
  public:
    /// Connects the buttons.
    ButtonCommands(Forms& forms, AboutBox& aboutBox, SettingsFile& settings);
    ButtonCommands(const ButtonCommands&) = delete;
    ButtonCommands& operator=(const ButtonCommands&) = delete;

    /// Saves the settings, then shows the about box; not when the saving fails.
    void Command8_Click();

  private:
    AboutBox& aboutBox_;
    SettingsFile& settings_;
};

}  // namespace velmora
