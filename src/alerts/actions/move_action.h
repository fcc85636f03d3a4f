// The action that moves the listed files of the short drive to the root of the specified path.
#pragma once

#include <string>

#include "alerts/actions/action_parts.h"

namespace velmora {

class MoveAction {
  public:
    explicit MoveAction(ActionParts& parts) : parts_(parts) {}

    /// Takes all listed files of the row's root, from the last one up. A file that doesn't exist
    /// stays listed; every other one leaves the list, whether it was moved or not. Error 35600
    /// before anything was touched when another row is in the short one's place.
    void run(Shortage& shortage);

  private:
    void take(Shortage& shortage, int place, const std::string& strPath);
    bool hasRoomFor(const std::string& file, const std::string& strPath);

    ActionParts& parts_;
};

}  // namespace velmora
