// The notification area by Qt's tray icon. One icon for each window, by the name of its form.
#pragma once

#include <QElapsedTimer>
#include <QSystemTrayIcon>
#include <functional>
#include <map>
#include <memory>

#include "platform/notify_area.h"

namespace velmora::qt {

class QtNotifyArea final : public NotifyArea {
  public:
    /// A message of the mouse over an icon (515 left double click, 517 right button up) for the
    /// form that owns it.
    using Message = std::function<void(const std::string& form, int message)>;

    explicit QtNotifyArea(Message message) : message_(std::move(message)) {}

    /// False where the desktop has no notification area; an icon is shown once there is one.
    bool Shell_NotifyIconA(NotifyMessage message, const NotifyIconData& data) override;

    /// Takes every icon away.
    void clear() { icons_.clear(); }
    /// Whether an icon of the program is shown and can be clicked.
    bool available() const override {
        return QSystemTrayIcon::isSystemTrayAvailable() && !icons_.empty();
    }
    /// The icon of a form, null when it was not added.
    QSystemTrayIcon* iconOf(const std::string& form) const;

  private:
    // An icon may be removed in the middle of its own message.
    struct Later {
        void operator()(QSystemTrayIcon* icon) const {
            icon->hide();
            icon->deleteLater();
        }
    };
    struct Shown {
        std::unique_ptr<QSystemTrayIcon, Later> icon;
        NotifyIconData data;
        QElapsedTimer sinceClick;
    };

    void add(const NotifyIconData& data);
    void activated(const std::string& form, QSystemTrayIcon::ActivationReason reason);
    void openMenu(const std::string& form);
    bool isSecondClick(const std::string& form);
    static void show(Shown& shown, const NotifyIconData& data);

    Message message_;
    std::map<std::string, Shown> icons_;
};

}  // namespace velmora::qt
