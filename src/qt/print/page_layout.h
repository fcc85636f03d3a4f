// Which parts of a printout lie on which page. Heights are in units of pages, from the top of a
// page's room.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace velmora::qt {

/// The heights of all that a printout has.
struct PageParts {
    double room = 0;       ///< of a page without its margins
    double firstHead = 0;  ///< the words above the picture
    double laterHead = 0;  ///< those of the other pages
    double foot = 0;
    double pictureLeast = 0;  ///< below it the picture would need several pages
    double pictureBest = 0;
    double tableHead = 0;
    std::vector<double> rows = {};  ///< of the table
};

/// What a page has between its head and its foot.
struct PageContent {
    struct Piece {
        std::size_t number = 0;  ///< of the picture
        double top = 0;

        bool operator==(const Piece&) const = default;
    };
    struct Rows {
        std::size_t first = 0;
        std::size_t count = 0;
        double top = 0;  ///< of the table's heading, which is on each page

        bool operator==(const Rows&) const = default;
    };
    std::optional<Piece> piece = {};
    std::optional<Rows> rows = {};

    bool operator==(const PageContent&) const = default;
};

/// Space between the picture and the table.
inline constexpr double pageGap = 18;

/// The height for the picture on a page: what the table leaves when both fit on one, otherwise as
/// much as the picture can use.
double pictureRoom(const PageParts& parts);

/// The pages for a picture of such pieces. Each piece has a page of its own, and the table begins
/// below the last one where there is room for some of its rows.
std::vector<PageContent> layPages(const PageParts& parts, const std::vector<double>& pieces);

}  // namespace velmora::qt
