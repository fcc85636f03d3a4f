#include "qt/print/page_layout.h"

#include <algorithm>
#include <numeric>

namespace velmora::qt {

namespace {

// With fewer rows below the picture the table begins on a page of its own.
constexpr std::size_t leastRows = 3;

double bottomOf(const PageParts& parts) {
    return parts.room - parts.foot;
}

double heightOf(const PageParts& parts, std::size_t first, std::size_t last) {
    return std::accumulate(parts.rows.begin() + static_cast<std::ptrdiff_t>(first),
                           parts.rows.begin() + static_cast<std::ptrdiff_t>(last), 0.0);
}

// How many rows fit from there on; always one, since a page without any would be followed by
// another.
std::size_t rowsThatFit(const PageParts& parts, std::size_t first, double room) {
    std::size_t count = 0;
    for (double taken = 0; first + count < parts.rows.size(); ++count) {
        taken += parts.rows[first + count];
        if (taken > room && count > 0) break;
    }
    return count;
}

}  // namespace

double pictureRoom(const PageParts& parts) {
    const double most = bottomOf(parts) - parts.firstHead;
    if (parts.rows.empty()) return std::min(parts.pictureBest, most);
    const double table = pageGap + parts.tableHead + heightOf(parts, 0, parts.rows.size());
    const double beside = most - table;
    return std::min(parts.pictureBest, beside >= parts.pictureLeast ? beside : most);
}

std::vector<PageContent> layPages(const PageParts& parts, const std::vector<double>& pieces) {
    std::vector<PageContent> pages;
    double top = 0;  // of what is free on the last page
    const auto addPage = [&] {
        top = pages.empty() ? parts.firstHead : parts.laterHead;
        pages.emplace_back();
    };
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        addPage();
        pages.back().piece = {.number = i, .top = top};
        top += pieces[i] + pageGap;
    }
    if (pages.empty()) addPage();
    const double start =
        parts.tableHead + heightOf(parts, 0, std::min(leastRows, parts.rows.size()));
    if (!parts.rows.empty() && top + start > bottomOf(parts)) addPage();
    for (std::size_t first = 0; first < parts.rows.size();) {
        if (first > 0) addPage();
        const double room = bottomOf(parts) - top - parts.tableHead;
        const std::size_t count = rowsThatFit(parts, first, room);
        pages.back().rows = {.first = first, .count = count, .top = top};
        first += count;
    }
    return pages;
}

}  // namespace velmora::qt
