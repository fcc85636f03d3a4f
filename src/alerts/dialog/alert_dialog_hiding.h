// How the alert dialog gets out of the way: half translucent when the user wants to see through it,
// and hidden by itself after a countdown.
#pragma once

#include <cstdint>

#include "alerts/journal/journal_log.h"
#include "alerts/ports.h"
#include "forms/dialogs.h"

namespace velmora {

class AlertDialogHiding {
  public:
    /// Connects the dialog's loading, its two check boxes and its timer.
    AlertDialogHiding(DlgAlert& dlgAlert, Translucency& translucency, JournalLog& log);
    AlertDialogHiding(const AlertDialogHiding&) = delete;
    AlertDialogHiding& operator=(const AlertDialogHiding&) = delete;

    void Load();
    /// Between half translucent and opaque.
    void chkLog_Click();
    void chkAutoHide_Click();
    /// Counts down while the dialog is shown and hides it at the end, with a save of the journal.
    /// An error of the save goes to the caller; the countdown is ready for the next showing then.
    void Timer1_Timer();

  private:
    void applyLevel(int percent);
    void dismiss();
    void rest();

    DlgAlert& dlgAlert_;
    Translucency& translucency_;
    JournalLog& log_;
    std::int16_t iDismissCount_;  // ticks left
    int level_;                   // translucency in percent
};

}  // namespace velmora
