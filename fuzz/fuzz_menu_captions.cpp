// Captions of menu items from any bytes: they are read, nothing is made up, and what is written
// from a record is read back as that record.
#include <array>
#include <cstddef>
#include <string>

#include "base/text.h"
#include "fuzz_target.h"
#include "shell/menus/cls_my_menu.h"

using namespace velmora;

namespace {

using Counts = std::array<std::size_t, 256>;

Counts bytesOf(std::string_view text) {
    Counts counts{};
    for (char c : text) ++counts[static_cast<unsigned char>(c)];
    return counts;
}

bool isWithin(int number, int most) {
    return number >= 0 && number <= most;
}

void checkNumbers(const MenuCaption& read) {
    require(isWithin(read.image, MenuCaption::mostNumber), "a picture has its number");
    require(isWithin(read.panel.value_or(0), MenuCaption::mostNumber), "a panel has its number");
    require(read.hotKeyPos <= length(read.text), "a hot key is in the text");
    if (!read.sideBar) return;
    const SideBar& bar = *read.sideBar;
    require(isWithin(bar.image, MenuCaption::mostNumber), "the bar's picture has its number");
    require(bar.fontSize >= 1 && bar.fontSize <= SideBar::mostFontSize, "letters have a size");
    require(bar.leastFontSize >= 1 && bar.leastFontSize <= SideBar::mostFontSize,
            "letters have a least size");
    require(bar.width.value_or(1) >= 1 && bar.width.value_or(1) <= SideBar::mostWidth,
            "a bar has a width");
}

/// Every byte that is shown stands in the caption, but for those of line breaks, which the caption
/// may have in another form.
void checkTexts(std::string_view caption, const MenuCaption& read) {
    std::string shown = read.text + read.tip;
    if (read.sideBar) shown += read.sideBar->caption + read.sideBar->font;
    Counts before = bytesOf(caption);
    for (const char c : lineEnd) before[static_cast<unsigned char>(c)] = shown.size();
    const Counts after = bytesOf(shown);
    for (std::size_t i = 0; i < after.size(); ++i) {
        require(after[i] <= before[i], "a byte that is shown stands in the caption");
    }
    const bool hasMarks = caption.find_first_of("{|<+") != caption.npos;
    require(hasMarks || read.text == caption, "a caption without marks is its text");
}

void checkRecord(const std::string& caption, const MenuCaption& read) {
    clsMyMenu menu;
    menu.setOriginalCaption(1, caption);
    require(menu.OriginalCaption(1) == caption, "the caption is kept");
    require(menu.Caption(1) == read.text, "the record has the text");
    require(menu.HotKeyEdge(menu.GetPanelID(1)) >= 0, "hot keys have an edge");
    const int panel = read.sideBar ? read.sideBar->panel.value_or(menu.GetPanelID(1)) : 0;
    const PanelInformation information = menu.GetPanelInformation(panel);
    require(information.SideBarItem.has_value() == (information.SideBarWidth > 0),
            "a side bar that stands has a width");
    require(!read.sideBar || information.SideBarItem || !information.Message.empty(),
            "a side bar stands or has a message");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string caption(asText(data, size));
    const MenuCaption read = parseCaption(caption);
    checkNumbers(read);
    checkTexts(caption, read);
    const std::string written = writeCaption(read);
    require(parseCaption(written) == read, "what is written is read as it was");
    require(writeCaption(parseCaption(written)) == written, "the shortest form is the shortest");
    checkRecord(caption, read);
    return 0;
}
