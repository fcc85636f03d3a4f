// Keeps the program within the user's reach on a desktop without a notification area: there a
// hidden window could never be called back.
#pragma once

#include "forms/forms.h"
#include "platform/notify_area.h"

namespace velmora {

class Reachability {
  public:
    /// Connects to the main window's and the lock's hiding and showing.
    Reachability(Forms& forms, NotifyArea& notifyArea);
    Reachability(const Reachability&) = delete;
    Reachability& operator=(const Reachability&) = delete;

    /// What the status bar says the first time.
    static constexpr const char* note =
        "No icon stands in a notification area: the window is minimised instead of hidden.";

  private:
    void keep();
    void minimise();
    void restore(Form& form);

    Forms& forms_;
    NotifyArea& notifyArea_;
    bool noteShown_ = false;
};

}  // namespace velmora
