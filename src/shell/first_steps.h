// The way into the setup wizard for who uses the program for the first time. It is offered until
// something was watched once, and never again.
#pragma once

#include "forms/form1.h"
#include "platform/user_state.h"

namespace velmora {

class FirstSteps {
  public:
    /// Connects its handlers to the form. Both must outlive it.
    FirstSteps(Form1& form1, UserState& state);
    FirstSteps(const FirstSteps&) = delete;
    FirstSteps& operator=(const FirstSteps&) = delete;

  private:
    void lookForWatchedRow();

    Form1& form1_;
    UserState& state_;
};

}  // namespace velmora
