// The main window's frame as one part of the program: its tabs and size, its menus, tool bar and
// buttons, the lock, the about box and the setup wizard.
#pragma once

#include <string>

#include "alerts/alerts.h"
#include "monitor/monitor.h"
#include "persist/persist.h"
#include "platform/surface.h"
#include "shell/about_box.h"
#include "shell/button_commands.h"
#include "shell/desktop.h"
#include "shell/drive_view.h"
#include "shell/label_look.h"
#include "shell/menu_commands.h"
#include "shell/program_lock.h"
#include "shell/reachability.h"
#include "shell/recycle_bin_view.h"
#include "shell/second_start.h"
#include "shell/tab_selection.h"
#include "shell/tool_bar_commands.h"
#include "shell/window_layout.h"
#include "shell/wizard/setup_wizard.h"

namespace velmora {

class Shell {
  public:
    /// The parts of the program that the commands call.
    struct Parts {
        Desktop& desktop;
        Alerts& alerts;
        Persist& persist;
        Monitor& monitor;
    };

    /// Connects the handlers to the forms. All of the arguments must outlive it.
    /// `version` as the about box shows it ("1.0.0").
    Shell(Forms& forms, Platform& platform, const Surface& surface, Parts parts,
          const std::string& version);

    SecondStart& secondStart() { return secondStart_; }

  private:
    ProgramLock lock_;
    AboutBox aboutBox_;
    RecycleBinView recycleBin_;
    Reachability reachability_;
    DriveView driveView_;
    WindowLayout layout_;
    TabSelection tabs_;
    LabelLook labelLook_;
    ToolBarCommands toolBarCommands_;
    MenuCommands menuCommands_;
    ButtonCommands buttonCommands_;
    SetupWizard wizard_;
    SecondStart secondStart_;
};

}  // namespace velmora
