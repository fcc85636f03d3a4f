#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "base/text.h"
#include "shell/menus/caption_tokens.h"
#include "shell/menus/caption_values.h"
#include "shell/menus/group_keys.h"
#include "shell/menus/hot_key.h"
#include "shell/menus/menu_caption.h"
#include "shell/menus/side_bar_keys.h"

namespace velmora {

namespace {

using mark::Key;

constexpr auto nowhere = std::string_view::npos;
// A key outside a group ends in front of these.
constexpr std::string_view afterKey = "|{\t";

/// Reads from the front to the end, once. What is no mark-up goes to the text, or to the tip that
/// is being read.
class CaptionParser {
  public:
    explicit CaptionParser(std::string_view caption)
        : rest_(caption), lastBrace_(caption.rfind('}')), size_(caption.size()) {}

    MenuCaption parse() {
        while (!rest_.empty()) {
            if (!takeMark()) takePlain();
        }
        finish();
        return std::move(read_);
    }

  private:
    bool takeMark();
    void takePlain();
    bool takeImage();
    bool takeSideBar();
    void takeBadGroup();
    bool takeItemKey();
    bool applyItemKey(Key key, std::string_view value);
    bool groupCloses() const;
    std::string_view takeToBrace();
    void toText(std::string_view piece);
    void skip(std::size_t count) { rest_.remove_prefix(count); }
    void finish();

    std::string_view rest_;
    std::size_t lastBrace_;
    std::size_t size_;
    MenuCaption read_;
    std::string* target_ = &read_.text;
};

bool CaptionParser::takeMark() {
    if (rest_.starts_with(mark::lineBreak)) {
        *target_ += lineEnd;
        skip(mark::lineBreak.size());
        return true;
    }
    if (rest_.front() == mark::hotKeyTab) target_ = &read_.text;
    if (rest_.front() == '|') return takeItemKey();
    if (rest_.starts_with(mark::raised)) {
        read_.raised = true;
        target_ = &read_.text;
        skip(mark::raised.size());
        return true;
    }
    const bool isImage = rest_.starts_with(mark::image);
    if (!isImage && !rest_.starts_with(mark::sideBar)) return false;
    target_ = &read_.text;
    if (!(isImage ? takeImage() : takeSideBar())) takeBadGroup();
    return true;
}

/// Up to where the next mark may begin.
void CaptionParser::takePlain() {
    const std::size_t end = std::min(rest_.find_first_of("{|<\t", 1), rest_.size());
    *target_ += rest_.substr(0, end);
    skip(end);
}

bool CaptionParser::takeImage() {
    const std::string_view head = rest_.substr(mark::image.size());
    const std::size_t digits = countDigits(head);
    const bool isGroup = digits < head.size() && (head[digits] == '|' || head[digits] == '}');
    std::optional<int> image;
    if (isGroup && groupCloses() && readNumber(image, head.substr(0, digits))) {
        read_.image = *image;
        skip(mark::image.size() + digits);
        toText(takeKeys(takeToBrace(), mark::itemKeys, [this](Key key, std::string_view value) {
            return applyItemKey(key, value);
        }));
        return true;
    }
    if (digits != 1 || !rest_.starts_with(mark::noImage)) return false;
    read_.image = 0;
    skip(mark::noImage.size());
    return true;
}

bool CaptionParser::takeSideBar() {
    const std::string_view head = rest_.substr(mark::sideBar.size());
    const bool isText = head.starts_with(mark::textBar);
    const bool isNone = head.starts_with(mark::none);
    const std::size_t length = isText   ? mark::textBar.size()
                               : isNone ? mark::none.size()
                                        : countDigits(head);
    const bool isGroup = length < head.size() && (head[length] == '|' || head[length] == '}');
    std::optional<int> image = 0;
    if (!isText && !isNone && !readNumber(image, head.substr(0, length))) return false;
    if (!isGroup || !groupCloses()) return false;
    skip(mark::sideBar.size() + length);
    SideBar bar{.isText = isText, .image = *image};
    toText(takeKeys(takeToBrace(), mark::sideBarKeys, [&](Key key, std::string_view value) {
        return takeSideBarKey(bar, key, value);
    }));
    read_.sideBar.reset();
    if (!isNone) read_.sideBar = std::move(bar);
    return true;
}

/// A group that isn't understood is shown whole. One that isn't closed before the next begins gives
/// way to that.
void CaptionParser::takeBadGroup() {
    const std::size_t end = rest_.find_first_of("{}", 1);
    const bool closes = end != nowhere && rest_[end] == '}';
    const std::size_t count = closes ? end + 1 : 1;
    toText(rest_.substr(0, count));
    skip(count);
}

bool CaptionParser::takeItemKey() {
    const mark::KeyToken* token = mark::keyAt(rest_, mark::itemKeys, afterKey);
    if (token == nullptr) return false;
    // Also for a value that isn't understood: whoever wrote it is to see it.
    target_ = &read_.text;
    const std::string_view after = rest_.substr(token->spelling.size());
    if (token->key == Key::tip) {
        target_ = &read_.tip;
        read_.tip.clear();
        skip(token->spelling.size());
        return true;
    }
    const std::size_t digits = token->takesValue() ? countDigits(after) : 0;
    const bool ends = digits == after.size() || afterKey.find(after[digits]) != nowhere;
    if (!ends || !applyItemKey(token->key, after.substr(0, digits))) return false;
    skip(token->spelling.size() + digits);
    return true;
}

bool CaptionParser::applyItemKey(Key key, std::string_view value) {
    switch (key) {
        case Key::tip:
            read_.tip = withLineBreaks(value);
            return true;
        case Key::isDefault:
            read_.isDefault = true;
            return true;
        case Key::yes:
        case Key::no:
            read_.ticked = key == Key::yes;
            return true;
        case Key::id:
            return readNumber(read_.panel, value);
        default:
            return false;
    }
}

// Looked up once: a search at each of many groups that don't close would take too long.
bool CaptionParser::groupCloses() const {
    return lastBrace_ != nowhere && lastBrace_ >= size_ - rest_.size();
}

/// The content of a group up to its brace, which is dropped.
std::string_view CaptionParser::takeToBrace() {
    const std::size_t brace = rest_.find('}');
    const std::string_view content = rest_.substr(0, brace);
    skip(brace + 1);
    return content;
}

void CaptionParser::toText(std::string_view piece) {
    read_.text += withLineBreaks(piece);
}

void CaptionParser::finish() {
    std::string& text = read_.text;
    // Alone it would mark nothing.
    read_.subItem = text.size() > 1 && text.front() == mark::subItem;
    if (read_.subItem) text.erase(0, 1);
    read_.hotKeyPos = hotKeyPosition(text);
}

}  // namespace

bool MenuCaption::separates() const {
    return text == MenuItem::separator;
}

MenuCaption parseCaption(std::string_view caption) {
    return CaptionParser(caption).parse();
}

}  // namespace velmora
