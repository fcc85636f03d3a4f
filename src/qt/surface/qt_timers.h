// Runs the program's timers from Qt's event loop, with one timer of Qt's for all of them.
#pragma once

#include <QTimer>

#include "controls/timer_queue.h"
#include "forms/forms.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

class QtTimers : public QObject {
    Q_OBJECT
  public:
    QtTimers(Forms& forms, std::function<std::int64_t()> tickCount, UserHand& hand);

    /// Fires those that are due; errors go the way of every handler's.
    void fireDue();

  private:
    void rearm();

    TimerQueue queue_;
    UserHand& hand_;
    QTimer next_;
    bool rearming_ = false;
};

}  // namespace velmora::qt
