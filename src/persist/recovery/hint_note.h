// The note about settings that don't come back as they were saved.
#pragma once

#include "forms/form1.h"
#include "persist/settings_file.h"

namespace velmora {

class HintNote {
  public:
    /// Connects to the hints and to the note's button.
    HintNote(Form1& form1, SettingsFile& settings);
    HintNote(const HintNote&) = delete;
    HintNote& operator=(const HintNote&) = delete;

    /// Adds a line and shows the note.
    void say(const std::string& line);

  private:
    void take();

    Form1& form1_;
};

}  // namespace velmora
