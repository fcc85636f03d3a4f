// The action that deletes the first listed file of the short drive, and the listed folders in front
// of it.
#pragma once

#include <string>

#include "alerts/actions/action_parts.h"

namespace velmora {

class DeleteAction {
  public:
    explicit DeleteAction(ActionParts& parts) : parts_(parts) {}

    /// One file a run. The end of the walk is the number of rows at its start: after a folder has
    /// left the list it may run past the last row, which is error 35600. Error 70 for a listed
    /// folder that is the root of a drive, and 35600 when another row is in the short one's place;
    /// both before anything was deleted.
    void run(Shortage& shortage);

  private:
    int walk(Shortage& shortage);
    bool isOfRow(const std::string& root, const Shortage& shortage, std::string& rowPath);
    void deleteFolder(Shortage& shortage, int place);
    void deleteFile(Shortage& shortage, int place);

    ActionParts& parts_;
};

}  // namespace velmora
