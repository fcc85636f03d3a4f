// Lists of texts: the check list (a list box with ticks), the plain list box and the combo box.
#pragma once

#include <deque>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

#include "controls/control.h"

namespace velmora {

/// A list box whose entries, counted from 0, can be ticked. A ticked entry is a selected one.
class ListBox : public Control {
  public:
    ListBox(Form& form, std::string name, std::initializer_list<const char*> entries = {});
    ListBox(Form& form, std::string name, std::span<const char* const> entries);

    int ListCount() const { return static_cast<int>(entries_.size()); }
    /// Each raises error 9 for an index outside the list.
    const std::string& List(int index) const { return at(index).text; }
    bool Selected(int index) const { return at(index).selected; }
    /// Fires ItemCheck when the user or the program changes the tick.
    void setSelected(int index, bool selected);

    void AddItem(std::string text);
    void Clear();

    /// The tick of that entry has changed.
    Event<int> ItemCheck;
    Event<> Click;

    /// Ticks as the user's hand would: ItemCheck if it changes, then Click.
    void userTick(int index, bool on);
    /// A click that ticks nothing.
    void userClick() override;
    std::string mainProperty() const override { return "ListCount"; }
    Properties properties() override;
    Properties partProperties(int index) override;

  private:
    struct Entry {
        std::string text;
        bool selected = false;
    };
    const Entry& at(int index) const;

    std::deque<Entry> entries_;
};

/// A combo box: a text and a list to choose it from. An entry is chosen until the text or the list
/// changes otherwise.
class ComboBox : public Control {
  public:
    using Control::Control;

    int ListCount() const { return static_cast<int>(entries_.size()); }
    /// Error 9 for an index outside the list.
    const std::string& List(int index) const;
    void AddItem(std::string text);
    /// Error 5 for an index outside the list.
    void RemoveItem(int index);
    void Clear();
    const std::string& Text() const { return text_; }
    /// Another text chooses no entry.
    void setText(std::string text);
    /// The chosen entry, -1 for none.
    int ListIndex() const { return listIndex_; }
    /// Chooses an entry, whose text becomes the box's; -1 chooses none and empties the text. A
    /// choice of another entry is a click. Error 380 for an index outside the list.
    void setListIndex(int index);
    /// The same by the user's hand: a click also when the entry is chosen already.
    void userChoose(int index);

    Event<> Change;
    /// An entry was chosen.
    Event<> Click;
    /// A character typed, by its code; 13 is Enter.
    Event<int> KeyPress;
    Event<const std::vector<std::string>&> Drop;  ///< drive paths

    /// Paths dropped on the box; refused where nothing takes them.
    void userDrop(const std::vector<std::string>& paths);
    /// Whether paths may be dropped now.
    bool takesDrops() const { return Enabled() && Drop.connected(); }
    std::string mainProperty() const override { return "Text"; }
    Properties properties() override;

  private:
    void choose(int index);

    std::deque<std::string> entries_;
    std::string text_;
    int listIndex_ = -1;
};

}  // namespace velmora
