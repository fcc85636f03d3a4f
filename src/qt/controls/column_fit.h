// Widths of a list's columns: what must be read is whole, and one column takes the rest.
#pragma once

#include <vector>

namespace velmora::qt {

/// What a column needs, in pixels.
struct ColumnNeed {
    int wanted = 0;  ///< for its heading and all of its texts
    int least = 0;   ///< for its heading alone
    bool isEmpty = false;
};

/// Widths in a room of that many pixels. A column without texts takes none. Each other column has
/// what it wants, and the stretched one (its number from 0, -1 for none) takes what is left, at
/// least `stretchedShare` of the room. Where that is too much, columns shrink from the last one on,
/// none below its least; the result may be wider than the room. Without a stretched column none
/// shrinks: such a list has many columns alike, and is scrolled.
std::vector<int> fittedWidths(const std::vector<ColumnNeed>& needs, int room, int stretched,
                              double stretchedShare);

/// Whether a column that isn't stretched has less than it wants, or all are wider than the room.
bool isTight(const std::vector<ColumnNeed>& needs, const std::vector<int>& widths, int room,
             int stretched);

}  // namespace velmora::qt
