// The actions of one step: recycle, auto move, sound, empty the bin, run, mail, cleaner, pause.
#pragma once

#include <cstdint>
#include <string>

#include "alerts/actions/action_parts.h"
#include "alerts/actions/file_actions.h"

namespace velmora {

class SmallActions {
  public:
    SmallActions(ActionParts& parts, FileActions& fileActions)
        : parts_(parts), fileActions_(fileActions) {}

    /// Sends the first listed file to the recycle bin, whichever drive it lies on. The note names
    /// the file that then has the short row's own index; error 35600 when there is none. Its row
    /// goes whatever became of it, also that of a path which is never sent.
    void recycle(Shortage& shortage);
    /// Takes the last other row that is available as the target. Error 13 for a short row whose
    /// text is no number, as no path is.
    void autoMove(Shortage& shortage);
    void playSound();
    void emptyBin(Shortage& shortage);
    /// Opens every listed file that exists.
    void runListed(Shortage& shortage);
    void sendMail(Shortage& shortage);
    void startCleaner(Shortage& shortage);
    void pause(Shortage& shortage);

  private:
    std::int32_t sendToBin(const std::string& path);
    int rowWithSpace(const Shortage& shortage);
    std::string cleanedDrive(const std::string& path);

    ActionParts& parts_;
    FileActions& fileActions_;
};

}  // namespace velmora
