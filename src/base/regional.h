// The regional form of numbers and dates: the machine's own in the programs, fixed in tests.
#pragma once

#include <string>

namespace velmora {

enum class DateOrder { monthDayYear, dayMonthYear, yearMonthDay };

struct Regional {
    std::string digitGroup = ",";    ///< between groups of three digits; may be empty
    std::string decimalPoint = ".";  ///< one character, perhaps of several bytes
    DateOrder dateOrder = DateOrder::monthDayYear;
    std::string dateSeparator = "/";
    std::string timeSeparator = ":";
    bool twelveHourClock = true;  ///< regional times carry AM or PM
};

}  // namespace velmora
