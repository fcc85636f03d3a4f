// A timer: fires its event each `Interval` while it is enabled. Whoever runs the message loop
// keeps the time; the control only says what it wants.
#pragma once

#include <cstdint>

#include "controls/control.h"

namespace velmora {

class Timer : public Control {
  public:
    /// `interval` in milliseconds; 0 never fires.
    Timer(Form& form, std::string name, int interval, bool enabled);

    int Interval() const { return interval_; }
    /// Starts the count anew, also with the value that stands. Error 380 below 0.
    void setInterval(int interval);
    /// Starts the count anew when the timer was off.
    void setEnabled(bool enabled) override;

    /// The timer's tick.
    Event<> Tick;
    /// The count starts anew or the timer is switched: for the message loop.
    Notice<> Restarted;

    std::string mainProperty() const override { return "Enabled"; }
    Properties properties() override;

  private:
    int interval_;
};

}  // namespace velmora
