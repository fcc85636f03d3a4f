#include "shell/menus/side_bar_keys.h"

#include <optional>

#include "base/text.h"
#include "shell/menus/caption_values.h"
#include "shell/menus/menu_caption.h"

namespace velmora {

namespace {

using mark::Key;

bool takeBackground(SideBar& bar, std::string_view value) {
    const bool isNone = value == mark::none || value == mark::mixedNone;
    const bool isMenu = value == mark::back || value == mark::mixedBack;
    Colour read = 0;
    if (!isNone && !isMenu && !readColour(read, value)) return false;
    bar.back = isNone   ? SideBar::Back::nothing
               : isMenu ? SideBar::Back::menu
                        : SideBar::Back::colour;
    bar.backColour = read;
    return true;
}

/// Whether the key is a flag of a side bar.
bool takeFlag(SideBar& bar, Key key) {
    switch (key) {
        case Key::bold:
            return bar.bold = true;
        case Key::underline:
            return bar.underline = true;
        case Key::italic:
            return bar.italic = true;
        case Key::gradient:
            bar.gradient = SideBar::Gradient::plain;
            return true;
        case Key::reverseGradient:
            bar.gradient = SideBar::Gradient::reverse;
            return true;
        case Key::alignTop:
            bar.align = SideBar::Align::top;
            return true;
        case Key::alignBottom:
            bar.align = SideBar::Align::bottom;
            return true;
        default:
            return false;
    }
}

/// The keys of a side bar, one behind the other.
class WrittenKeys {
  public:
    void key(Key key, const std::string& value = {}) {
        text_.append(mark::spelling(mark::sideBarKeys, key)).append(value);
    }
    void flag(bool isSet, Key name) {
        if (isSet) key(name);
    }
    void text(const std::string& value, Key name) {
        if (!value.empty()) key(name, replaceAll(value, lineEnd, mark::lineBreak));
    }
    void number(std::optional<int> value, std::optional<int> otherwise, Key name) {
        if (value && value != otherwise) key(name, std::to_string(*value));
    }
    const std::string& written() const { return text_; }

  private:
    std::string text_;
};

}  // namespace

bool takeSideBarKey(SideBar& bar, Key key, std::string_view value) {
    switch (key) {
        case Key::id:
            return readNumber(bar.panel, value);
        case Key::caption:
            bar.caption = withLineBreaks(value);
            return true;
        case Key::font:
            bar.font = value;
            return true;
        case Key::fontSize:
            return readWhole(bar.fontSize, value, 1, SideBar::mostFontSize);
        case Key::leastFontSize:
            return readWhole(bar.leastFontSize, value, 1, SideBar::mostFontSize);
        case Key::width:
            return readWhole(bar.width, value, 1, SideBar::mostWidth);
        case Key::foreColour:
            return readColour(bar.foreColour, value);
        case Key::backColour:
            return takeBackground(bar, value);
        default:
            return takeFlag(bar, key);
    }
}

std::string writeSideBar(const SideBar& bar) {
    const SideBar plain;
    WrittenKeys keys;
    keys.number(bar.panel, {}, Key::id);
    keys.text(bar.caption, Key::caption);
    if (!bar.font.empty()) keys.key(Key::font, bar.font);
    keys.number(bar.fontSize, plain.fontSize, Key::fontSize);
    keys.number(bar.leastFontSize, plain.leastFontSize, Key::leastFontSize);
    if (bar.foreColour != plain.foreColour) keys.key(Key::foreColour, writeColour(bar.foreColour));
    keys.number(bar.width, {}, Key::width);
    if (bar.back == SideBar::Back::nothing) keys.key(Key::backColour, std::string(mark::none));
    if (bar.back == SideBar::Back::colour) keys.key(Key::backColour, writeColour(bar.backColour));
    keys.flag(bar.bold, Key::bold);
    keys.flag(bar.underline, Key::underline);
    keys.flag(bar.italic, Key::italic);
    keys.flag(bar.gradient == SideBar::Gradient::plain, Key::gradient);
    keys.flag(bar.gradient == SideBar::Gradient::reverse, Key::reverseGradient);
    keys.flag(bar.align == SideBar::Align::top, Key::alignTop);
    const std::string kind = bar.isText ? std::string(mark::textBar) : std::to_string(bar.image);
    return std::string(mark::sideBar) + kind + keys.written() + '}';
}

}  // namespace velmora
