#include "qt/windows/form_binding.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

int pixels(int twips) {
    return (twips + twipsPerPixel / 2) / twipsPerPixel;
}

WindowState stateOf(const QWidget* window) {
    if (window->isMinimized()) return WindowState::minimised;
    return window->isMaximized() ? WindowState::maximised : WindowState::normal;
}

}  // namespace

FormBinding::FormBinding(QWidget* window, Form& form, UserHand& hand, WindowKind kind)
    : QObject(window), window_(window), form_(form), hand_(hand), kind_(kind), refresher_(nullptr) {
    window->setObjectName(shown(form.Name()));
    refresher_ = follow(form.Changed, this, [this] { refresh(); });
    raised_ = form.Raised.connect([this] { raise(); });
    window->installEventFilter(this);
}

void FormBinding::raise() {
    // The program has placed the form before it shows it, and means that place.
    if (std::exchange(isDragged_, false)) placeAgain();
    // A hidden window has to be shown before it can come to the front.
    refresher_->refreshNow();
    window_->raise();
    window_->activateWindow();
}

void FormBinding::refresh() {
    window_->setWindowTitle(shown(form_.Caption()).trimmed());
    // The state first: a window that is no longer maximised returns to its earlier size, which may
    // differ from the form's.
    applying_ = true;
    showVisibility();
    if (kind_.sized) showSize();
    applying_ = false;
    showPlace();
}

void FormBinding::showSize() {
    const QSize size(pixels(form_.Width()), pixels(form_.Height()));
    if (form_.Width() == 0 || form_.Height() == 0 || window_->isMaximized() ||
        window_->isFullScreen()) {
        return;
    }
    if (window_->size() == size) return;
    const QSize before = window_->size();
    window_->resize(size);
    const bool waited = std::exchange(isWaiting_, window_->size() != size);
    // It was placed while it was larger.
    if (waited && window_->size() != before) placeAgain();
}

void FormBinding::placeAgain() {
    place_ = {};
}

// Only where the program puts a form; otherwise the window system finds a place. A window of
// another size than its form keeps the form's lower right corner.
void FormBinding::showPlace() {
    const QPoint place(form_.Left(), form_.Top());
    if (place == place_ || !window_->isVisible()) return;
    place_ = place;
    applying_ = true;
    const QSize frame = window_->frameGeometry().size();
    const int right = pixels(form_.Left() + form_.Width());
    const int bottom = pixels(form_.Top() + form_.Height());
    window_->move(std::max(0, right - frame.width()), std::max(0, bottom - frame.height()));
    applying_ = false;
}

void FormBinding::showVisibility() {
    if (!form_.Visible()) {
        window_->hide();
        return;
    }
    if (window_->isVisible() && stateOf(window_) == form_.State()) return;
    switch (form_.State()) {
        case WindowState::normal:
            window_->showNormal();
            break;
        case WindowState::minimised:
            window_->showMinimized();
            break;
        case WindowState::maximised:
            window_->showMaximized();
            break;
    }
}

bool FormBinding::eventFilter(QObject*, QEvent* event) {
    if (!refresher_->fieldExists()) return false;
    switch (event->type()) {
        case QEvent::Close:
            hand_.does([this] { form_.userClose(); });
            event->ignore();
            return true;
        case QEvent::KeyPress:
            return kind_.dialog && takesKey(static_cast<QKeyEvent*>(event)->key());
        case QEvent::Resize:
            if (kind_.sized && !applying_) reportSize();
            return false;
        case QEvent::Move:
            if (!applying_ && window_->isVisible()) isDragged_ = true;
            return false;
        case QEvent::LayoutRequest:
            // Hidden panels may allow a size that the window could not have before.
            if (kind_.sized && isWaiting_) refresher_->touch();
            return false;
        case QEvent::WindowStateChange:
            reportState();
            return false;
        default:
            return false;
    }
}

// Keys that no widget of a dialog has handled.
bool FormBinding::takesKey(int key) {
    if (key == Qt::Key_Escape) {
        hand_.does([this] { form_.userClose(); });
        return true;
    }
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    for (QPushButton* button : window_->findChildren<QPushButton*>()) {
        if (!button->isDefault()) continue;
        button->click();
        return true;
    }
    return false;
}

// Several sizes in twips are the same in pixels: the form keeps its own when it fits the pixels.
void FormBinding::reportSize() {
    const QSize size = window_->size();
    const bool sameWidth = pixels(form_.Width()) == size.width();
    const bool sameHeight = pixels(form_.Height()) == size.height();
    if (form_.Width() == 0 || (sameWidth && sameHeight)) return;
    hand_.does([&] {
        form_.setSize(sameWidth ? form_.Width() : size.width() * twipsPerPixel,
                      sameHeight ? form_.Height() : size.height() * twipsPerPixel);
    });
}

void FormBinding::reportState() {
    if (!window_->isVisible() || applying_) return;
    hand_.does([this] { form_.setState(stateOf(window_)); });
}

}  // namespace velmora::qt
