#include "shell/button_commands.h"

#include "forms/form_numbers.h"

namespace velmora {

// Command7, lblTabCap and lblFolder have empty handlers.
ButtonCommands::ButtonCommands(Form1& form1, DlgDriveInfo& dlgDriveInfo, AboutBox& aboutBox,
                               SettingsFile& settings)
    : aboutBox_(aboutBox), settings_(settings) {
    form1.cmdAdv.Click.connect([&dlgDriveInfo] { dlgDriveInfo.Show(); });
    form1.Command1.Click.connect([&form1] { form1.lblDP[watch_button::refresh].Click(); });
    form1.Command8.Click.connect([this] { Command8_Click(); });
    form1.lblAbout.Click.connect([this] { aboutBox_.showAbout(); });
}

void ButtonCommands::Command8_Click() {
    settings_.prcSettings(settings_order::write);
    aboutBox_.showAbout();
}

}  // namespace velmora
