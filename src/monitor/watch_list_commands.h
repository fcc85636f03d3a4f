// The commands on the watch list: the labels under it, the buttons that repeat them, its ticks,
// clicks and menu.
#pragma once

#include "monitor/ports.h"
#include "monitor/watch_list.h"
#include "platform/host.h"

namespace velmora {

class WatchListCommands {
  public:
    /// Connects the handlers to the forms.
    WatchListCommands(Forms& forms, Platform& platform, Host& host, AlertList& alerts,
                      WatchList& watchList, MonitorPorts ports);
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

    Forms& forms_;
    Platform& platform_;
    Host& host_;
    AlertList& alerts_;
    WatchList& watchList_;
    MonitorPorts ports_;
};

}  // namespace velmora
