#include "qt/controls/one_stop.h"

#include <QKeyEvent>
#include <algorithm>

namespace velmora::qt {

namespace {

// By its own state: one on a page that isn't shown now takes the focus once the page is.
bool canBeReached(const QWidget* widget) {
    return widget != nullptr && !widget->isHidden() && widget->isEnabled();
}

}  // namespace

OneStop::OneStop(QWidget* owner, std::vector<QWidget*> members)
    : QObject(owner), members_(members.begin(), members.end()) {
    for (QWidget* member : members) member->installEventFilter(this);
    showStop();
}

void OneStop::setStop(QWidget* member) {
    stop_ = member;
    showStop();
}

void OneStop::showStop() {
    if (!canBeReached(stop_)) {
        const auto first = std::find_if(members_.begin(), members_.end(), canBeReached);
        if (first == members_.end()) return;
        stop_ = *first;
    }
    for (QWidget* member : members_) {
        if (member == nullptr) continue;
        member->setFocusPolicy(member == stop_ ? Qt::StrongFocus : Qt::ClickFocus);
    }
}

bool OneStop::eventFilter(QObject* watched, QEvent* event) {
    auto* member = static_cast<QWidget*>(watched);
    switch (event->type()) {
        case QEvent::FocusIn:
            setStop(member);
            return false;
        case QEvent::KeyPress: {
            const auto* press = static_cast<QKeyEvent*>(event);
            const bool isPlain = (press->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
            return isPlain && goes(member, press->key());
        }
        case QEvent::EnabledChange:
        case QEvent::ShowToParent:
        case QEvent::HideToParent:
            showStop();
            return false;
        default:
            return false;
    }
}

QWidget* OneStop::next(std::size_t from, int step) const {
    const auto count = static_cast<std::ptrdiff_t>(members_.size());
    for (auto at = static_cast<std::ptrdiff_t>(from) + step; at >= 0 && at < count; at += step) {
        QWidget* member = members_[static_cast<std::size_t>(at)];
        if (canBeReached(member)) return member;
    }
    return nullptr;
}

bool OneStop::goes(const QWidget* from, int key) {
    const auto found = std::find(members_.begin(), members_.end(), from);
    const auto place = static_cast<std::size_t>(found - members_.begin());
    QWidget* to = nullptr;
    switch (key) {
        case Qt::Key_Left:
        case Qt::Key_Up:
            to = next(place, -1);
            break;
        case Qt::Key_Right:
        case Qt::Key_Down:
            to = next(place, 1);
            break;
        case Qt::Key_Home:
            to = next(static_cast<std::size_t>(-1), 1);
            break;
        case Qt::Key_End:
            to = next(members_.size(), -1);
            break;
        default:
            return false;
    }
    // At an end the key stays here: a button would pass it on to whatever comes next.
    if (to == nullptr || to == from) return true;
    to->setFocus(Qt::TabFocusReason);
    if (reached_) reached_(to);
    return true;
}

}  // namespace velmora::qt
