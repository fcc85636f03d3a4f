#include "qt/windows/form_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "controls/control.h"
#include "qt/windows/screen_room.h"
#include "qt/windows/twips.h"

namespace velmora::qt {

namespace {

QWindow* handleOf(QWidget& window) {
    window.winId();  // makes it
    return window.windowHandle();
}

}  // namespace

FormPlace::FormPlace(QWidget& window, Form& form, WindowRole role, bool isKept)
    : window_(window), form_(form), role_(role), isKept_(isKept) {
    window.setAttribute(Qt::WA_ShowWithoutActivating, role == WindowRole::notice);
}

void FormPlace::beforeShowing() {
    belongToMain();
    showAgain();
    if (role_ == WindowRole::notice) return show();
    if (isKept_ && form_.isPlaced() && isWithinReach(frameOfForm(), freeScreens())) return show();
    // Only a window that has lost its place is put anywhere by us.
    if (role_ == WindowRole::dialog || form_.isPlaced()) moveTo(centred().topLeft());
}

// The window system keeps it above its owner and minimises it with it. Without an owner it is a
// window like any other: that of a hidden one would be out of reach.
void FormPlace::belongToMain() {
    if (role_ != WindowRole::dialog) return;
    const QWidget* main = visibleMain();
    QWindow* handle = handleOf(window_);
    Qt::WindowFlags flags = handle->flags() & ~Qt::WindowType_Mask;
    flags |= main == nullptr ? Qt::Window : Qt::Dialog;
    flags.setFlag(Qt::WindowMinimizeButtonHint, main == nullptr);
    handle->setFlags(flags);
    // The widget's own would make another handle.
    window_.overrideWindowFlags(flags);
    handle->setTransientParent(main == nullptr ? nullptr : main->windowHandle());
}

void FormPlace::show() {
    const QPoint place(form_.Left(), form_.Top());
    if (!form_.isPlaced() || place == shown_) return;
    if (role_ == WindowRole::dialog && !isKept_) return;
    shown_ = place;
    if (role_ == WindowRole::notice) {
        moveCorner();
    } else if (const QRect frame = frameOfForm(); isWithinReach(frame, freeScreens())) {
        moveTo(frame.topLeft());
    }
}

// By its handle, also when the window is there already: one that was hidden comes again where the
// window manager likes, unless the program has given its place. The handle alone knows that the
// place is the frame's as long as there is no frame.
void FormPlace::moveTo(const QPoint& corner) {
    // Another request would also ask for the size once more, which may be on its way to another.
    if (window_.isVisible() && window_.pos() == corner) return;
    QWindow* handle = handleOf(window_);
    window_.move(corner);
    handle->setFramePosition(corner);
}

void FormPlace::moveCorner() {
    const QSize frame = frameSize();
    const int right = pixelsOf(form_.Left() + form_.Width());
    const int bottom = pixelsOf(form_.Top() + form_.Height());
    moveTo({std::max(0, right - frame.width()), std::max(0, bottom - frame.height())});
}

void FormPlace::takeMove(UserHand& hand) {
    if (!isKept_ || window_.windowState() != Qt::WindowNoState) return;
    // The program has just given the form another place, which is still to be shown.
    if (form_.isPlaced() && shown_ && QPoint(form_.Left(), form_.Top()) != *shown_) return;
    shown_ = window_.pos() * twipsPerPixel;
    hand.does([this] { form_.moveTo(shown_->x(), shown_->y()); });
}

bool FormPlace::frameChanged() {
    const QMargins frame = frameAround(&window_, main_);
    if (frame == frame_) return false;
    frame_ = frame;
    return true;
}

QSize FormPlace::room() const {
    const QMargins frame = frameAround(&window_, main_);
    return screen().marginsRemoved(frame).size();
}

QRect FormPlace::frameOfForm() const {
    return {{pixelsOf(form_.Left()), pixelsOf(form_.Top())}, frameSize()};
}

QRect FormPlace::centred() const {
    const QWidget* main = role_ == WindowRole::dialog ? visibleMain() : nullptr;
    return centredOver(main == nullptr ? screen() : main->frameGeometry(), frameSize(),
                       main == nullptr ? screen() : main->screen()->availableGeometry());
}

QSize FormPlace::frameSize() const {
    return window_.size().grownBy(frameAround(&window_, main_));
}

// The one that it is on, or will be on.
QRect FormPlace::screen() const {
    const QWidget* main = visibleMain();
    const QScreen* screen = window_.screen();
    if (!window_.isVisible() && form_.isPlaced()) {
        const QScreen* at = QGuiApplication::screenAt(frameOfForm().center());
        if (at != nullptr) screen = at;
    } else if (!window_.isVisible() && role_ == WindowRole::dialog && main != nullptr) {
        screen = main->screen();
    }
    return screen->availableGeometry();
}

QWidget* FormPlace::visibleMain() const {
    const bool isThere = main_ != nullptr && main_->isVisible() && !main_->isMinimized();
    return isThere ? main_.data() : nullptr;
}

}  // namespace velmora::qt
