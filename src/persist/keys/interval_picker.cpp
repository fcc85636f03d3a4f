#include "persist/keys/interval_picker.h"

#include "base/convert.h"

namespace velmora {

void setInterval(DatePicker& picker, double seconds) {
    const auto put = [&picker](int most, void (DatePicker::*set)(int), std::int32_t value) {
        if (value >= 0 && value <= most) (picker.*set)(value);
    };
    put(23, &DatePicker::setHour, seconds >= 3600 ? toLong(seconds / 3600) : 0);

    std::int32_t minutes = 0;
    if (seconds >= 60) {
        minutes = toLong(seconds / 60);
        if (minutes >= 60) minutes = toLong(seconds) % 3600;
    }
    put(59, &DatePicker::setMinute, minutes);

    std::int32_t rest = 0;
    if (seconds >= 60) {
        rest = toLong(seconds) % 60;
    } else if (seconds >= 10) {
        rest = toLong(seconds);
    }
    put(59, &DatePicker::setSecond, rest);
}

}  // namespace velmora
