// The user's regional form, from the locale of the environment.
#pragma once

#include <string>
#include <string_view>

#include "base/regional.h"

namespace velmora::linuxhost {

/// The settings of a locale, as the C library names them.
struct LocaleForms {
    std::string radix;  ///< RADIXCHAR
    std::string group;  ///< THOUSEP
    std::string date;   ///< D_FMT
    std::string time;   ///< T_FMT
    std::string codeset = "UTF-8";
};

/// Order and separators out of the patterns. A date separator other than "/", "-" and "." becomes
/// "/", since dates are read back with these; a time separator other than ":" and "." becomes ":".
Regional regionalOf(const LocaleForms& forms);

/// The forms of the environment's locale. The "C" locale, or one that isn't installed, is no
/// region's: the default Regional then. Leaves the program's own locale alone.
Regional userRegional();

}  // namespace velmora::linuxhost
