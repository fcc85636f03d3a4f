#include "base/drive_text.h"

#include "base/text.h"

namespace velmora {

std::string prcGetDrive(const std::string& strDri) {
    const std::size_t first = position(strDri, ":") + 1;
    const std::size_t last = lastPosition(strDri, ":") + 1;
    return trim(mid(strDri, first, last - first) + "\\");
}

std::string prcChkDriv(const std::string& strText) {
    const std::string root = left(strText, position(strText, ":") + 1);
    return length(root) < 3 ? "c:\\" : root;
}

std::string withoutLineEnds(std::string text) {
    text.resize(text.find_last_not_of("\r\n") + 1);
    return text;
}

std::string prcSetDiskSizeDimension(double lngSpace, const Regional& regional) {
    const auto sized = [&regional](double value, const char* unit) {
        return Format(value, "##,##0.0", regional) + unit;
    };
    if (lngSpace > 1e9) return sized(lngSpace / 1e9, " TB");
    if (lngSpace >= 1000001 && lngSpace < 1e9) return sized(lngSpace / 1e6, " GB");
    if (lngSpace >= 1001 && lngSpace < 1e6) return sized(lngSpace / 1e3, " MB");
    if (lngSpace >= 2 && lngSpace < 1e3) return sized(lngSpace, " KB");
    return "0 KB";
}

}  // namespace velmora
