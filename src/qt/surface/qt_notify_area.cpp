#include "qt/surface/qt_notify_area.h"

#include "qt/icons/program_icon.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

constexpr int leftDoubleClick = 515;
constexpr int rightButtonUp = 517;

QIcon iconOfKey(const std::string& key) {
    if (key == "alert" || key == "tray 1") return alertIcon();
    // The icons of the forms that a paused watch shows.
    if (key == "Icon0" || key == "Icon1") return pausedIcon();
    return programIcon();
}

}  // namespace

bool QtNotifyArea::Shell_NotifyIconA(NotifyMessage message, const NotifyIconData& data) {
    const auto known = icons_.find(data.window);
    switch (message) {
        case NotifyMessage::add:
            if (known != icons_.end()) return false;
            add(data);
            break;
        case NotifyMessage::modify:
            if (known == icons_.end()) return false;
            show(known->second, data);
            break;
        case NotifyMessage::remove:
            if (known == icons_.end()) return false;
            icons_.erase(known);
            break;
    }
    return available();
}

void QtNotifyArea::add(const NotifyIconData& data) {
    Shown& added = icons_[data.window];
    added.icon = std::make_unique<QSystemTrayIcon>();
    QObject::connect(added.icon.get(), &QSystemTrayIcon::activated, added.icon.get(),
                     [this, form = data.window](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::DoubleClick) message_(form, leftDoubleClick);
                         if (reason == QSystemTrayIcon::Context) message_(form, rightButtonUp);
                     });
    show(added, data);
    added.icon->show();
}

// The icon is painted again only when it is another one.
void QtNotifyArea::show(Shown& shown, const NotifyIconData& data) {
    if (shown.icon->icon().isNull() || shown.data.icon != data.icon) {
        shown.icon->setIcon(iconOfKey(data.icon));
    }
    if (shown.data.tip != data.tip) shown.icon->setToolTip(qt::shownLines(data.tip));
    shown.data = data;
}

QSystemTrayIcon* QtNotifyArea::iconOf(const std::string& form) const {
    const auto known = icons_.find(form);
    return known == icons_.end() ? nullptr : known->second.icon.get();
}

}  // namespace velmora::qt
