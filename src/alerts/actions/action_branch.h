// The actions on a shortage: what each ticked entry of lstAct does for a short row.
#pragma once

#include "alerts/actions/action_parts.h"
#include "alerts/actions/delete_action.h"
#include "alerts/actions/file_actions.h"
#include "alerts/actions/move_action.h"
#include "alerts/actions/small_actions.h"
#include "alerts/ports.h"

namespace velmora {

class Actions final : public ActionRunner {
  public:
    Actions(Forms& forms, Platform& platform, Host& host, AlertList& alerts, SystemActions& system,
            const AlertPorts& ports)
        : parts_{forms, platform, host, alerts, system, ports.watchSwitch, ports.mail},
          move_(parts_),
          delete_(parts_),
          files_(parts_),
          small_(parts_, files_) {}
    Actions(const Actions&) = delete;
    Actions& operator=(const Actions&) = delete;

    /// Runs the action at that place of lstAct; the places of the alert and of the progress dialog
    /// have none, nor has any other. Errors go to the check, whose fault path ends the pass; what
    /// an action had done by then stays done.
    void run(int action, Shortage& shortage) override;
    FileActions& fileActions() { return files_; }

  private:
    ActionParts parts_;
    MoveAction move_;
    DeleteAction delete_;
    FileActions files_;
    SmallActions small_;
};

}  // namespace velmora
