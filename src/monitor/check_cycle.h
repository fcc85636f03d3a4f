// The check cycle: the one procedure that paces the checks, walks the watched rows, survives its
// own errors and writes the status.
//
// One thread. The tick stops Timer1 and sets bChecking; it yields before every row and every
// action, and other handlers may change the list meanwhile, so rows are always read by index.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

#include "alerts/journal/alert_list.h"
#include "alerts/journal/journal_log.h"
#include "base/regional.h"
#include "base/runtime_error.h"
#include "base/time_text.h"
#include "controls/event.h"
#include "forms/forms.h"
#include "monitor/history/history_view.h"
#include "monitor/ports.h"
#include "monitor/row_check.h"
#include "monitor/space_statistics.h"
#include "persist/settings_file.h"
#include "platform/clock.h"
#include "platform/host.h"
#include "platform/start_options.h"

namespace velmora {

/// What the cycle calls.
struct CheckParts {
    RowCheck& rowCheck;
    AlertList& alerts;
    JournalLog& log;
    SettingsFile& settings;
    SpaceStatistics& statistics;
    HistoryView& history;
    RowIcons& rowIcons;
    const StartOptions& options;
};

class CheckCycle {
  public:
    /// Connects Timer1.
    CheckCycle(Forms& forms, Clock& clock, const Regional& regional, Host& host, CheckParts parts);
    CheckCycle(const CheckCycle&) = delete;
    CheckCycle& operator=(const CheckCycle&) = delete;

    /// A check has ended and is counted; what follows a check is still to come. Errors of its
    /// handlers end the check as those of its own steps.
    Notice<> Checked;

    /// One tick: counts down, or checks when the interval is due. Never throws a run-time error.
    void Timer1_Timer();
    /// Milliseconds counted towards the next check.
    std::int32_t lngElapsedMs() const { return lngElapsedMs_; }

  private:
    void tick(std::int16_t intErrCount);
    bool isDue();
    std::int32_t prepare();
    void setDefaults();
    int walkRows(std::int32_t lngMinSpace);
    void showProgress(const std::string& text);
    void closeCheck(int i);
    void saveAtClosing();
    std::exception_ptr saveSettings();
    void closeTick();
    void reportErrorLimit();
    bool retryAfter(const RuntimeError& failure, std::int16_t& intErrCount);

    Forms& forms_;
    Clock& clock_;
    const Regional& regional_;
    Host& host_;
    CheckParts parts_;
    std::int32_t lngElapsedMs_ = 0;
    TimeText timeChecked_;
    std::string rowText_;  // kept for the room that it has
};

}  // namespace velmora
