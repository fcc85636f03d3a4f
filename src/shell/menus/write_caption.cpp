#include "base/text.h"
#include "shell/menus/caption_tokens.h"
#include "shell/menus/menu_caption.h"
#include "shell/menus/side_bar_keys.h"

namespace velmora {

namespace {

using mark::Key;

std::string_view spelled(Key key) {
    return mark::spelling(mark::itemKeys, key);
}

/// Whether mark-up may begin here. What a flag is followed by isn't asked: more may be written
/// behind it.
bool beginsMark(std::string_view text) {
    if (mark::firstCharacters.find(text.front()) == text.npos) return false;
    for (const std::string_view each :
         {mark::image, mark::sideBar, mark::raised, mark::lineBreak}) {
        if (text.starts_with(each)) return true;
    }
    for (const mark::KeyToken& token : mark::itemKeys) {
        if (text.starts_with(token.spelling)) return true;
    }
    return false;
}

/// A text that is to be drawn as it is. What would be mark-up is parted by `nothing`, a mark that
/// the caption has anyway.
std::string asText(std::string_view text, const std::string& nothing) {
    std::string written;
    for (std::size_t at = 0; at < text.size(); ++at) {
        written += text[at];
        if (beginsMark(text.substr(at))) written += nothing;
    }
    return replaceAll(written, lineEnd, mark::lineBreak);
}

std::string imageGroup(int image, const std::string& keys) {
    return std::string(mark::image) + std::to_string(image) + keys + '}';
}

}  // namespace

std::string writeCaption(const MenuCaption& caption) {
    const std::string tip =
        caption.tip.empty()
            ? ""
            : std::string(spelled(Key::tip)) + replaceAll(caption.tip, lineEnd, mark::lineBreak);
    // A brace would end the group.
    const bool isTipLast = contains(tip, "}");
    std::string written;
    if (caption.image != 0 || (!tip.empty() && !isTipLast)) {
        written += imageGroup(caption.image, isTipLast ? "" : tip);
    }
    if (caption.raised) written += mark::raised;
    if (caption.sideBar) written += writeSideBar(*caption.sideBar);
    if (caption.subItem) written += mark::subItem;
    written += asText(caption.text, imageGroup(caption.image, ""));
    if (caption.isDefault) written += spelled(Key::isDefault);
    if (caption.ticked) written += spelled(*caption.ticked ? Key::yes : Key::no);
    if (caption.panel) written.append(spelled(Key::id)).append(std::to_string(*caption.panel));
    if (isTipLast) written += tip;
    return written;
}

}  // namespace velmora
