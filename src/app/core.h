// The program without a surface: every subsystem, wired to its ports. Window and console put a host
// in front of it.
#pragma once

#include "alerts/alert_list.h"
#include "controls/timer_queue.h"
#include "forms/forms.h"
#include "monitor/check_cycle.h"
#include "monitor/life_cycle.h"
#include "monitor/minimum_space.h"
#include "monitor/trigger_entry.h"
#include "monitor/watch_list.h"
#include "monitor/watch_list_commands.h"
#include "platform/host.h"
#include "platform/notify_area.h"
#include "platform/platform.h"

namespace velmora {

class Core {
  public:
    Core(Forms& forms, Platform& platform, Host& host, NotifyArea& notifyArea);

    /// Builds the running state.
    void load() { lifeCycle_.Form_Load(checkCycle_, watchList_); }
    AlertList& alerts() { return alerts_; }

  private:
    IdlePorts idle_;
    MonitorPorts ports_;
    AlertList alerts_;
    WatchList watchList_;
    WatchListCommands watchListCommands_;
    MinimumSpace minimumSpace_;
    TriggerEntry triggerEntry_;
    CheckCycle checkCycle_;
    LifeCycle lifeCycle_;
};

/// Puts every timer of the forms into the queue.
void addTimers(Forms& forms, TimerQueue& queue);

}  // namespace velmora
