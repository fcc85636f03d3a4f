// Starting and pausing the watch: one toggle whose state is its own caption and Timer1, the custom
// watch time that runs it by the clock, and the interval's spinners.
#pragma once

#include <string>

#include "alerts/dialog/alert_dialog_window.h"
#include "alerts/journal/alert_list.h"
#include "base/regional.h"
#include "forms/forms.h"
#include "monitor/ports.h"
#include "platform/clock.h"
#include "platform/host.h"

namespace velmora {

/// What the watch control asks besides the forms.
struct WatchControlParts {
    AlertList& alerts;
    AlertDialogWindow& alertDialog;
    Tray& tray;
};

class WatchControl {
  public:
    /// Connects the handlers to the forms.
    WatchControl(Forms& forms, Clock& clock, const Regional& regional, Host& host,
                 WatchControlParts parts);
    WatchControl(const WatchControl&) = delete;
    WatchControl& operator=(const WatchControl&) = delete;

    /// Starts the watch when it is paused and pauses it when it runs.
    void cmdPause_Click();
    void mnuPause_Click();
    /// Each minute: the tray tip, then the custom watch time. An error ends it with an alert.
    void TimerCust_Timer();
    void chkCustTime_Click();

  private:
    void pause();
    void start();
    std::string trayTip();
    void runByCustomTime();
    void report(const std::string& alertWords, const std::string& journalWords);
    void moveEndOn();
    void switchTimerByStart();
    void stepIntervalUp();
    void stepIntervalDown();

    Forms& forms_;
    Clock& clock_;
    const Regional& regional_;
    Host& host_;
    WatchControlParts parts_;
};

}  // namespace velmora
