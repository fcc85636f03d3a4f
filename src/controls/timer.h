// A timer: fires its event each `Interval` while it is enabled. The message loop keeps the time;
// the control only holds the settings.
#pragma once

#include <cstdint>

#include "controls/control.h"

namespace velmora {

class Timer : public Control {
  public:
    /// `interval` in milliseconds; 0 never fires.
    Timer(Form& form, std::string name, int interval, bool enabled);

    int Interval() const { return interval_; }
    /// Restarts the count, also with an unchanged value. Error 380 below 0.
    void setInterval(int interval);
    /// Restarts the count when the timer was off.
    void setEnabled(bool enabled) override;

    /// The timer's tick.
    Event<> Tick;
    /// Runs the tick, as the message loop does. When a handler fails, a timer that was on before is
    /// on again: a handler that switches its timer off meanwhile must not end it by an error.
    void fire();
    /// The count restarts or the timer is switched on or off: for the message loop.
    Notice<> Restarted;

    std::string mainProperty() const override { return "Enabled"; }
    Properties properties() override;

  private:
    int interval_;
};

}  // namespace velmora
