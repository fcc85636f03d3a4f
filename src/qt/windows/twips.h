// Twips, in which forms are measured, as pixels of the window system.
#pragma once

#include <cmath>

#include "controls/control.h"

namespace velmora::qt {

/// Also for places to the left of the main screen, which are negative.
inline int pixelsOf(int twips) {
    return static_cast<int>(std::lround(static_cast<double>(twips) / twipsPerPixel));
}

}  // namespace velmora::qt
