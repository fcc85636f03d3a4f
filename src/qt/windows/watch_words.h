// The state of the watch, as a screen reader says it.
#pragma once

#include <QString>

#include "controls/buttons.h"

namespace velmora::qt {

/// Whether the watch runs, by what its button offers.
QString stateWords(const CommandButton& pause);

}  // namespace velmora::qt
