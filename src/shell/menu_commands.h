// The items of the main window's menus, except those that belong to a subsystem of their own.
#pragma once

#include <string>

#include "alerts/journal/alert_list.h"
#include "alerts/system/system_actions.h"
#include "forms/forms.h"
#include "monitor/drive_meter.h"
#include "platform/host.h"
#include "platform/platform.h"
#include "shell/about_box.h"
#include "shell/recycle_bin_view.h"
#include "shell/tray_icon.h"

namespace velmora {

/// What the menus' commands call besides the forms.
struct MenuParts {
    AlertList& alerts;
    SystemActions& systemActions;
    DriveMeter& driveMeter;
    TrayIcon& tray;
    AboutBox& aboutBox;
    RecycleBinView& recycleBin;
};

class MenuCommands {
  public:
    /// Connects the menu items.
    MenuCommands(Forms& forms, Platform& platform, Host& host, MenuParts parts);
    MenuCommands(const MenuCommands&) = delete;
    MenuCommands& operator=(const MenuCommands&) = delete;

    // The menu of the icon in the notification area.
    void mnuLock_Click();
    void mnuHide_Click();
    void mnuContent_Click();
    void mnuNotif_Click();
    void mnuPWP_Click();

    // The menu of the watch list. Without a selected row they do nothing.
    void mnuExplore_Click();
    void mnuParam_Click();
    void mnuInfo_Click();

    // The menu of the tool bar's "Functions".
    void mnuProgSet_Click();
    void mnuDefrag_Click();
    /// An error becomes an alert, and one of that alert is passed over.
    void mnuEmptyRecyc_Click();
    void mnuToSystray_Click();

  private:
    void connectTrayMenu();
    void connectListMenu();
    void connectFunctionsMenu();
    void raise(const std::string& text);

    Forms& forms_;
    Form1& form1_;
    Platform& platform_;
    Host& host_;
    MenuParts parts_;
};

}  // namespace velmora
