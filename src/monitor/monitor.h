// The monitoring as one part of the program: the watch list, the check over it, the control of the
// watch, and the start and end of the program.
#pragma once

#include "alerts/alerts.h"
#include "inspect/inspect.h"
#include "monitor/check_cycle.h"
#include "monitor/command_line.h"
#include "monitor/drive_meter.h"
#include "monitor/event_detection.h"
#include "monitor/life_cycle.h"
#include "monitor/minimum_space.h"
#include "monitor/ports.h"
#include "monitor/row_check.h"
#include "monitor/space_statistics.h"
#include "monitor/trigger_entry.h"
#include "monitor/watch_control.h"
#include "monitor/watch_list.h"
#include "monitor/watch_list_commands.h"
#include "notify/update_check.h"
#include "persist/persist.h"
#include "platform/surface.h"

namespace velmora {

class Monitor {
  public:
    /// The parts of the program that it calls.
    struct Parts {
        Alerts& alerts;
        Persist& persist;
        Inspect& inspect;
        UpdateCheck& updateCheck;
    };
    /// What the main window's side provides.
    struct Window {
        StayOnTop& stayOnTop;
        Tray& tray;
        RowIcons& rowIcons;
    };

    /// Connects the handlers to the forms. All of the arguments must outlive it.
    Monitor(Forms& forms, Platform& platform, const Surface& surface, Parts parts, Window window);

    LifeCycle& lifeCycle() { return lifeCycle_; }
    CommandLine& commandLine() { return commandLine_; }
    DriveMeter& driveMeter() { return driveMeter_; }
    WatchList& watchList() { return watchList_; }
    WatchListCommands& watchListCommands() { return watchListCommands_; }
    MinimumSpace& minimumSpace() { return minimumSpace_; }
    CheckCycle& checkCycle() { return checkCycle_; }

  private:
    SpaceStatistics statistics_;
    DriveMeter driveMeter_;
    EventPass events_;
    WatchControl watchControl_;
    WatchList watchList_;
    WatchListCommands watchListCommands_;
    MinimumSpace minimumSpace_;
    TriggerEntry triggerEntry_;
    RowCheck rowCheck_;
    HistoryView history_;
    CheckCycle checkCycle_;
    CommandLine commandLine_;
    LifeCycle lifeCycle_;
};

}  // namespace velmora
