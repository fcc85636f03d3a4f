#include "platform/windows/settings/windows_regional.h"

#include <windows.h>

#include <array>
#include <string>

#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

// A setting as text; `otherwise` when the system has none.
std::string setting(LCTYPE which, const std::string& otherwise) {
    std::array<wchar_t, 80> text{};
    const int size = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, which, text.data(),
                                     static_cast<int>(text.size()));
    return size > 0 ? toUtf8(text.data()) : otherwise;
}

DateOrder dateOrder() {
    const std::string order = setting(LOCALE_IDATE, "0");
    if (order == "1") return DateOrder::dayMonthYear;
    if (order == "2") return DateOrder::yearMonthDay;
    return DateOrder::monthDayYear;
}

}  // namespace

Regional userRegional() {
    const Regional otherwise;
    Regional regional;
    regional.digitGroup = setting(LOCALE_STHOUSAND, otherwise.digitGroup);
    regional.decimalPoint = setting(LOCALE_SDECIMAL, otherwise.decimalPoint);
    regional.dateOrder = dateOrder();
    regional.dateSeparator = setting(LOCALE_SDATE, otherwise.dateSeparator);
    regional.timeSeparator = setting(LOCALE_STIME, otherwise.timeSeparator);
    regional.twelveHourClock = setting(LOCALE_ITIME, "0") == "0";
    return regional;
}

}  // namespace velmora::windows
