#include "shell/button_commands.h"

#include "forms/form_numbers.h"

namespace velmora {

// Command7, lblTabCap and lblFolder have empty handlers.
ButtonCommands::ButtonCommands(Forms& forms, AboutDialog& about) : about_(about) {
    Form1& form1 = forms.form1;
    form1.cmdAdv.Click.connect([&forms] { forms.dlgDriveInfo.Show(); });
    form1.Command1.Click.connect([&form1] { form1.lblDP[watch_button::refresh].Click(); });
    form1.Command8.Click.connect([this] { showAboutAfterSaving(); });
    form1.lblAbout.Click.connect([this] { about_.showAbout(); });
}

void ButtonCommands::showAboutAfterSaving() {
    about_.showAbout();
}

}  // namespace velmora
