// The note that shows what a user should know about fields.
#pragma once

#include "forms/form1.h"
#include "forms/hints.h"

namespace velmora {

class HintNote {
  public:
    /// Connects to the hints and to the note's button.
    HintNote(Form1& form1, Hints& hints);
    HintNote(const HintNote&) = delete;
    HintNote& operator=(const HintNote&) = delete;

    /// Adds a line and shows the note.
    void say(const std::string& line);

  private:
    void take();

    Form1& form1_;
};

}  // namespace velmora
