// The buttons beside the sounds of the settings: choosing them and listening to them.
#pragma once

#include <cstddef>
#include <string>

#include "alerts/system/system_actions.h"
#include "forms/form1.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class SoundButtons {
  public:
    /// Connects cmdPlay, cmdAudio and cmdSnd.
    SoundButtons(Form1& form1, Platform& platform, Host& host, SystemActions& actions);
    SoundButtons(const SoundButtons&) = delete;
    SoundButtons& operator=(const SoundButtons&) = delete;

    /// Gives a sound that isn't chosen yet its default, the system's own chime; nothing on a system
    /// that doesn't know its folder.
    void setDefaults();
    /// Plays the sound of that place, 0 or 1, to its end; a message when its file isn't there.
    void cmdPlay_Click(std::size_t index);
    /// Lets the user choose it. A message for a file that isn't there; nothing when dismissed.
    void cmdAudio_Click(std::size_t index);
    /// Plays the program's own alert sound.
    void cmdSnd_Click();

  private:
    void sayMissing(const std::string& file);

    Form1& form1_;
    Platform& platform_;
    Host& host_;
    SystemActions& actions_;
};

}  // namespace velmora
