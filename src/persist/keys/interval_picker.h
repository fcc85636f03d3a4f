// The interval picker, set from the interval's seconds as the settings file has them.
#pragma once

#include "controls/pickers.h"

namespace velmora {

/// The interval picker out of a number of seconds, by the rules of the file: hours are a rounded
/// quotient, minutes above 59 become the remainder by 3600, seconds below 10 are dropped. A part
/// that the picker can't hold stays as it was.
void setInterval(DatePicker& picker, double seconds);

}  // namespace velmora
