#include "monitor/life_cycle.h"

namespace velmora {

LifeCycle::LifeCycle(Forms& forms, Platform& platform, Host& host, NotifyArea& notifyArea,
                     StayOnTop& stayOnTop)
    : forms_(forms),
      platform_(platform),
      host_(host),
      notifyArea_(notifyArea),
      stayOnTop_(stayOnTop) {
    forms_.form1.mnuExit.Click.connect([this] { mnuExit_Click(); });
    forms_.form1.Command6.Click.connect([this] { mnuExit_Click(); });
}

void LifeCycle::Form_Load(CheckCycle& checkCycle, WatchList& watchList) {
    addColumns();
    // The list is empty: this only shows the countdown.
    checkCycle.Timer1_Timer();
    forms_.form1.Show();
    watchList.RefreshDrive();
    forms_.form1.setSize(8030, 9100);
    forms_.form1.lblLog.setCaption(platform_.app.Path + "\\log.dat");
    forms_.form1.OpDriv[0].choose();
}

void LifeCycle::addColumns() {
    ListView& list = forms_.form1.ListView1;
    list.addColumn({"Drive Path", 2000});
    list.addColumn({"Free Space", 1500, Alignment::right});
    list.addColumn({"Total Size", 1500, Alignment::right});
    list.addColumn({"Trigger Space", 1400, Alignment::right});
    list.addColumn({"Time Last Checked", 1480});
}

void LifeCycle::mnuExit_Click() {
    stayOnTop_.drop();
    const BoxAnswer answer = host_.MsgBox({.text = "Exit the program?",
                                           .icon = BoxIcon::question,
                                           .buttons = BoxButtons::okCancel});
    if (answer != BoxAnswer::ok) {
        stayOnTop_.restore();
        return;
    }
    NotifyIconData icon;
    icon.window = forms_.sysWorkSystray.Name();
    notifyArea_.Shell_NotifyIconA(NotifyMessage::remove, icon);
    Form_Unload();
    throw ProgramEnd{0};
}

}  // namespace velmora
