// How rows and alerts write a size, and how it is read back: a number of KB and its unit. Another
// text in its place says that the size is not available.
#pragma once

#include <array>
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
/// The same text without an allocation for sizes below 90 TB: a check builds one for each row, and
/// most rows show it already.
class KilobyteText {
  public:
    KilobyteText(double bytes, Grouping grouping, const Regional& regional);
    std::string_view text() const { return text_.empty() ? large_ : text_; }
    KilobyteText(const KilobyteText&) = delete;
    KilobyteText& operator=(const KilobyteText&) = delete;

  private:
    std::array<char, 48> room_;  // filled from its end
    std::string_view text_;
    std::string large_;
};

/// The size of a folder, with up to two decimals: "1.5 KB".
std::string folderSizeText(double bytes, const Regional& regional);

/// A number of KB that is a text already, with its unit.
std::string withUnit(std::string number);
/// The number of a size's text: every " KB" is cut.
std::string withoutUnit(std::string_view size);
/// The same as a part of `size` where that has one unit, at its end; else it is put into `room`.
std::string_view withoutUnit(std::string_view size, std::string& room);
/// The KB that a size's text means, with or without digit groups and unit; nothing for a text that
/// is no number.
std::optional<double> readKilobytes(std::string_view size, const Regional& regional);

/// Whether a text holds "n/a", in capitals or not.
bool holdsNotAvailable(std::string_view text);

}  // namespace velmora
