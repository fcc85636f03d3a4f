#include "shell/second_start.h"

#include "shell/program_lock.h"

namespace velmora {

void SecondStart::take(const std::string& command) {
    app_.Command = command;
    commandLine_.prcCommandAdd();
    comeToFront();
}

void SecondStart::comeToFront() {
    if (forms_.globals.bLocked) {
        prcSrvFrm(forms_);
        user32_.SetForegroundWindow(forms_.frmLock.Name());
        return;
    }
    Form1& form1 = forms_.form1;
    form1.mnuHide.setChecked(false);
    form1.Show();
    if (form1.State() == WindowState::minimised) form1.setState(WindowState::normal);
    user32_.SetForegroundWindow(form1.Name());
}

}  // namespace velmora
