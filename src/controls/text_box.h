// A text box. Prepending costs the length of what is prepended, not of the whole text (the journal
// grows for months): the text is kept in pieces, which are joined when it is read.
#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <optional>

#include "controls/control.h"
#include "controls/line_index.h"

namespace velmora {

class TextBox : public Control {
  public:
    TextBox(Form& form, std::string name, std::string text = {}, int index = -1);
    ~TextBox() override;

    /// The whole text; joins the pieces, so the first reading after a prepend is linear.
    const std::string& Text() const;
    /// Fires Change when the text differs from the present one. A masked box leaves nothing of the
    /// old text in memory, nor a second copy of the new one.
    void setText(std::string text);
    /// Puts `text` in front of the present text, at the cost of `text` alone. Fires Change unless
    /// it is empty.
    void prepend(std::string text);
    /// The first characters of the text, all of them when it has fewer; at the cost of what is
    /// given, without joining.
    std::string front(std::size_t characters) const;
    /// Number of characters, known without joining.
    std::size_t textLength() const { return length_; }
    bool empty() const { return length_ == 0; }
    /// Place of the caret, in characters from the front; within the text.
    std::size_t SelStart() const { return std::min(caret_, length_); }
    void setSelStart(std::size_t place) { caret_ = std::min(place, length_); }
    /// Whether `what` occurs in the text. A line with a date that doesn't is known at a cost that
    /// doesn't grow with the text; else what was put in front last is looked at first.
    bool contains(const std::string& what) const;

    /// Selects the whole text and takes the focus.
    void selectAllAndFocus();
    bool Focused() const { return focused_; }
    /// The characters that the user types are not shown, nor given as a property.
    bool masked() const { return masked_; }
    void setMasked(bool masked);
    /// The focus goes elsewhere; fires LostFocus if this box had it.
    void loseFocus();

    Event<> Change;
    /// A character typed, by its code; 13 is Enter.
    Event<int> KeyPress;
    Event<> LostFocus;
    /// For views that hold the text themselves: what was put in front of it.
    Notice<const std::string&> Prepended;
    /// For views that hold the text themselves: the whole text has been replaced.
    Notice<> Replaced;

    std::string mainProperty() const override { return "Text"; }
    Properties properties() override;

  private:
    void join() const;
    bool mayContain(const std::string& what) const;
    void replaceUnseen(std::string& text);

    mutable std::deque<std::string> pieces_;
    mutable std::optional<LineIndex> index_;  // from the first question on, until another text
    std::size_t length_ = 0;
    std::size_t caret_ = 0;
    bool focused_ = false;
    bool masked_ = false;
};

}  // namespace velmora
