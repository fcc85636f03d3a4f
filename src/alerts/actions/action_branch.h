// The actions on a shortage: what each ticked entry of lstAct does for a short row.
#pragma once

#include "alerts/actions/action_parts.h"
#include "alerts/actions/action_table.h"
#include "alerts/actions/delete_action.h"
#include "alerts/actions/file_actions.h"
#include "alerts/actions/move_action.h"
#include "alerts/actions/small_actions.h"

namespace velmora {

class Actions {
  public:
    explicit Actions(ActionParts parts);
    Actions(const Actions&) = delete;
    Actions& operator=(const Actions&) = delete;

    /// All actions. The places of the alert and of the progress dialog have none.
    const ActionTable& table() const { return table_; }

  private:
    ActionParts parts_;
    MoveAction move_;
    DeleteAction delete_;
    FileActions files_;
    SmallActions small_;
    ActionTable table_;
};

}  // namespace velmora
