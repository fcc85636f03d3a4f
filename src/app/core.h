// The program without a surface: every subsystem, wired to its ports. Window and console put
// themselves in front of it.
#pragma once

#include <optional>

#include "alerts/actions/action_branch.h"
#include "alerts/actions/action_list_rules.h"
#include "alerts/dialog/alert_dialog_hiding.h"
#include "alerts/dialog/alert_dialog_options.h"
#include "alerts/dialog/alert_dialog_window.h"
#include "alerts/journal/alert_list.h"
#include "alerts/journal/journal_log.h"
#include "alerts/lists/file_list_buttons.h"
#include "alerts/lists/manual_operations.h"
#include "alerts/lists/program_list.h"
#include "alerts/system/sound_buttons.h"
#include "alerts/system/system_actions.h"
#include "app/port_adapters.h"
#include "controls/timer_queue.h"
#include "forms/forms.h"
#include "inspect/wait_test.h"
#include "monitor/check_cycle.h"
#include "monitor/drive_meter.h"
#include "monitor/event_detection.h"
#include "monitor/life_cycle.h"
#include "monitor/minimum_space.h"
#include "monitor/space_statistics.h"
#include "monitor/trigger_entry.h"
#include "monitor/watch_alerts.h"
#include "monitor/watch_control.h"
#include "monitor/watch_list.h"
#include "monitor/watch_list_commands.h"
#include "persist/options.h"
#include "persist/registry.h"
#include "persist/settings_file.h"
#include "persist/shell_links.h"
#include "platform/platform.h"
#include "platform/surface.h"
#include "shell/about_box.h"
#include "shell/button_commands.h"
#include "shell/label_look.h"
#include "shell/menu_commands.h"
#include "shell/program_lock.h"
#include "shell/reachability.h"
#include "shell/recycle_bin_view.h"
#include "shell/row_icons.h"
#include "shell/tab_selection.h"
#include "shell/tool_bar_commands.h"
#include "shell/tray_icon.h"
#include "shell/window_effects.h"
#include "shell/window_layout.h"

namespace velmora {

class Core {
  public:
    Core(Forms& forms, Platform& platform, Surface surface);

    /// Builds the running state.
    void load();
    AlertList& alerts() { return alerts_; }

  private:
    MonitorPorts ports();
    AlertPorts alertPorts();

    Forms& forms_;
    Host& host_;
    IdlePorts idle_;
    IdleAlertPorts idleAlerts_;
    AlertDialogWindow alertDialog_;
    SettingsPort settings_;
    AlertList alerts_;
    SystemActions systemActions_;
    Registry registry_;
    ShellLinks shellLinks_;
    PropertiesPort properties_;
    FileList fileList_;
    Options options_;
    SpaceStatistics statistics_;
    DriveMeter driveMeter_;

    TrayIcon tray_;
    WindowEffects windowEffects_;
    JournalLog journalLog_;
    SoundButtons soundButtons_;
    AlertDialogHiding alertDialogHiding_;
    AlertDialogOptions alertDialogOptions_;
    Actions actions_;
    FileListButtons fileListButtons_;
    ProgramList programList_;
    ManualOperations manualOperations_;
    std::optional<ActionListRules> actionListRules_;
    WatchAlerts watchAlerts_;
    WaitTest waitTest_;
    EventPass events_;
    SystemRowIcons rowIcons_;
    ProgramLock lock_;
    AboutBox aboutBox_;
    RecycleBinView recycleBin_;
    Reachability reachability_;
    WindowLayout layout_;
    TabSelection tabs_;
    LabelLook labelLook_;

    WatchControl watchControl_;
    WatchList watchList_;
    WatchListCommands watchListCommands_;
    MinimumSpace minimumSpace_;
    TriggerEntry triggerEntry_;
    CheckCycle checkCycle_;
    LifeCycle lifeCycle_;

    ShellPorts shellPorts_;
    ToolBarCommands toolBarCommands_;
    MenuCommands menuCommands_;
    ButtonCommands buttonCommands_;
};

/// Puts every timer of the forms into the queue.
void addTimers(Forms& forms, TimerQueue& queue);

}  // namespace velmora
