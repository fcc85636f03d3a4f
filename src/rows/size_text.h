// How rows and alerts write a size, and how it is read back: a number of KB and its unit. Another
// text in its place says that the size is not available.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/format_number.h"
#include "base/regional.h"

namespace velmora {

/// Shown where there is no value.
inline constexpr const char* notAvailable = "N/A";

/// Bytes as a whole number of KB.
double kilobytes(double bytes);
/// The same as the rows show it: "1,234 KB".
std::string kilobyteText(double bytes, Grouping grouping, const Regional& regional);
/// The size of a folder, with up to two decimals: "1.5 KB".
std::string folderSizeText(double bytes, const Regional& regional);

/// A number of KB that is a text already, with its unit.
std::string withUnit(std::string number);
/// The number of a size's text: every " KB" is cut.
std::string withoutUnit(std::string_view size);
/// The KB that a size's text means, with or without digit groups and unit; nothing for a text that
/// is no number.
std::optional<double> readKilobytes(std::string_view size, const Regional& regional);

/// Whether a text holds "n/a", in capitals or not.
bool holdsNotAvailable(const std::string& text);

}  // namespace velmora
