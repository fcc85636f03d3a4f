// Colours of the labels that act as buttons.
#pragma once

#include "controls/buttons.h"

namespace velmora::label_colour {

inline constexpr Colour orange = 33023;
inline constexpr Colour deepBlue = 0x400000;

/// Gives labels the text colour and the background of buttons.
template <typename Labels>
void dressAsButtons(Labels& labels) {
    for (Label& label : labels) {
        label.setForeColor(orange);
        label.setBackColor(deepBlue);
    }
}

}  // namespace velmora::label_colour
