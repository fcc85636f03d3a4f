#include "persist/options.h"

namespace velmora {

namespace {

constexpr const char* runKey =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr const char* runName = "Velmora";

}  // namespace

Options::Options(Forms& forms, Platform& platform, Registry& registry)
    : forms_(forms), platform_(platform), registry_(registry) {
    Form1& form1 = forms_.form1;
    form1.chkStartUp.Click.connect([this] { chkStartUp_Click(); });
    form1.chkLog.Click.connect([this] { chkLog_Click(); });
    form1.chkUpdate.Click.connect(
        [this] { forms_.globals.bAutoUpdate = forms_.form1.chkUpdate.ticked(); });
}

// Switched off, the value stays in the key, empty.
void Options::chkStartUp_Click() {
    const Application& app = platform_.app;
    const bool on = forms_.form1.chkStartUp.ticked();
    registry_.prcRegSetValue(runKey, runName, on ? app.Path + "\\" + app.EXEName : "");
}

void Options::chkLog_Click() {
    Form1& form1 = forms_.form1;
    form1.txtAlert.setVisible(form1.chkLog.ticked());
    form1.txtAlert.setEnabled(form1.chkLog.ticked());
}

}  // namespace velmora
