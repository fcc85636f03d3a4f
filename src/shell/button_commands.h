// The main window's buttons that only forward.
#pragma once

#include "forms/dlg_drive_info.h"
#include "forms/form1.h"
#include "persist/settings_file.h"
#include "shell/about_box.h"

namespace velmora {

class ButtonCommands {
  public:
    /// Connects the buttons.
    ButtonCommands(Form1& form1, DlgDriveInfo& dlgDriveInfo, AboutBox& aboutBox,
                   SettingsFile& settings);
    ButtonCommands(const ButtonCommands&) = delete;
    ButtonCommands& operator=(const ButtonCommands&) = delete;

    /// Saves the settings, then shows the about box; not when the saving fails.
    void Command8_Click();

  private:
    AboutBox& aboutBox_;
    SettingsFile& settings_;
};

}  // namespace velmora
