#include "qt/controls/column_fit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velmora::qt {

namespace {

int widthOf(const ColumnNeed& need) {
    return need.isEmpty ? 0 : std::max(need.wanted, need.least);
}

}  // namespace

std::vector<int> fittedWidths(const std::vector<ColumnNeed>& needs, int room, int stretched,
                              double stretchedShare) {
    std::vector<int> widths;
    int over = -room;
    for (std::size_t i = 0; i < needs.size(); ++i) {
        int width = widthOf(needs[i]);
        if (static_cast<int>(i) == stretched) {
            const int share = static_cast<int>(std::ceil(stretchedShare * room));
            width = std::max(share, needs[i].least);
        }
        widths.push_back(width);
        over += width;
    }
    if (stretched < 0) return widths;
    for (std::size_t i = needs.size(); i-- > 0 && over > 0;) {
        if (static_cast<int>(i) == stretched || needs[i].isEmpty) continue;
        const int given = std::clamp(widths[i] - needs[i].least, 0, over);
        widths[i] -= given;
        over -= given;
    }
    if (over < 0) widths[static_cast<std::size_t>(stretched)] -= over;
    return widths;
}

bool isTight(const std::vector<ColumnNeed>& needs, const std::vector<int>& widths, int room,
             int stretched) {
    int sum = 0;
    for (std::size_t i = 0; i < needs.size(); ++i) {
        sum += widths[i];
        if (static_cast<int>(i) != stretched && widths[i] < widthOf(needs[i])) return true;
    }
    return sum > room;
}

}  // namespace velmora::qt
