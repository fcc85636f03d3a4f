// Start and end of the program: Form_Load builds the running state in a fixed order, and the exit
// question is the only way out.
#pragma once

#include "forms/forms.h"
#include "monitor/check_cycle.h"
#include "monitor/minimum_space.h"
#include "monitor/watch_list.h"
#include "platform/notify_area.h"

namespace velmora {

class LifeCycle {
  public:
    /// Connects the exit commands.
    LifeCycle(Forms& forms, Platform& platform, Host& host, NotifyArea& notifyArea,
              StayOnTop& stayOnTop);
    LifeCycle(const LifeCycle&) = delete;
    LifeCycle& operator=(const LifeCycle&) = delete;

    void Form_Load(CheckCycle& checkCycle, WatchList& watchList);
    /// Asks, and on OK removes the tray icon and throws ProgramEnd.
    void mnuExit_Click();
    /// Hides the window; the program goes on.
    void Form_Unload() { forms_.form1.Hide(); }

  private:
    void addColumns();

    Forms& forms_;
    Platform& platform_;
    Host& host_;
    NotifyArea& notifyArea_;
    StayOnTop& stayOnTop_;
};

}  // namespace velmora
