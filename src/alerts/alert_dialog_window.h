// The alert dialog as a window: it comes in the lower right corner of the work area.
#pragma once

#include "alerts/alert_dialog.h"
#include "forms/forms.h"
#include "platform/work_area.h"

namespace velmora {

class AlertDialogWindow final : public AlertDialog {
  public:
    AlertDialogWindow(Forms& forms, WorkArea& workArea) : forms_(forms), workArea_(workArea) {}
    AlertDialogWindow(const AlertDialogWindow&) = delete;
    AlertDialogWindow& operator=(const AlertDialogWindow&) = delete;

    /// Returns at once: the dialog is not modal.
    void show() override;

  private:
    Forms& forms_;
    WorkArea& workArea_;
};

}  // namespace velmora
