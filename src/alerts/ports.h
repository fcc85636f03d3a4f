// What alerts and checks ask of the main window's side, which lies above them.
#pragma once

#include "controls/form.h"

namespace velmora {

/// Whether the main window stays in front of the others.
class StayOnTop {
  public:
    virtual ~StayOnTop() = default;
    /// Lets a question come in front of the window.
    virtual void drop() = 0;
    /// Puts the window in front again if the user wants it there.
    virtual void restore() = 0;
};

class Translucency {
  public:
    virtual ~Translucency() = default;
    /// `percent` from 20 to 100, which is opaque. Whether the system took it.
    virtual bool SetTranslucency(const Form& form, int percent) = 0;
};

}  // namespace velmora
