// One watched row of a check: measure its drive, compare it with its trigger, look for events and,
// on a shortage, raise the alert and run the ticked actions.
#pragma once

#include <cstdint>
#include <string>

#include "alerts/journal/alert_list.h"
#include "forms/forms.h"
#include "monitor/ports.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

enum class RowOutcome {
    done,
    overHundredPercent,  ///< the percent value isn't one: the check closes at once
};

class RowCheck {
  public:
    RowCheck(Forms& forms, Platform& platform, Host& host, AlertList& alerts, MonitorPorts ports)
        : forms_(forms), platform_(platform), host_(host), alerts_(alerts), ports_(ports) {}

    /// Checks row `i` of ListView1. `lngMinSpace` is carried from row to row: percent mode turns
    /// it into KB and leaves it so.
    RowOutcome check(int i, std::int32_t& lngMinSpace);

  private:
    RowOutcome testTrigger(int i, Drive& drive, std::int32_t& lngMinSpace, bool& bShortage);
    bool toWholeKB(Drive& drive, std::int32_t& lngMinSpace);
    const std::string& timeChecked();
    void reportShortage(int i, const std::string& text, Drive& drive, std::int32_t lngMinSpace);
    void runActions(Shortage& shortage);
    void showDialogForNewText(const Shortage& shortage);
    void reportEnoughSpace(int i, const std::string& text);
    void showState(int i, const std::string& text, const char* icon);

    Forms& forms_;
    Platform& platform_;
    Host& host_;
    AlertList& alerts_;
    MonitorPorts ports_;
    DateTime lastChecked_;
    std::string lastCheckedText_;
};

}  // namespace velmora
