#include "qt/windows/form_binding.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <utility>

#include "qt/surface/text.h"
#include "qt/windows/twips.h"

namespace velmora::qt {

namespace {

WindowState stateOf(const QWidget* window) {
    if (window->isMinimized()) return WindowState::minimised;
    return window->isMaximized() ? WindowState::maximised : WindowState::normal;
}

}  // namespace

FormBinding::FormBinding(QWidget* window, Form& form, UserHand& hand, WindowKind kind)
    : QObject(window),
      window_(window),
      form_(form),
      hand_(hand),
      kind_(kind),
      place_(*window, form, kind.role, kind.sized || kind.keepsPlace),
      refresher_(nullptr) {
    window->setObjectName(shown(form.Name()));
    refresher_ = follow(form.Changed, this, [this] { refresh(); });
    raised_ = form.Raised.connect([this] { raise(); });
    window->installEventFilter(this);
}

FormBinding* FormBinding::of(const QWidget* window) {
    return window->findChild<FormBinding*>(QString(), Qt::FindDirectChildrenOnly);
}

void FormBinding::raise() {
    // The program has placed the form before it shows it, and means that place.
    if (std::exchange(isDragged_, false)) place_.showAgain();
    // A hidden window has to be shown before it can come to the front.
    refresher_->refreshNow();
    window_->raise();
    if (kind_.role != WindowRole::notice) window_->activateWindow();
}

void FormBinding::refresh() {
    window_->setWindowTitle(shown(form_.Caption()).trimmed());
    applying_ = true;
    if (form_.Visible() && !window_->isVisible()) prepareShowing();
    // The state first: a window that is no longer maximised returns to its earlier size, which may
    // differ from the form's.
    showVisibility();
    if (kind_.sized) showSize();
    if (window_->isVisible()) place_.show();
    applying_ = false;
}

// The window comes at once as it stays.
void FormBinding::prepareShowing() {
    window_->winId();  // with its handle, some window systems tell its frame
    if (kind_.sized) showSize();
    if (!window_->testAttribute(Qt::WA_Resized)) window_->adjustSize();
    place_.beforeShowing();
}

QSize FormBinding::formSize() const {
    return {form_.Width(), form_.Height()};
}

void FormBinding::showSize() {
    const QSize twips = formSize();
    if (twips.isEmpty() || window_->isMaximized() || window_->isFullScreen()) return;
    // The window has that size, or had it a moment ago: a window system may report sizes late.
    if (twips == chosen_) return;
    chosen_.reset();
    const QSize room = place_.room();
    if (isShownAs(twips, room)) return;
    const QSize before = window_->size();
    const QSize pixels(pixelsOf(twips.width()), pixelsOf(twips.height()));
    resizeTo(pixels.boundedTo(room));
    if (twips != given_.twips) late_.expect(before);
    given_ = {twips, window_->size()};
}

// It doesn't grow by itself when there is more room than was known at first: its lower edge could
// leave the screen.
bool FormBinding::isShownAs(const QSize& twips, const QSize& room) const {
    return window_->isVisible() && !isWaiting_ && twips == given_.twips &&
           window_->size() == given_.pixels && given_.pixels.boundedTo(room) == given_.pixels;
}

void FormBinding::resizeTo(const QSize& size) {
    const QSize before = window_->size();
    if (before == size) return;
    window_->resize(size);
    const bool waited = std::exchange(isWaiting_, window_->size() != size);
    // It was placed while it was larger.
    if (waited && window_->size() != before) place_.showAgain();
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
            return kind_.role != WindowRole::main &&
                   takesKey(static_cast<QKeyEvent*>(event)->key());
        case QEvent::Resize:
            if (kind_.sized && !applying_) reportSize();
            return false;
        case QEvent::Move:
            if (!applying_ && window_->isVisible()) reportMove();
            return false;
        case QEvent::Paint:
            takeFrame();
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
// Back at the size that the program gave it, the form has that one to the twip, also when the
// screen had no room for all of it.
void FormBinding::reportSize() {
    const QSize now = window_->size();
    const QSize before = formSize();
    if (before.isEmpty()) return;
    if (late_.is(now)) return refresher_->touch();
    const auto twipsOf = [](int pixels, int given, int givenTwips, int formTwips) {
        if (pixels == given) return givenTwips;
        return pixels == pixelsOf(formTwips) ? formTwips : pixels * twipsPerPixel;
    };
    const QSize twips(
        twipsOf(now.width(), given_.pixels.width(), given_.twips.width(), before.width()),
        twipsOf(now.height(), given_.pixels.height(), given_.twips.height(), before.height()));
    if (twips == before) return;
    chosen_ = twips == given_.twips ? std::nullopt : std::optional(twips);
    hand_.does([&] { form_.setSize(twips.width(), twips.height()); });
}

void FormBinding::reportMove() {
    isDragged_ = true;
    if (kind_.role != WindowRole::notice) place_.takeMove(hand_);
}

// Its size and place were found without the frame, which the window system makes later.
void FormBinding::takeFrame() {
    if (!place_.frameChanged() || !form_.Visible()) return;
    place_.showAgain();
    refresher_->touch();
}

void FormBinding::reportState() {
    if (!window_->isVisible() || applying_) return;
    hand_.does([this] { form_.setState(stateOf(window_)); });
}

}  // namespace velmora::qt
