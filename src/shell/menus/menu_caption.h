// The caption of a menu item as a form holds it, read into what it asks for: the text to draw, a
// picture, a tip, a panel, a side bar. docs/menu-captions.md describes the language.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "shell/menus/side_bar.h"

namespace velmora {

struct MenuCaption {
    /// The highest number of a picture, a panel or an item's figure; the least is 0.
    static constexpr int mostNumber = 32767;

    /// What is drawn: all that is no mark-up, the hot key included. A line break is CR LF.
    std::string text = {};
    /// Where the hot key begins in the text, in characters from 1; 0 without one.
    std::size_t hotKeyPos = 0;
    int image = 0;  ///< its number in the image list, from 1; 0 for none
    std::string tip = {};
    bool isDefault = false;
    std::optional<bool> ticked = {};  ///< none: the item keeps its tick
    std::optional<int> panel = {};
    bool raised = false;
    bool subItem = false;
    std::optional<SideBar> sideBar = {};

    /// Whether the item only separates others.
    bool separates() const;

    bool operator==(const MenuCaption&) const = default;
};

/// Reads any text, in a time that grows as its length does, and never fails: what isn't understood
/// stays in the text that is drawn.
MenuCaption parseCaption(std::string_view caption);

/// The caption in its shortest form. Parsing it gives back a record that parseCaption has given;
/// a tip with both "}" and a tab, which no caption can hold, is cut.
std::string writeCaption(const MenuCaption& caption);

/// A colour as the caption language writes it, such as "&HFF8000&".
std::string writeColour(Colour colour);

}  // namespace velmora
