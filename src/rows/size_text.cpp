#include "rows/size_text.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "base/convert.h"
#include "base/text.h"

namespace velmora {

namespace {

constexpr std::string_view kilobyteUnit = " KB";

// Below, no fraction of a KB is lost among the 15 digits that a number shows, and rounding is
// plain.
constexpr double mostPlainKB = 1e11;
constexpr std::size_t mostMarkSize = 4;

bool isPlain(double bytes, std::string_view mark) {
    return bytes >= 0 && bytes / 1024 < mostPlainKB && bytes == std::floor(bytes) &&
           mark.size() <= mostMarkSize;
}

}  // namespace

double kilobytes(double bytes) {
    return std::round(bytes / 1024);
}

std::string kilobyteText(double bytes, Grouping grouping, const Regional& regional) {
    return std::string(KilobyteText(bytes, grouping, regional).text());
}

KilobyteText::KilobyteText(double bytes, Grouping grouping, const Regional& regional) {
    const std::string_view mark =
        grouping == Grouping::regional ? regional.digitGroup : std::string_view();
    if (!isPlain(bytes, mark)) {
        large_ = withUnit(FormatNumber(bytes / 1024, 0, grouping, regional));
        return;
    }
    char* const end = room_.data() + room_.size();
    char* at = end;
    const auto putInFront = [&at](std::string_view piece) {
        at -= piece.size();
        piece.copy(at, piece.size());
    };
    putInFront(kilobyteUnit);
    auto rest = static_cast<std::uint64_t>(kilobytes(bytes));
    for (int digits = 0; digits == 0 || rest > 0; ++digits, rest /= 10) {
        if (digits > 0 && digits % 3 == 0) putInFront(mark);
        *--at = static_cast<char>('0' + rest % 10);
    }
    text_ = {at, static_cast<std::size_t>(end - at)};
}

std::string folderSizeText(double bytes, const Regional& regional) {
    return withUnit(Format(bytes / 1024, "##.##", regional));
}

std::string withUnit(std::string number) {
    return std::move(number.append(kilobyteUnit));
}

std::string withoutUnit(std::string_view size) {
    return replaceAll(size, kilobyteUnit, "");
}

std::string_view withoutUnit(std::string_view size, std::string& room) {
    const std::size_t unit = size.find(kilobyteUnit);
    if (unit == std::string_view::npos) return size;
    if (unit + kilobyteUnit.size() == size.size()) return size.substr(0, unit);
    room = withoutUnit(size);
    return room;
}

std::optional<double> readKilobytes(std::string_view size, const Regional& regional) {
    std::string room;
    return readNumber(withoutUnit(size, room), regional);
}

bool holdsNotAvailable(std::string_view text) {
    for (std::size_t slash = text.find('/'); slash != std::string_view::npos;
         slash = text.find('/', slash + 1)) {
        if (slash == 0 || slash + 1 == text.size()) continue;
        const char before = text[slash - 1];
        const char after = text[slash + 1];
        if ((before == 'n' || before == 'N') && (after == 'a' || after == 'A')) return true;
    }
    return false;
}

}  // namespace velmora
