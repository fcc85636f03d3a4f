// Starting and pausing the watch: one toggle whose state is its own caption and Timer1, the custom
// watch time that runs it by the clock, and the interval's spinners.
#pragma once

#include <string>

#include "alerts/journal/alert_list.h"
#include "forms/forms.h"
#include "monitor/ports.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class WatchControl final : public WatchSwitch {
  public:
    /// Connects the handlers to the forms.
    WatchControl(Forms& forms, Platform& platform, Host& host, AlertList& alerts, Tray& tray,
                 AlertDialog& dialog);
    WatchControl(const WatchControl&) = delete;
    WatchControl& operator=(const WatchControl&) = delete;

    void cmdPause_Click() override;
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
    void stepSeconds(int by);
    void stepIntervalUp();
    void stepIntervalDown();

    Forms& forms_;
    Platform& platform_;
    Host& host_;
    AlertList& alerts_;
    Tray& tray_;
    AlertDialog& dialog_;
};

}  // namespace velmora
