#include "qt/surface/qt_notify_area.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>

#include "qt/icons/program_icon.h"
#include "qt/surface/menu_place.h"
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

// Many desktops don't tell where an icon is; the click was there then. Over a window of the program
// it can't have been: a key was used, or the desktop tells no place of the pointer either.
QRect placeOf(const QSystemTrayIcon& icon) {
    const QRect known = icon.geometry();
    if (!known.isEmpty()) return known;
    const QPoint pointer = QCursor::pos();
    if (QApplication::topLevelAt(pointer) == nullptr) return {pointer, QSize(1, 1)};
    return {QGuiApplication::primaryScreen()->availableGeometry().bottomRight(), QSize(1, 1)};
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
    return QSystemTrayIcon::isSystemTrayAvailable();
}

void QtNotifyArea::add(const NotifyIconData& data) {
    Shown& added = icons_[data.window];
    added.icon.reset(new QSystemTrayIcon);
    QObject::connect(added.icon.get(), &QSystemTrayIcon::activated, added.icon.get(),
                     [this, form = data.window](QSystemTrayIcon::ActivationReason reason) {
                         activated(form, reason);
                     });
    show(added, data);
    added.icon->show();
}

void QtNotifyArea::activated(const std::string& form, QSystemTrayIcon::ActivationReason reason) {
    switch (reason) {
        case QSystemTrayIcon::DoubleClick:
            icons_[form].sinceClick.invalidate();
            message_(form, leftDoubleClick);
            break;
        case QSystemTrayIcon::Context:
            openMenu(form);
            break;
        case QSystemTrayIcon::Trigger:
            if (isSecondClick(form)) message_(form, leftDoubleClick);
            break;
        default:
            break;
    }
}

// A question may come first, after which the pointer is anywhere.
void QtNotifyArea::openMenu(const std::string& form) {
    const MenuPlace place(placeOf(*icons_[form].icon));
    message_(form, rightButtonUp);
}

// Many desktops report only single clicks.
bool QtNotifyArea::isSecondClick(const std::string& form) {
    QElapsedTimer& since = icons_[form].sinceClick;
    const bool second = since.isValid() && since.elapsed() <= QApplication::doubleClickInterval();
    second ? since.invalidate() : since.start();
    return second;
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
