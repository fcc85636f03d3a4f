#include "qt/windows/form_binding.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPointer>
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
    form.Raised.connect([guard = QPointer<FormBinding>(this)] {
        if (!guard) return;
        // Whoever shows a form that it has placed means that place.
        if (std::exchange(guard->isDragged_, false)) guard->placeAgain();
        // What was hidden has to be shown before it can come in front.
        guard->refresher_->refreshNow();
        guard->window_->raise();
        guard->window_->activateWindow();
    });
    window->installEventFilter(this);
}

void FormBinding::refresh() {
    window_->setWindowTitle(shown(form_.Caption()).trimmed());
    // The state first: a window that leaves the maximised state takes the size that it had before,
    // which need not be the form's.
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
    switch (event->type()) {
        case QEvent::Close:
            hand_.does([this] { form_.userClose(); });
            event->ignore();
            return true;
        case QEvent::KeyPress:
            return kind_.dialog && takesKey(static_cast<QKeyEvent*>(event)->key());
        case QEvent::Resize:
            if (kind_.sized && !applying_) tellSize();
            return false;
        case QEvent::Move:
            if (!applying_ && window_->isVisible()) isDragged_ = true;
            return false;
        case QEvent::LayoutRequest:
            // Panels that went make room for a size that the window couldn't take before.
            if (kind_.sized && isWaiting_) refresher_->touch();
            return false;
        case QEvent::WindowStateChange:
            tellState();
            return false;
        default:
            return false;
    }
}

// Keys that nothing in a small window took.
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

// A pixel has more than one measure in twips; the form keeps its own while it comes to the same
// pixels.
void FormBinding::tellSize() {
    const QSize size = window_->size();
    const bool sameWidth = pixels(form_.Width()) == size.width();
    const bool sameHeight = pixels(form_.Height()) == size.height();
    if (form_.Width() == 0 || (sameWidth && sameHeight)) return;
    hand_.does([&] {
        form_.setSize(sameWidth ? form_.Width() : size.width() * twipsPerPixel,
                      sameHeight ? form_.Height() : size.height() * twipsPerPixel);
    });
}

void FormBinding::tellState() {
    if (window_->isVisible() && !applying_) form_.setState(stateOf(window_));
}

}  // namespace velmora::qt
