#include "alerts/dialog/alert_dialog_window.h"

#include "forms/form_numbers.h"

namespace velmora {

namespace {

// Twips.
constexpr int fullHeight = 4200;
constexpr int heightWithActions = 8200;

}  // namespace

AlertDialogWindow::AlertDialogWindow(Form1& form1, DlgAlert& dlgAlert, WorkArea& workArea)
    : form1_(form1), dlgAlert_(dlgAlert), workArea_(workArea) {
    dlgAlert_.lblAl[alert_button::ok].Click.connect([this] { dlgAlert_.Hide(); });
    dlgAlert_.lblAl[alert_button::clear].Click.connect([this] { dlgAlert_.Label1.setText(""); });
    // Its caption is "Explorer", yet it only changes the text.
    dlgAlert_.lblAl[alert_button::explorer].Click.connect(
        [this] { dlgAlert_.Label1.setText(" . "); });
    dlgAlert_.lblAl[alert_button::action].Click.connect([this] { showActions(); });
    for (MenuItem* item : {&form1_.mnuShowAl, &form1_.mnuShowAlert}) {
        item->Click.connect([this] { showWhole(); });
    }
    // The options lie below the rest.
    dlgAlert_.Resize.connect(
        [this] { dlgAlert_.fraAct.setVisible(dlgAlert_.Height() >= heightWithActions); });
}

void AlertDialogWindow::show() {
    place();
    dlgAlert_.Show();
}

// The dialog may have been folded; by menu it comes in its full height.
void AlertDialogWindow::showWhole() {
    dlgAlert_.setSize(dlgAlert_.Width(), fullHeight);
    show();
}

void AlertDialogWindow::showActions() {
    if (dlgAlert_.Height() >= heightWithActions) return;
    dlgAlert_.setSize(dlgAlert_.Width(), heightWithActions);
    // It grows downward: without a move the options would be below the screen.
    place();
}

void AlertDialogWindow::place() {
    dlgAlert_.moveTo(workArea_.Width() - dlgAlert_.Width(),
                     workArea_.Height() - dlgAlert_.Height());
}

}  // namespace velmora
