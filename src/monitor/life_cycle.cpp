#include "monitor/life_cycle.h"

#include <algorithm>
#include <limits>

#include "base/convert.h"
#include "base/maker.h"
#include "base/scope_guard.h"
#include "forms/form_numbers.h"
#include "platform/show_window.h"
#include "rows/watch_columns.h"
#include "rows/watch_row.h"

namespace velmora {

LifeCycle::LifeCycle(Forms& forms, Platform& platform, Host& host, LifeCycleParts parts)
    : forms_(forms), platform_(platform), host_(host), parts_(parts) {
    forms_.form1.mnuExit.Click.connect([this] { mnuExit_Click(); });
    forms_.form1.Command6.Click.connect([this] { mnuExit_Click(); });
    forms_.form1.mnuComments.Click.connect([this] { prcComment(); });
}

void LifeCycle::Form_Load() {
    Form1& form1 = forms_.form1;
    forms_.globals.lastFileTime = platform_.clock.GetSystemTimeAsFileTime();
    forms_.globals.strSettings = platform_.app.DataPath + "\\set.dat";
    addWatchColumns(forms_.form1.ListView1);
    // The list is empty: this only shows the countdown.
    parts_.checkCycle.Timer1_Timer();
    parts_.watchControl.chkCustTime_Click();
    forms_.sysWorkSystray.Show();
    form1.Show();
    parts_.watchList.RefreshDrive();
    parts_.watchControl.chkCustTime_Click();
    // The first tick's interval, taken from the picker, is no setting: the file must have one.
    form1.txtTime.setText("");
    parts_.settings.prcSettings(settings_order::read);
    noteStart();
    forms_.sysWorkSystray.Hide();
    form1.setSize(form1_size::startWidth, form1_size::fullHeight);
    form1.lblLog.setCaption(platform_.app.DataPath + "\\log.dat");
    form1.lblTab[0].Click();
    form1.lblSpectab[0].Click();
    form1.OpDriv[0].choose();
    parts_.commandLine.prcCommandAdd();
    if (form1.chkUpdate.ticked()) parts_.updateCheck.prcCheckUpdate();
    for (int i = 1; i <= form1.ListView1.Count(); ++i) {
        parts_.events.prcSetPrevInfoLV(form1.ListView1.ListItems(i));
    }
}

// Stops at the greatest 32-bit number, as the figures of a refresh do.
std::int32_t LifeCycle::sumOfFreeKB() {
    double sum = 0;
    ListView& list = forms_.form1.ListView1;
    for (int i = 1; i <= list.Count(); ++i) {
        const ConstWatchRow row(list.ListItems(i));
        if (row.isMeasured()) sum += row.freeKB(platform_.regional);
    }
    return static_cast<std::int32_t>(withinLong(sum));
}

void LifeCycle::noteStart() {
    const std::int32_t sum = sumOfFreeKB();
    const DateTime now = platform_.clock.Now();
    forms_.form1.lblAppStart.setCaption(Format(now, "yyyy/mm/dd hh:mm AMPM"));
    forms_.globals.dtAppStart = now;
    forms_.globals.lngStartFreeKB = sum;
}

void LifeCycle::prcComment() {
    const std::string link = std::string("mailto:") + maker::supportAddress + "?subject=comments";
    platform_.shell32.ShellExecuteA(forms_.form1.Name(), "open", link, "", "", normalWindow);
}

void LifeCycle::mnuExit_Click() {
    ScopeGuard afterFailure([this] { parts_.stayOnTop.restore(); });
    parts_.stayOnTop.drop();
    const BoxAnswer answer = host_.MsgBox(
        {.text = "Exit the program?", .icon = BoxIcon::question, .buttons = BoxButtons::okCancel});
    afterFailure.dismiss();
    // When the program ends, staying on top isn't restored.
    if (answer != BoxAnswer::ok) return parts_.stayOnTop.restore();
    NotifyIconData icon;
    icon.window = forms_.sysWorkSystray.Name();
    parts_.notifyArea.Shell_NotifyIconA(NotifyMessage::remove, icon);
    Form_Unload();
    throw ProgramEnd{0};
}

}  // namespace velmora
