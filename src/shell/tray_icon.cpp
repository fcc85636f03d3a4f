#include "shell/tray_icon.h"

#include <cmath>
#include <utility>

#include "base/date_time.h"
#include "base/text.h"
#include "shell/program_lock.h"

namespace velmora {

namespace {

constexpr const char* applicationTitle = "Velmora";
constexpr const char* programTip = "Karvelle Velmora";
constexpr const char* programPicture = "Form1";
constexpr const char* alertPicture = "alert";
constexpr std::size_t longestTip = 63;  // 64 characters hold the NUL that ends the text

enum class TrayMessage { other = 0, leftDoubleClick = 515, rightUp = 517 };

// The pointer's coordinate holds the number of a message.
TrayMessage messageAt(float x) {
    const float number = std::nearbyint(x / twipsPerPixel);
    for (const TrayMessage known : {TrayMessage::leftDoubleClick, TrayMessage::rightUp}) {
        if (number == static_cast<float>(known)) return known;
    }
    return TrayMessage::other;
}

Box question(std::string text) {
    return {.text = std::move(text), .buttons = BoxButtons::yesNo};
}

}  // namespace

TrayIcon::TrayIcon(Forms& forms, Clock& clock, Host& host, NotifyArea& notifyArea, User32& user32)
    : forms_(forms), clock_(clock), host_(host), notifyArea_(notifyArea), user32_(user32) {
    prcPrepIcon();
    SysWorkSystray& tray = forms_.sysWorkSystray;
    tray.Load.connect([this] { sysWorkSystray_Load(); });
    tray.MouseMove.connect([this](float x) { sysWorkSystray_MouseMove(x); });
    tray.tmrSystray.Tick.connect([this] { tmrSystray_Timer(); });
    Form1& form1 = forms_.form1;
    form1.MouseMove.connect([this](float x) { Form1_MouseMove(x); });
    form1.mnuPopUp.Closed.connect([this] { removeHook(); });
    form1.chkSystray.Click.connect([this] { chkSystray_Click(); });
}

TrayIcon::~TrayIcon() {
    removeHook();
}

NotifyIconData TrayIcon::record(std::string icon, const std::string& tip) const {
    NotifyIconData data;
    data.window = forms_.sysWorkSystray.Name();
    data.icon = std::move(icon);
    data.tip = left(tip, longestTip);
    return data;
}

bool TrayIcon::send(NotifyMessage message, const NotifyIconData& data) {
    taken_ = notifyArea_.Shell_NotifyIconA(message, data);
    forms_.globals.iconHandle = data.icon;
    return taken_;
}

bool TrayIcon::prcPrepIcon() {
    programIcon_ = record(programPicture, applicationTitle);
    alertIcon_ = record(alertPicture, "");
    return true;
}

bool TrayIcon::prcAddSystray(std::int16_t action, const std::string& text) {
    const std::string time = Format(clock_.Now(), "mm/dd HH:mm");
    const NotifyIconData data =
        record(programPicture, time + ' ' + (text.empty() ? applicationTitle : text));
    if (action == 0) return send(NotifyMessage::remove, data);
    if (action != 1 && action != 2) return false;
    const bool added = send(NotifyMessage::add, data);
    return action == 1 ? added : send(NotifyMessage::modify, data);
}

void TrayIcon::prcToolTipText(const std::string& text) {
    const std::string& shown = forms_.globals.iconHandle;
    send(NotifyMessage::modify,
         record(shown.empty() ? programPicture : shown, text.empty() ? applicationTitle : text));
}

void TrayIcon::modifyIcon(const std::string& form) {
    const std::string& tip = forms_.globals.sTrayTip;
    send(NotifyMessage::modify, record(form, tip.empty() ? applicationTitle : tip));
}

void TrayIcon::sysWorkSystray_Load() {
    prcAddSystray(1, "");
    forms_.sysWorkSystray.Hide();
}

void TrayIcon::chkSystray_Click() {
    if (forms_.form1.chkSystray.ticked()) {
        prcAddSystray(1, "");
        return;
    }
    forms_.form1.Show();
    prcAddSystray(0, "");
}

void TrayIcon::sysWorkSystray_MouseMove(float x) {
    switch (messageAt(x)) {
        case TrayMessage::leftDoubleClick:
            trayDoubleClick();
            break;
        case TrayMessage::rightUp:
            trayRightUp();
            break;
        case TrayMessage::other:
            break;
    }
}

void TrayIcon::trayDoubleClick() {
    if (forms_.globals.bChecking &&
        host_.MsgBox(
            question("The program is still checking. Performing this action may cause errors.\r\n"
                     "Waiting a few seconds for the program to finish would help.\r\n"
                     "Do you wish to continue?")) != BoxAnswer::yes) {
        return;
    }
    if (lockIsInFront()) return;
    Form1& form1 = forms_.form1;
    if (bFlashing_) {
        stopFlash();
        form1.Show();
    } else if (form1.Visible()) {
        form1.Hide();
    } else {
        form1.Show();
    }
    // A window that is there isn't the one that the menu has hidden.
    if (form1.Visible()) form1.mnuHide.setChecked(false);
    activate();
}

void TrayIcon::trayRightUp() {
    if (forms_.globals.bChecking &&
        host_.MsgBox(
            question("The program is still checking. Performing this action may cause errors.\r\n"
                     "Do you wish to continue?")) != BoxAnswer::yes) {
        return;
    }
    forms_.form1.mnuPopUp.PopUp();
}

bool TrayIcon::lockIsInFront() {
    if (forms_.globals.bLocked) prcSrvFrm(forms_);
    return forms_.globals.bLocked;
}

void TrayIcon::stopFlash() {
    forms_.sysWorkSystray.tmrSystray.setEnabled(false);
    bFlashing_ = false;
    bAlertIconShown_ = false;
    show(programIcon_, programTip);
}

void TrayIcon::tmrSystray_Timer() {
    bFlashing_ = true;
    if (bAlertIconShown_) {
        show(programIcon_, programTip);
    } else {
        show(alertIcon_, "New Alert Message!");
    }
    bAlertIconShown_ = !bAlertIconShown_;
}

void TrayIcon::show(NotifyIconData& prepared, const char* tip) {
    prepared.tip = tip;
    send(NotifyMessage::modify, prepared);
}

// Brings the window to the front by its process; one that can't be found stays where it is.
void TrayIcon::activate() {
    std::uint32_t process = 0;
    user32_.GetWindowThreadProcessId(forms_.form1.Name(), process);
    if (process != 0) user32_.AppActivate(process);
}

void TrayIcon::Form1_MouseMove(float x) {
    switch (messageAt(x)) {
        case TrayMessage::leftDoubleClick:
            formIconDoubleClick();
            break;
        case TrayMessage::rightUp:
            formIconRightUp();
            break;
        case TrayMessage::other:
            break;
    }
}

void TrayIcon::formIconDoubleClick() {
    if (lockIsInFront()) return;
    Form1& form1 = forms_.form1;
    const bool hide = form1.Visible();
    form1.mnuHide.setChecked(hide);
    if (hide) {
        form1.Hide();
    } else {
        form1.Show();
        form1.setState(WindowState::normal);
    }
    activate();
}

// The menu's window must be in front, or a click elsewhere doesn't close it. The only sign of it
// is the message of its creation.
void TrayIcon::formIconRightUp() {
    removeHook();
    hook_ = user32_.SetWindowsHookExA(window::callWindowProcedure,
                                      [this](std::uint32_t message, const std::string& window) {
                                          hookProcedure(message, window);
                                      });
    forms_.form1.mnuPopUp.PopUp();
}

void TrayIcon::hookProcedure(std::uint32_t message, const std::string& window) {
    if (message != window::create) {
        user32_.CallNextHookEx(hook_, message, window);
        return;
    }
    user32_.SetForegroundWindow(window);
    user32_.CallNextHookEx(hook_, message, window);
    removeHook();
}

void TrayIcon::removeHook() {
    if (hook_ == 0) return;
    user32_.UnhookWindowsHookEx(std::exchange(hook_, 0));
}

}  // namespace velmora
