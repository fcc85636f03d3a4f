// The program without a surface: every subsystem, wired to its ports. Window and console put a host
// in front of it.
#pragma once

#include "alerts/alert_list.h"
#include "controls/timer_queue.h"
#include "forms/forms.h"
#include "monitor/check_cycle.h"
#include "monitor/drive_meter.h"
#include "monitor/life_cycle.h"
#include "monitor/minimum_space.h"
#include "monitor/space_statistics.h"
#include "monitor/trigger_entry.h"
#include "monitor/watch_control.h"
#include "monitor/watch_list.h"
#include "monitor/watch_list_commands.h"
#include "persist/options.h"
#include "persist/registry.h"
#include "persist/settings_file.h"
#include "persist/shell_links.h"
#include "platform/host.h"
#include "platform/notify_area.h"
#include "platform/platform.h"

namespace velmora {

/// The settings file behind the port of whoever saves and loads settings.
class SettingsPort final : public SettingsStore {
  public:
    SettingsPort(Forms& forms, Platform& platform, Host& host) : file_(forms, platform, host) {}
    void prcSettings(std::int16_t bSet) override { file_.prcSettings(bSet); }

  private:
    SettingsFile file_;
};

class Core {
  public:
    Core(Forms& forms, Platform& platform, Host& host, NotifyArea& notifyArea);

    /// Builds the running state.
    void load() { lifeCycle_.Form_Load(); }
    AlertList& alerts() { return alerts_; }

  private:
    MonitorPorts ports();

    IdlePorts idle_;
    SettingsPort settings_;
    AlertList alerts_;
    Registry registry_;
    ShellLinks shellLinks_;
    FileList fileList_;
    Options options_;
    SpaceStatistics statistics_;
    DriveMeter driveMeter_;
    WatchControl watchControl_;
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
