// The forms in which callers stamp their alerts. The mix is intended: the alert list sorts these
// stamps as text.
#pragma once

#include <string>

#include "base/date_time.h"

namespace velmora::alert_time {

inline constexpr const char* minutes = "yyyymmdd HH:mm";
inline constexpr const char* seconds = "yyyymmdd HH:mm:ss";
inline constexpr const char* slashedSeconds = "yyyy/mm/dd HH:mm:ss";

/// The date "mm/dd/yy", a blank and the time "hh:mm:ss".
inline std::string dateAndTime(const DateTime& now) {
    return Format(now, "mm/dd/yy") + " " + Format(now, "hh:mm:ss");
}

}  // namespace velmora::alert_time
