#include "alerts/dialog/alert_dialog_hiding.h"

#include "base/convert.h"
#include "base/scope_guard.h"

namespace velmora {

namespace {

constexpr std::int16_t ticksToDismissal = 10;
constexpr int tickInterval = 9000;  // milliseconds
constexpr int half = 50;
constexpr int opaque = 100;

}  // namespace

AlertDialogHiding::AlertDialogHiding(DlgAlert& dlgAlert, Translucency& translucency,
                                     JournalLog& log)
    : dlgAlert_(dlgAlert),
      translucency_(translucency),
      log_(log),
      iDismissCount_(ticksToDismissal),
      level_(opaque) {
    dlgAlert_.Load.connect([this] { Load(); });
    dlgAlert_.chkLog.Click.connect([this] { chkLog_Click(); });
    dlgAlert_.chkAutoHide.Click.connect([this] { chkAutoHide_Click(); });
    dlgAlert_.Timer1.Tick.connect([this] { Timer1_Timer(); });
}

void AlertDialogHiding::Load() {
    if (dlgAlert_.chkLog.ticked()) applyLevel(half);
    dlgAlert_.Timer1.setInterval(tickInterval);
    rest();
}

void AlertDialogHiding::chkLog_Click() {
    applyLevel(level_ == half ? opaque : half);
}

void AlertDialogHiding::applyLevel(int percent) {
    level_ = percent;
    translucency_.SetTranslucency(dlgAlert_, percent);
}

// The count stays where it is.
void AlertDialogHiding::chkAutoHide_Click() {
    dlgAlert_.Timer1.setEnabled(dlgAlert_.chkAutoHide.ticked());
    if (!dlgAlert_.chkAutoHide.ticked()) rest();
}

void AlertDialogHiding::Timer1_Timer() {
    if (!dlgAlert_.Visible()) {
        iDismissCount_ = ticksToDismissal;
        return;
    }
    if (!dlgAlert_.chkAutoHide.ticked()) return;
    if (iDismissCount_ > 0) {
        // The text says seconds, though a tick is longer.
        dlgAlert_.setCaption("Auto Dismiss Alert Window in (sec.): " +
                             toText(std::int64_t{iDismissCount_}));
        --iDismissCount_;
    }
    if (iDismissCount_ <= 0) dismiss();
}

void AlertDialogHiding::dismiss() {
    // A file that can't be written now must not stop the dialog from hiding itself later.
    const ScopeGuard standReady([&] {
        rest();
        dlgAlert_.Timer1.setEnabled(true);
    });
    dlgAlert_.Timer1.setEnabled(false);
    dlgAlert_.Hide();
    iDismissCount_ = ticksToDismissal;
    log_.prcSaveLog();
}

void AlertDialogHiding::rest() {
    dlgAlert_.setCaption("Alert Dialog");
}

}  // namespace velmora
