#include "persist/options.h"

namespace velmora {

namespace {

constexpr const char* runKey =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr const char* runName = "Velmora";

}  // namespace

Options::Options(Form1& form1, Globals& globals, const Application& app, Registry& registry)
    : form1_(form1), globals_(globals), app_(app), registry_(registry) {
    form1_.chkStartUp.Click.connect([this] { chkStartUp_Click(); });
    form1_.chkLog.Click.connect([this] { chkLog_Click(); });
    form1_.chkUpdate.Click.connect([this] { globals_.bAutoUpdate = form1_.chkUpdate.ticked(); });
}

// Switched off, the value stays in the key, empty.
void Options::chkStartUp_Click() {
    const bool on = form1_.chkStartUp.ticked();
    registry_.prcRegSetValue(runKey, runName, on ? app_.Path + "\\" + app_.EXEName : "");
}

void Options::chkLog_Click() {
    form1_.txtAlert.setVisible(form1_.chkLog.ticked());
    form1_.txtAlert.setEnabled(form1_.chkLog.ticked());
}

}  // namespace velmora
