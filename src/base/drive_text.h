// Small text routines for drive paths and sizes.
#pragma once

#include <string>

#include "base/format_number.h"
#include "base/leading_number.h"
#include "base/regional.h"

namespace velmora {

/// The drive part of a display line of lstInfo: from the first ":" on up to the last, with a
/// back-slash appended, trimmed.
std::string prcGetDrive(const std::string& strDri);

/// The root of a path: up to one character past the first ":"; "c:\" when that is shorter than
/// three characters.
std::string prcChkDriv(const std::string& strText);

/// The text without its trailing line ends: each saving and reading of the settings appends one
/// more to a path.
std::string withoutLineEnds(std::string text);

/// A size in KB as a text in KB, MB, GB or TB by decimal factors. Exactly 1, 1000, 1000000 and
/// 1000000000 fall between the ranges and give "0 KB".
std::string prcSetDiskSizeDimension(double lngSpace, const Regional& regional);

}  // namespace velmora
