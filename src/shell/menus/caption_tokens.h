// The words of the caption language, letter for letter.
#pragma once

#include <span>
#include <string_view>

namespace velmora::mark {

inline constexpr std::string_view image = "{IMG:";
inline constexpr std::string_view noImage = "{IMG:0";
inline constexpr std::string_view raised = "{Raised}";
inline constexpr std::string_view sideBar = "{SIDEBAR:";
inline constexpr std::string_view lineBreak = "<BR!>";
/// Every word but the next two begins with one of these.
inline constexpr std::string_view firstCharacters = "{|<";
inline constexpr char subItem = '+';
inline constexpr char hotKeyTab = '\t';

// Values of the type of a side bar, and of its background.
inline constexpr std::string_view textBar = "TEXT";
inline constexpr std::string_view none = "NONE";
inline constexpr std::string_view mixedNone = "None";
inline constexpr std::string_view back = "BACK";
inline constexpr std::string_view mixedBack = "Background";

enum class Key {
    tip,
    isDefault,
    yes,
    no,
    id,
    caption,
    fontSize,
    leastFontSize,
    foreColour,
    width,
    backColour,
    font,
    bold,
    underline,
    italic,
    gradient,
    reverseGradient,
    alignTop,
    alignBottom,
};

/// A key takes the text that follows it as its value when its spelling ends with a colon; else it
/// is a flag.
struct KeyToken {
    std::string_view spelling;
    Key key;

    constexpr bool takesValue() const { return spelling.ends_with(':'); }
};

/// Of several spellings of a key the first is the one that is written.
inline constexpr KeyToken itemKeys[] = {
    {"|TIP:", Key::tip},
    {"|Default", Key::isDefault},
    {"|default", Key::isDefault},
    {"|Y", Key::yes},
    {"|N", Key::no},
    {"|ID:", Key::id},
};

inline constexpr KeyToken sideBarKeys[] = {
    {"|ID:", Key::id},
    {"|CAPTION:", Key::caption},
    {"|FSIZE:", Key::fontSize},
    {"|MINFONTSIZE:", Key::leastFontSize},
    {"|FCOLOR:", Key::foreColour},
    {"|WIDTH:", Key::width},
    {"|Width:", Key::width},
    {"|BCOLOR:", Key::backColour},
    {"|BColor:", Key::backColour},
    {"|FONT:", Key::font},
    {"|Bold", Key::bold},
    {"|Underline", Key::underline},
    {"|Italic", Key::italic},
    {"|Gradient", Key::gradient},
    {"|GRADIENT", Key::gradient},
    {"|Gradient:Reverse", Key::reverseGradient},
    {"|GRADIENT:REVERSE", Key::reverseGradient},
    {"|ALIGN:Top", Key::alignTop},
    {"|Align:Top", Key::alignTop},
    {"|ALIGN:Bottom", Key::alignBottom},
    {"|Align:Bottom", Key::alignBottom},
};

/// The key that the text begins with, null for none. A flag counts only where the text ends after
/// it or goes on with one of the characters `after`: "|Yes" isn't "|Y".
const KeyToken* keyAt(std::string_view text, std::span<const KeyToken> keys,
                      std::string_view after);

/// How a key is written.
std::string_view spelling(std::span<const KeyToken> keys, Key key);

}  // namespace velmora::mark
