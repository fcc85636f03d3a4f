#include "qt/surface/qt_timers.h"

#include <algorithm>

namespace velmora::qt {

QtTimers::QtTimers(Forms& forms, std::function<std::int64_t()> tickCount, UserHand& hand)
    : queue_(std::move(tickCount)), hand_(hand) {
    next_.setSingleShot(true);
    // Coarse timers may be 5 % late. The program counts in seconds, and the system can wake the
    // processor once for several programs.
    next_.setTimerType(Qt::CoarseTimer);
    connect(&next_, &QTimer::timeout, this, &QtTimers::fireDue);
    for (Form* form : forms.all()) {
        for (Control* control : form->controls()) {
            auto* timer = dynamic_cast<Timer*>(control);
            if (timer == nullptr) continue;
            queue_.add(*timer);
            restarted_.emplace_back(timer->Restarted.connect([this] {
                if (!rearming_) rearm();
            }));
        }
    }
    rearm();
}

void QtTimers::fireDue() {
    if (!formsExist()) return;
    hand_.does([this] { queue_.fireDue(); });
    rearm();
}

// Once per round of the event loop, however often a check restarts its timer.
void QtTimers::rearm() {
    rearming_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            rearming_ = false;
            const auto wait = formsExist() ? queue_.untilNext() : std::nullopt;
            if (wait && !hand_.ended()) {
                next_.start(static_cast<int>(std::min<std::int64_t>(*wait, 3'600'000)));
            } else {
                next_.stop();
            }
        },
        Qt::QueuedConnection);
}

}  // namespace velmora::qt
