#include "alerts/dialog/alert_dialog_window.h"

#include "forms/form_numbers.h"

namespace velmora {

namespace {

// Twips.
constexpr int fullHeight = 4200;
constexpr int heightWithActions = 8200;

}  // namespace

AlertDialogWindow::AlertDialogWindow(Forms& forms, WorkArea& workArea)
    : forms_(forms), workArea_(workArea) {
    DlgAlert& dialog = forms_.dlgAlert;
    dialog.lblAl[alert_button::ok].Click.connect([&dialog] { dialog.Hide(); });
    dialog.lblAl[alert_button::clear].Click.connect([&dialog] { dialog.Label1.setText(""); });
    // Whatever its caption says.
    dialog.lblAl[alert_button::explorer].Click.connect([&dialog] { dialog.Label1.setText(" . "); });
    dialog.lblAl[alert_button::action].Click.connect([this] { showActions(); });
    for (MenuItem* item : {&forms_.form1.mnuShowAl, &forms_.form1.mnuShowAlert}) {
        item->Click.connect([this] { showWhole(); });
    }
    // The options lie below the rest.
    dialog.Resize.connect(
        [&dialog] { dialog.fraAct.setVisible(dialog.Height() >= heightWithActions); });
}

void AlertDialogWindow::show() {
    place();
    forms_.dlgAlert.Show();
}

// The dialog may have been folded; by menu it comes in its full height.
void AlertDialogWindow::showWhole() {
    forms_.dlgAlert.setSize(forms_.dlgAlert.Width(), fullHeight);
    show();
}

void AlertDialogWindow::showActions() {
    DlgAlert& dialog = forms_.dlgAlert;
    if (dialog.Height() >= heightWithActions) return;
    dialog.setSize(dialog.Width(), heightWithActions);
    // It grows downward: the options would come to lie below the screen.
    place();
}

void AlertDialogWindow::place() {
    DlgAlert& dialog = forms_.dlgAlert;
    dialog.moveTo(workArea_.Width() - dialog.Width(), workArea_.Height() - dialog.Height());
}

}  // namespace velmora
