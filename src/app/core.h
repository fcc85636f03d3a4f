// The program without a surface: every subsystem, wired to its ports. Window and console put
// themselves in front of it.
#pragma once

#include "alerts/alert_dialog_hiding.h"
#include "alerts/alert_dialog_options.h"
#include "alerts/alert_dialog_window.h"
#include "alerts/alert_list.h"
#include "alerts/journal_log.h"
#include "alerts/sound_buttons.h"
#include "alerts/system_actions.h"
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

/// The settings file behind the port of whoever saves and loads settings.
class SettingsPort final : public SettingsStore {
  public:
    SettingsPort(Forms& forms, Platform& platform, Host& host) : file_(forms, platform, host) {}
    void prcSettings(std::int16_t bSet) override { file_.prcSettings(bSet); }

  private:
    SettingsFile file_;
};

/// Dialogs of the shell behind the ports of the main window's commands.
class ShellPorts final : public LockDialog,
                         public SystrayIcon,
                         public AboutDialog,
                         public RecycleBinWindow {
  public:
    ShellPorts(Forms& forms, TrayIcon& tray, AboutBox& aboutBox, RecycleBinView& recycleBin)
        : forms_(forms), tray_(tray), aboutBox_(aboutBox), recycleBin_(recycleBin) {}
    void prcSrvFrm() override { velmora::prcSrvFrm(forms_); }
    void prcAddSystray(std::int16_t action, const std::string& text) override {
        tray_.prcAddSystray(action, text);
    }
    void showAbout() override { aboutBox_.showAbout(); }
    void RecycleBin() override { recycleBin_.RecycleBin(); }

  private:
    Forms& forms_;
    TrayIcon& tray_;
    AboutBox& aboutBox_;
    RecycleBinView& recycleBin_;
};

class Core {
  public:
    Core(Forms& forms, Platform& platform, Surface surface);

    /// Builds the running state.
    void load() { lifeCycle_.Form_Load(); }
    AlertList& alerts() { return alerts_; }

  private:
    MonitorPorts ports();

    IdlePorts idle_;
    AlertDialogWindow alertDialog_;
    SettingsPort settings_;
    AlertList alerts_;
    SystemActions systemActions_;
    Registry registry_;
    ShellLinks shellLinks_;
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
