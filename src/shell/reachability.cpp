#include "shell/reachability.h"

#include "shell/program_lock.h"

namespace velmora {

namespace {

// Kept once the note was read, in this run or an earlier one.
constexpr const char* readNote = "tray-note-read";

}  // namespace

Reachability::Reachability(Forms& forms, NotifyArea& notifyArea, UserState& state)
    : forms_(forms), notifyArea_(notifyArea), state_(state) {
    forms.form1.cmdTrayNote.Click.connect([this] { takeNote(); });
    forms.form1.Hidden.connect([this] { keep(); });
    forms.frmLock.Hidden.connect([this] { keep(); });
    forms.form1.Raised.connect([this] { restore(forms_.form1); });
    forms.frmLock.Raised.connect([this] { restore(forms_.frmLock); });
}

void Reachability::keep() {
    if (notifyArea_.available()) return;
    if (!forms_.globals.bLocked) {
        if (!forms_.form1.Visible()) minimise();
        return;
    }
    // While locked, only the lock may be visible; it stays until the main window is visible again.
    if (!forms_.frmLock.Visible() && !forms_.form1.Visible()) {
        setUpLock(forms_);
        forms_.frmLock.setState(WindowState::minimised);
        forms_.frmLock.setVisible(true);
    }
}

// A minimised form counts as hidden: when it is shown again, it is restored.
void Reachability::restore(Form& form) {
    if (notifyArea_.available()) return;
    if (form.State() == WindowState::minimised) form.setState(WindowState::normal);
}

void Reachability::minimise() {
    forms_.form1.setState(WindowState::minimised);
    forms_.form1.setVisible(true);
    showNote();
}

void Reachability::showNote() {
    if (!wasRead_ && !state_.read(readNote)) forms_.form1.fraTrayNote.setVisible(true);
}

void Reachability::takeNote() {
    forms_.form1.fraTrayNote.setVisible(false);
    wasRead_ = true;
    state_.write(readNote, "");
}

}  // namespace velmora
