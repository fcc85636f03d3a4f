// Runs the program's timers from Qt's event loop, with one timer of Qt's for all of them.
#pragma once

#include <QTimer>
#include <vector>

#include "controls/timer_queue.h"
#include "forms/forms.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

class QtTimers : public QObject {
    Q_OBJECT
  public:
    QtTimers(Forms& forms, std::function<std::int64_t()> tickCount, UserHand& hand);

    /// Fires the timers that are due; an error is treated as in every handler.
    void fireDue();

  private:
    void rearm();
    bool formsExist() const { return !restarted_.empty() && restarted_.front().connected(); }

    TimerQueue queue_;
    UserHand& hand_;
    QTimer next_;
    bool rearming_ = false;
    std::vector<ScopedConnection> restarted_;
};

}  // namespace velmora::qt
