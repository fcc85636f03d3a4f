// A side bar: the strip beside the items of a menu that shows a text, or a picture, from the bottom
// up.
#pragma once

#include <optional>
#include <string>

#include "controls/buttons.h"

namespace velmora {

namespace colour {
inline constexpr Colour menu = 0x80000004;
inline constexpr Colour menuText = 0x80000007;
}  // namespace colour

struct SideBar {
    enum class Gradient { none, plain, reverse };
    enum class Align { bottom, top };
    /// What lies under the text or picture: the menu's own colour, nothing, or `backColour`.
    enum class Back { menu, nothing, colour };

    static constexpr int mostFontSize = 400;  ///< points
    static constexpr int mostWidth = 2000;    ///< pixels

    bool isText = true;
    int image = 0;  ///< of a bar that is no text: its number in the image list, from 1
    /// The panel beside which it stands; that of its item without one.
    std::optional<int> panel = {};
    std::string caption = {};
    std::string font = {};  ///< empty: the menu's own
    int fontSize = 12;      ///< points, from 1 to mostFontSize
    /// Down to this size the letters shrink in a menu that is too low for the caption. Points.
    int leastFontSize = 8;
    Colour foreColour = colour::menuText;
    Back back = Back::menu;
    Colour backColour = 0;          ///< 0 unless `back` is a colour
    std::optional<int> width = {};  ///< pixels, from 1 to mostWidth; none: what the content takes
    bool bold = false;
    bool underline = false;
    bool italic = false;
    /// From the background's colour at the bottom to black at the top, or the other way round.
    Gradient gradient = Gradient::none;
    /// The end of the menu at which the text or picture begins.
    Align align = Align::bottom;

    bool operator==(const SideBar&) const = default;
};

}  // namespace velmora
