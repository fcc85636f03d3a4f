#include "alerts/alert_dialog_window.h"

namespace velmora {

void AlertDialogWindow::show() {
    DlgAlert& dialog = forms_.dlgAlert;
    dialog.moveTo(workArea_.Width() - dialog.Width(), workArea_.Height() - dialog.Height());
    dialog.Show();
}

}  // namespace velmora
