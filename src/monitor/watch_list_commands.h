// The commands on the watch list: the labels under it, the buttons that repeat them, its ticks,
// clicks and menu, and paths dropped on it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "alerts/journal/alert_list.h"
#include "alerts/ports.h"
#include "forms/forms.h"
#include "monitor/drive_meter.h"
#include "monitor/dropped_folders.h"
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
    /// Drive paths dropped on the list: each folder is added as by label 0, and what was dropped is
    /// selected. A folder that is listed already isn't added again. An error ends the adding of its
    /// folder with an alert and no box.
    void ListView1_Drop(const std::vector<std::string>& paths);

    /// False when a check is running and the user, who is asked then, doesn't want it disturbed.
    bool mayDisturbCheck();
    /// Adds that path as "(..)" does one that was chosen. An error ends it with an alert.
    void add(const std::string& path);
    DroppedFolders& droppedFolders() { return droppedFolders_; }

  private:
    void connect();
    /// Runs a command by its label's number; an error becomes an alert.
    void guarded(int index, const std::function<void()>& command);
    void run(int index);
    void reportError(int index, const std::string& description);
    void addPath();
    void addChosen(const std::string& path);
    bool isListed(const std::string& path) const;
    void selectListed(const std::vector<std::string>& paths);
    void clearAll();
    void selectDrive();

    Form1& form1_;
    Globals& globals_;
    Platform& platform_;
    Host& host_;
    WatchListParts parts_;
    DroppedFolders droppedFolders_;
};

}  // namespace velmora
