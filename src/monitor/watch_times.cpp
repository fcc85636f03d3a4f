#include "monitor/watch_times.h"

#include "base/convert.h"

namespace velmora {

void enableWatchTimes(const CheckBox& chkCustTime, std::array<DatePicker, 2>& DTTime1) {
    for (DatePicker& time : DTTime1) time.setEnabled(chkCustTime.ticked());
}

void stepSeconds(TextBox& txtTime, int by, const Regional& regional) {
    const auto seconds = readNumber(txtTime.Text(), regional);
    if (!seconds || (by < 0 && *seconds < 2)) return;
    txtTime.setText(toText(*seconds + by, regional));
}

std::int32_t secondsOf(const DatePicker& interval) {
    return interval.Second() + 3600 * interval.Hour() + 60 * interval.Minute();
}

}  // namespace velmora
