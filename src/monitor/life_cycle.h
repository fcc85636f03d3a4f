// Start and end of the program: Form_Load builds the running state in a fixed order, and the exit
// question is the only way out.
#pragma once

#include "alerts/ports.h"
#include "forms/forms.h"
#include "monitor/check_cycle.h"
#include "monitor/command_line.h"
#include "monitor/event_detection.h"
#include "monitor/watch_control.h"
#include "monitor/watch_list.h"
#include "notify/update_check.h"
#include "persist/settings_file.h"
#include "platform/notify_area.h"

namespace velmora {

/// What the start and the end of the program touch besides the forms.
struct LifeCycleParts {
    CheckCycle& checkCycle;
    WatchList& watchList;
    WatchControl& watchControl;
    EventPass& events;
    CommandLine& commandLine;
    SettingsFile& settings;
    UpdateCheck& updateCheck;
    StayOnTop& stayOnTop;
    NotifyArea& notifyArea;
};

class LifeCycle {
  public:
    /// Connects the exit commands.
    LifeCycle(Forms& forms, Platform& platform, Host& host, LifeCycleParts parts);
    LifeCycle(const LifeCycle&) = delete;
    LifeCycle& operator=(const LifeCycle&) = delete;

    /// Error 53 when the settings file is missing, and those of its values.
    void Form_Load();
    /// Opens a mail to the maker.
    void prcComment();
    /// Asks, and on OK removes the tray icon and throws ProgramEnd.
    void mnuExit_Click();
    /// Hides the window; the program goes on.
    void Form_Unload() { forms_.form1.Hide(); }

  private:
    std::int32_t sumOfFreeKB();
    void noteStart();

    Forms& forms_;
    Platform& platform_;
    Host& host_;
    LifeCycleParts parts_;
};

}  // namespace velmora
