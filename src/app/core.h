// The program without a surface: its parts, put together. The window and the console run on it.
#pragma once

#include "alerts/alerts.h"
#include "controls/timer_queue.h"
#include "forms/forms.h"
#include "inspect/inspect.h"
#include "monitor/monitor.h"
#include "monitor/watch_alerts.h"
#include "notify/notify.h"
#include "persist/persist.h"
#include "platform/platform.h"
#include "platform/surface.h"
#include "shell/desktop.h"
#include "shell/shell.h"

namespace velmora {

class Core {
  public:
    Core(Forms& forms, Platform& platform, Surface surface);

    /// Builds the running state.
    void load();
    AlertList& alerts() { return alerts_.list(); }
    Persist& persist() { return persist_; }
    WatchList& watchList() { return monitor_.watchList(); }
    CheckCycle& checkCycle() { return monitor_.checkCycle(); }
    Notify& notify() { return notify_; }
    SecondStart& secondStart() { return shell_.secondStart(); }

  private:
    // Each is built from those above it.
    Persist persist_;
    Desktop desktop_;
    Alerts alerts_;
    WatchAlerts watchAlerts_;
    Inspect inspect_;
    Notify notify_;
    Monitor monitor_;
    Shell shell_;
};

/// Puts every timer of the forms into the queue.
void addTimers(Forms& forms, TimerQueue& queue);

}  // namespace velmora
