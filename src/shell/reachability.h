// Keeps the program within the user's reach on a desktop without a notification area: there a
// hidden window could never be called back.
#pragma once

#include "forms/forms.h"
#include "platform/notify_area.h"
#include "platform/user_state.h"

namespace velmora {

class Reachability {
  public:
    /// Connects to the main window's and the lock's hiding and showing, and to the note's button.
    Reachability(Forms& forms, NotifyArea& notifyArea, UserState& state);
    Reachability(const Reachability&) = delete;
    Reachability& operator=(const Reachability&) = delete;

  private:
    void keep();
    void minimise();
    void showNote();
    void takeNote();
    void restore(Form& form);

    Forms& forms_;
    NotifyArea& notifyArea_;
    UserState& state_;
    bool wasRead_ = false;  // in this run, also where nothing can be kept
};

}  // namespace velmora
