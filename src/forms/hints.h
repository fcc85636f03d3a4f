// What a user should know about a field besides what is shown: settings that don't come back as
// they are, a run that can't go on.
#pragma once

#include <set>
#include <string>
#include <tuple>

#include "controls/event.h"

namespace velmora {

enum class HintAbout {
    comingBack,  ///< what the next start makes of a field that was saved
    saving,      ///< a field that can't be written into the settings file
    working,     ///< what can't go on now
};

struct Hint {
    std::string field;       ///< as the console names it
    std::string text;        ///< what happens and how to change it, without a value of the settings
    bool endsStart = false;  ///< the next start would end with an error
    HintAbout about = HintAbout::comingBack;

    bool operator==(const Hint&) const = default;
};

class Hints {
  public:
    /// Says it once a start for each field and what it is about; does nothing the next time.
    void say(const Hint& hint);

    Event<const Hint&> Said;

  private:
    std::set<std::tuple<std::string, HintAbout, bool>> said_;
};

}  // namespace velmora
