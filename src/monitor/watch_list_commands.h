// The commands on the watch list: the labels under it, the buttons that repeat them, its ticks,
// clicks and menu.
#pragma once

#include "alerts/journal/alert_list.h"
#include "alerts/ports.h"
#include "forms/forms.h"
#include "monitor/drive_meter.h"
#include "monitor/watch_list.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

/// What the commands call besides the forms.
struct WatchListParts {
    WatchList& watchList;
    DriveMeter& driveMeter;
    AlertList& alerts;
    StayOnTop& stayOnTop;
};

class WatchListCommands {
  public:
    /// Connects the handlers to the forms.
    WatchListCommands(Form1& form1, Globals& globals, Platform& platform, Host& host,
                      WatchListParts parts);
    WatchListCommands(const WatchListCommands&) = delete;
    WatchListCommands& operator=(const WatchListCommands&) = delete;

    /// A click on label `index` from 0 to 4. An error ends it with an alert and no box.
    void lblDP_Click(int index);
    void cmdLVAdd_Click();

  private:
    void connect();
    bool mayDisturbCheck();
    void run(int index);
    void reportError(int index, const std::string& description);
    void addPath();
    void removeSelected();
    void clearAll();
    void selectDrive();

    Form1& form1_;
    Globals& globals_;
    Platform& platform_;
    Host& host_;
    WatchListParts parts_;
};

}  // namespace velmora
