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

AlertDialogHiding::AlertDialogHiding(Forms& forms, Translucency& translucency, JournalLog& log)
    : forms_(forms),
      translucency_(translucency),
      log_(log),
      iDismissCount_(ticksToDismissal),
      level_(opaque) {
    DlgAlert& dialog = forms_.dlgAlert;
    dialog.Load.connect([this] { Load(); });
    dialog.chkLog.Click.connect([this] { chkLog_Click(); });
    dialog.chkAutoHide.Click.connect([this] { chkAutoHide_Click(); });
    dialog.Timer1.Tick.connect([this] { Timer1_Timer(); });
}

void AlertDialogHiding::Load() {
    DlgAlert& dialog = forms_.dlgAlert;
    if (dialog.chkLog.ticked()) applyLevel(half);
    dialog.Timer1.setInterval(tickInterval);
    rest();
}

void AlertDialogHiding::chkLog_Click() {
    applyLevel(level_ == half ? opaque : half);
}

void AlertDialogHiding::applyLevel(int percent) {
    level_ = percent;
    translucency_.SetTranslucency(forms_.dlgAlert, percent);
}

// The count stays where it is.
void AlertDialogHiding::chkAutoHide_Click() {
    DlgAlert& dialog = forms_.dlgAlert;
    dialog.Timer1.setEnabled(dialog.chkAutoHide.ticked());
    if (!dialog.chkAutoHide.ticked()) rest();
}

void AlertDialogHiding::Timer1_Timer() {
    DlgAlert& dialog = forms_.dlgAlert;
    if (!dialog.Visible()) {
        iDismissCount_ = ticksToDismissal;
        return;
    }
    if (!dialog.chkAutoHide.ticked()) return;
    if (iDismissCount_ > 0) {
        // The words say seconds, though a tick is longer.
        dialog.setCaption("Auto Dismiss Alert Window in (sec.): " +
                          toText(std::int64_t{iDismissCount_}));
        --iDismissCount_;
    }
    if (iDismissCount_ <= 0) dismiss();
}

void AlertDialogHiding::dismiss() {
    DlgAlert& dialog = forms_.dlgAlert;
    // A file that can't be written now must not stop the dialog from hiding itself later.
    const ScopeGuard standReady([&] {
        rest();
        dialog.Timer1.setEnabled(true);
    });
    dialog.Timer1.setEnabled(false);
    dialog.Hide();
    iDismissCount_ = ticksToDismissal;
    log_.prcSaveLog();
}

void AlertDialogHiding::rest() {
    forms_.dlgAlert.setCaption("Alert Dialog");
}

}  // namespace velmora
