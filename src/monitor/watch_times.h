// The fields of when the watch runs and how often it checks, as the main window and the setup
// wizard treat them.
#pragma once

#include <array>
#include <cstdint>

#include "base/regional.h"
#include "controls/buttons.h"
#include "controls/pickers.h"
#include "controls/text_box.h"

namespace velmora {

/// Both ends of the custom watch time can be set only while it is switched on.
void enableWatchTimes(const CheckBox& chkCustTime, std::array<DatePicker, 2>& DTTime1);

/// Steps the number of seconds in the text by 1 or -1; down only from 2 on. Another text stays.
void stepSeconds(TextBox& txtTime, int by, const Regional& regional);

/// The time of day as seconds, 0 to 86399.
std::int32_t secondsOf(const DatePicker& interval);

}  // namespace velmora
