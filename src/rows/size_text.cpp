#include "rows/size_text.h"

#include <cmath>
#include <utility>

#include "base/convert.h"
#include "base/text.h"

namespace velmora {

namespace {
constexpr const char* kilobyteUnit = " KB";
}

double kilobytes(double bytes) {
    return std::round(bytes / 1024);
}

std::string kilobyteText(double bytes, Grouping grouping, const Regional& regional) {
    return withUnit(FormatNumber(bytes / 1024, 0, grouping, regional));
}

std::string folderSizeText(double bytes, const Regional& regional) {
    return withUnit(Format(bytes / 1024, "##.##", regional));
}

std::string withUnit(std::string number) {
    return std::move(number) + kilobyteUnit;
}

std::string withoutUnit(std::string_view size) {
    return replaceAll(size, kilobyteUnit, "");
}

std::optional<double> readKilobytes(std::string_view size, const Regional& regional) {
    return readNumber(withoutUnit(size), regional);
}

bool holdsNotAvailable(const std::string& text) {
    return contains(lowerCase(text), "n/a");
}

}  // namespace velmora
