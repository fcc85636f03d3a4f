#include "shell/program_lock.h"

#include <initializer_list>

#include "base/wipe.h"
#include "controls/keys.h"

namespace velmora {

namespace {

constexpr std::size_t longestPassword = 25;  // characters

constexpr const char* lockWord = "Lock";
constexpr const char* unlockWord = "Unlock";

constexpr const char* openText =
    "The program is Not Lock. Set a password and press Lock to Lock the program. The program will "
    "be locked into the systray.  To unlock, double click the systray icon.";
// The form's first text, with one blank more.
constexpr const char* openTextOfLoad =
    "The program is Not Lock.  Set a password and press Lock to Lock the program. The program will "
    "be locked into the systray.  To unlock, double click the systray icon.";
constexpr const char* lockedText = "The program is Locked.  Enter password to unlock.";

}  // namespace

void setUpLock(Forms& forms) {
    FrmLock& form = forms.frmLock;
    const bool locked = forms.globals.bLocked;
    form.Text1.setText("");
    form.Command1[0].setCaption(locked ? unlockWord : lockWord);
    form.lblLock.setCaption(locked ? lockedText : openText);
}

void prcSrvFrm(Forms& forms) {
    setUpLock(forms);
    forms.frmLock.Show();
}

ProgramLock::ProgramLock(Forms& forms, Host& host, Tray& tray)
    : forms_(forms), host_(host), tray_(tray) {
    FrmLock& form = forms_.frmLock;
    form.Load.connect([this] { Form_Load(); });
    for (CommandButton& button : form.Command1) {
        button.Click.connect([this, index = button.Index()] { Command1_Click(index); });
    }
    form.Text1.KeyPress.connect([this](int keyAscii) { Text1_KeyPress(keyAscii); });
    for (Form* each : forms_.all()) {
        each->Shown.connect([this, each] { keepHidden(*each); });
    }
}

// A check, an alert or the tray's menu may show a window while the lock is on: it would be open
// without the password.
void ProgramLock::keepHidden(Form& form) {
    const bool open = !forms_.globals.bLocked || unlocking_;
    if (!open && &form != &forms_.frmLock) form.Hide();
}

void ProgramLock::Form_Load() {
    forms_.frmLock.lblLock.setCaption(forms_.globals.bLocked ? lockedText : openTextOfLoad);
}

void ProgramLock::Text1_KeyPress(int keyAscii) {
    if (keyAscii == key::enter) Command1_Click(0);
}

void ProgramLock::Command1_Click(int index) {
    FrmLock& form = forms_.frmLock;
    const bool isEmpty = form.Text1.empty();
    if (isEmpty) host_.MsgBox({.text = "A password must be entered."});
    if (index != 0) return close();
    if (isEmpty) return;
    const std::string& word = form.Command1[0].Caption();
    if (word == lockWord) {
        lock();
    } else if (word == unlockWord) {
        unlock();
    }
}

// Open or locked, the program stays as it is.
void ProgramLock::close() {
    forms_.frmLock.Text1.setText("");
    forms_.frmLock.Hide();
}

void ProgramLock::lock() {
    const BoxAnswer answer = host_.MsgBox({.text = "Are you sure you want to lock the program?",
                                           .icon = BoxIcon::question,
                                           .buttons = BoxButtons::yesNo});
    if (answer != BoxAnswer::yes) {
        tray_.prcToolTipText(forms_.globals.sTrayTip);
        return;
    }
    const TextBox& entry = forms_.frmLock.Text1;
    // If it was emptied while the question was open, no password could ever unlock the program.
    if (entry.empty()) return;
    if (entry.textLength() > longestPassword) {
        host_.MsgBox({.text = "Passowrd Length cannot be over 25"});
        return;
    }
    takePassword();
    hideWindows();
    host_.MsgBox(
        {.text = "The program is now lock into the systray.", .icon = BoxIcon::information});
}

// Straight from the entry into the one place that holds it.
void ProgramLock::takePassword() {
    Globals& globals = forms_.globals;
    TextBox& entry = forms_.frmLock.Text1;
    globals.bLocked = true;
    wipe(globals.sLockPassword);
    globals.sLockPassword.assign(entry.Text());
    entry.setText("");
}

void ProgramLock::hideWindows() {
    for (Form* form : std::initializer_list<Form*>{&forms_.frmLock, &forms_.form1, &forms_.dlgAlert,
                                                   &forms_.frmNotify}) {
        form->Hide();
    }
    for (Form* form : forms_.all()) {
        if (form != &forms_.sysWorkSystray && form->Visible()) form->Hide();
    }
}

void ProgramLock::unlock() {
    Globals& globals = forms_.globals;
    FrmLock& form = forms_.frmLock;
    if (form.Text1.Text() != globals.sLockPassword) {
        host_.MsgBox({.text = "Incorrect Password."});
        return;
    }
    unlocking_ = true;
    forms_.form1.Show();
    form.Hide();
    globals.bLocked = false;
    unlocking_ = false;
    wipe(globals.sLockPassword);
    form.Text1.setText("");
}

}  // namespace velmora
