// The icon in the notification area: its tip, its flashing while an alert is pending, and what the
// clicks on it do. The main window's own icon, which an alert can add, answers here as well.
#pragma once

#include <cstdint>

#include "forms/forms.h"
#include "monitor/ports.h"
#include "platform/clock.h"
#include "platform/host.h"
#include "platform/notify_area.h"
#include "platform/user32.h"

namespace velmora {

class TrayIcon final : public Tray {
  public:
    /// Connects the handlers to the forms.
    TrayIcon(Forms& forms, Clock& clock, Host& host, NotifyArea& notifyArea, User32& user32);
    /// Removes a hook that is still set.
    ~TrayIcon() override;
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;

    /// `action` 0 removes the icon, 1 adds it, 2 adds and then modifies it; others send nothing.
    /// The tip is the present time and `text`, or the program's title for an empty one. Whether
    /// the notification area took the last message.
    bool prcAddSystray(std::int16_t action, const std::string& text);
    void prcToolTipText(const std::string& text) override;
    void modifyIcon(const std::string& form) override;
    /// Fills the two records that the flash shows in turn.
    bool prcPrepIcon();

    /// The icon is flashing.
    bool bFlashing() const { return bFlashing_; }
    /// The picture of an alert is shown at the moment.
    bool bAlertIconShown() const { return bAlertIconShown_; }
    /// Whether the notification area took the last message.
    bool taken() const { return taken_; }
    /// The records that the flash shows in turn, as they were last prepared or shown.
    const NotifyIconData& programIcon() const { return programIcon_; }
    const NotifyIconData& alertIcon() const { return alertIcon_; }

  private:
    void sysWorkSystray_Load();
    void sysWorkSystray_MouseMove(float x);
    void tmrSystray_Timer();
    void chkSystray_Click();
    void trayDoubleClick();
    void trayRightUp();
    void stopFlash();
    void show(NotifyIconData& prepared, const char* tip);

    void Form1_MouseMove(float x);
    void formIconDoubleClick();
    void formIconRightUp();
    void hookProcedure(std::uint32_t message, const std::string& window);
    void removeHook();

    bool lockIsInFront();
    void activate();
    bool send(NotifyMessage message, const NotifyIconData& data);
    NotifyIconData record(std::string icon, const std::string& tip) const;

    Forms& forms_;
    Clock& clock_;
    Host& host_;
    NotifyArea& notifyArea_;
    User32& user32_;
    bool bFlashing_ = false;
    bool bAlertIconShown_ = false;
    bool taken_ = false;
    NotifyIconData programIcon_;
    NotifyIconData alertIcon_;
    HookHandle hook_ = 0;
};

}  // namespace velmora
