// The alert dialog as a window: it comes in the lower right corner of the work area. With it the
// buttons that change no more than the dialog itself, and the menu items that show it.
#pragma once

#include "forms/dialogs.h"
#include "forms/form1.h"
#include "platform/work_area.h"

namespace velmora {

class AlertDialogWindow {
  public:
    /// Connects "OK", "Clear", "Explorer" and "Action" of the dialog, and the two menu items.
    AlertDialogWindow(Form1& form1, DlgAlert& dlgAlert, WorkArea& workArea);
    AlertDialogWindow(const AlertDialogWindow&) = delete;
    AlertDialogWindow& operator=(const AlertDialogWindow&) = delete;

    /// Places the dialog in the lower right corner of the work area and shows it. Returns at once:
    /// the dialog is not modal.
    void show();
    /// Raises the dialog so that the action options come into view, and keeps it in its corner.
    /// Nothing when it is that high already.
    void showActions();

  private:
    void showWhole();
    void place();

    Form1& form1_;
    DlgAlert& dlgAlert_;
    WorkArea& workArea_;
};

}  // namespace velmora
