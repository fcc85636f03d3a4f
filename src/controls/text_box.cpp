#include "controls/text_box.h"

#include "base/text.h"

namespace velmora {

TextBox::TextBox(Form& form, std::string name, std::string text, int index)
    : Control(form, std::move(name), index), pieces_{std::move(text)} {
    length_ = length(pieces_.front());
}

const std::string& TextBox::Text() const {
    if (pieces_.size() > 1) {
        std::size_t size = 0;
        for (const std::string& piece : pieces_) size += piece.size();
        std::string joined;
        joined.reserve(size);
        for (const std::string& piece : pieces_) joined += piece;
        pieces_.clear();
        pieces_.push_back(std::move(joined));
    }
    return pieces_.front();
}

bool TextBox::contains(const std::string& what) const {
    return velmora::contains(pieces_.front(), what) || velmora::contains(Text(), what);
}

void TextBox::setText(std::string text) {
    if (Text() == text) return;
    length_ = length(text);
    pieces_.front() = std::move(text);
    Changed();
    Replaced();
    Change();
}

void TextBox::prepend(std::string text) {
    if (text.empty()) return;
    length_ += length(text);
    pieces_.push_front(std::move(text));
    // Without joining, and whatever a view's reading does to the pieces.
    const std::string& added = pieces_.front();
    Prepended(added);
    Changed();
    Change();
}

void TextBox::selectAllAndFocus() {
    focused_ = true;
    Changed();
}

void TextBox::loseFocus() {
    if (!focused_) return;
    focused_ = false;
    Changed();
    LostFocus();
}

Properties TextBox::properties() {
    Properties all = Control::properties();
    all.push_back({"Text", [this] { return PropertyValue{Text()}; },
                   [this](const std::string& text) {
                       refuseWhenDisabled();
                       if (!isValidUtf8(text)) throw Refused("not valid UTF-8");
                       setText(text);
                   }});
    all.push_back({"KeyPress", [] { return PropertyValue{std::int64_t{0}}; },
                   [this](const std::string& code) {
                       refuseWhenDisabled();
                       KeyPress(static_cast<int>(readWhole(code, 1, 0x10FFFF)));
                   }});
    return all;
}

}  // namespace velmora
