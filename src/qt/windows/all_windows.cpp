#include "qt/windows/all_windows.h"

#include "qt/windows/dialogs.h"
#include "qt/windows/form_binding.h"
#include "qt/windows/main_window.h"
#include "qt/windows/shortcuts.h"

namespace velmora::qt {

AllWindows::AllWindows(Forms& forms, const QtShellIcons& icons, QtUser32& user32, UserHand& hand,
                       WindowsByName& names, Printing& printing)
    : forms_(forms), hand_(hand), names_(names) {
    add(forms.form1.Name(), new MainWindow(forms, icons, user32, hand));
    addWhenLoaded(forms.frmLock, makeLockWindow);
    addWhenLoaded(forms.frmAbout, makeAboutWindow);
    addWhenLoaded(forms.dlgAlert, makeAlertWindow);
    addWhenLoaded(forms.icon0, makeProgressWindow);
    addWhenLoaded(forms.icon1, makeRecycleBinWindow);
    addWhenLoaded(forms.frmIndDri, makeDriveWindow);
    addWhenLoaded(forms.frmNotify, makeNotifyWindow);
    addWhenLoaded(forms.dlgDriveInfo, makeDriveInfoWindow, printing);
    addWhenLoaded(forms.frmHistory, makeHistoryWindow, printing);
    addWhenLoaded(forms.frmWizard, makeWizardWindow);
}

void AllWindows::add(const std::string& form, QWidget* window) {
    windows_.emplace_back(window);
    if (form != forms_.form1.Name()) addHelpKey(window, forms_.form1, hand_);
    names_.add(form, window);
    // The first is the main window.
    FormBinding::of(window)->setMain(windows_.front().get());
}

AllWindows::~AllWindows() = default;

}  // namespace velmora::qt
