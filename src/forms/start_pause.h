// The button of Toolbar1 that starts and pauses the watch: what it offers at a time.
#pragma once

#include "controls/bars.h"
#include "forms/form_numbers.h"

namespace velmora::start_pause {

inline constexpr const char* start = "Start";
inline constexpr const char* pause = "Pause";

inline void offerStart(ToolBar& bar) {
    bar.setButtonCaption(tool::startPause, start);
    bar.setButtonImage(tool::startPause, image::start);
}

inline void offerPause(ToolBar& bar) {
    bar.setButtonCaption(tool::startPause, pause);
    bar.setButtonImage(tool::startPause, image::pause);
}

}  // namespace velmora::start_pause
