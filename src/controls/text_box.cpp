#include "controls/text_box.h"

#include <algorithm>
#include <functional>

#include "base/text.h"
#include "base/wipe.h"

namespace velmora {

TextBox::TextBox(Form& form, std::string name, std::string text, int index)
    : Control(form, std::move(name), index), pieces_{std::move(text)} {
    length_ = length(pieces_.front());
}

TextBox::~TextBox() {
    if (masked_) std::for_each(pieces_.begin(), pieces_.end(), wipe);
}

const std::string& TextBox::Text() const {
    if (pieces_.size() > 1) join();
    return pieces_.front();
}

void TextBox::join() const {
    std::size_t size = 0;
    for (const std::string& piece : pieces_) size += piece.size();
    std::string joined;
    joined.reserve(size);
    for (const std::string& piece : pieces_) joined += piece;
    if (masked_) std::for_each(pieces_.begin(), pieces_.end(), wipe);
    pieces_.clear();
    pieces_.push_back(std::move(joined));
    // A short text is copied when it is moved.
    if (masked_) wipe(joined);
}

std::string TextBox::front(std::size_t characters) const {
    std::string taken;
    for (auto piece = pieces_.begin(); piece != pieces_.end() && characters > 0; ++piece) {
        const std::string part = left(*piece, characters);
        characters -= length(part);
        taken += part;
    }
    return taken;
}

// The index holds nothing of a masked text.
bool TextBox::mayContain(const std::string& what) const {
    if (masked_ || !LineIndex::knows(what)) return true;
    if (!index_) {
        index_.emplace();
        for (auto piece = pieces_.rbegin(); piece != pieces_.rend(); ++piece)
            index_->prepend(*piece);
    }
    return index_->mayContain(what);
}

bool TextBox::contains(const std::string& what) const {
    if (what.empty()) return true;
    if (!mayContain(what)) return false;
    // A journal of months is looked through at each report: the search leaps over most of it, and
    // the pieces are joined only when they have become many.
    constexpr std::size_t many = 64;
    if (pieces_.size() > many) join();
    const std::boyer_moore_horspool_searcher searcher(what.begin(), what.end());
    const auto isIn = [&searcher](const std::string& text) {
        return std::search(text.begin(), text.end(), searcher) != text.end();
    };
    const std::size_t overlap = what.size() - 1;
    std::string seam;  // where an occurrence could begin that goes on in the next piece
    for (const std::string& piece : pieces_) {
        if (isIn(piece)) return true;
        seam.append(piece, 0, overlap);
        if (isIn(seam)) return true;
        if (piece.size() >= overlap) {
            seam = piece.substr(piece.size() - overlap);
        } else if (seam.size() > overlap) {
            seam.erase(0, seam.size() - overlap);
        }
    }
    return false;
}

void TextBox::setText(std::string text) {
    if (Text() == text) {
        if (masked_) wipe(text);
        return;
    }
    length_ = length(text);
    index_.reset();
    if (masked_) {
        replaceUnseen(text);
    } else {
        // A journal of months that is cleared gives its memory back, which a move would keep.
        pieces_.front().swap(text);
    }
    Changed();
    Replaced();
    Change();
}

// By copying and wiping: a move would hand the old storage on, or leave a short text where it was.
void TextBox::replaceUnseen(std::string& text) {
    wipe(pieces_.front());
    pieces_.front().assign(text);
    wipe(text);
}

void TextBox::prepend(std::string text) {
    if (text.empty()) return;
    length_ += length(text);
    if (index_) index_->prepend(text);
    pieces_.push_front(std::move(text));
    if (masked_) wipe(text);
    // The piece itself, so that nothing is joined for views that gather what is prepended.
    const std::string& added = pieces_.front();
    Prepended(added);
    Changed();
    Change();
}

void TextBox::setMasked(bool masked) {
    masked_ = masked;
    index_.reset();
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
    all.push_back({"Text",
                   [this] { return PropertyValue{masked_ ? std::string(length_, '*') : Text()}; },
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
