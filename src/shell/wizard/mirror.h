// Fields of the setup wizard and those that they stand for. What the user hasn't changed is never
// written: the program changes fields by itself while the wizard is open, and that must stay.
#pragma once

#include <utility>

#include "base/secret.h"
#include "controls/buttons.h"
#include "controls/list_box.h"
#include "controls/pickers.h"
#include "controls/text_box.h"

namespace velmora {

/// A part of the wizard that stands for something elsewhere.
class Mirror {
  public:
    virtual ~Mirror() = default;

    /// Shows what is there now.
    virtual void read() = 0;
    /// Whether the user has changed what was read.
    virtual bool touched() const = 0;
    /// Puts there what the user has changed. Untouched from then on, unless it was refused.
    virtual void write() = 0;
    /// Forgets what was read, when it may be secret.
    virtual void forget() {}
};

/// An entry of a check list for which a check box stands.
struct ListEntry {
    ListBox& list;
    int index;
};

// One of the texts is a password.
inline Secret valueOf(const TextBox& box) {
    return box.Text();
}
inline void putValue(TextBox& box, const Secret& value) {
    box.setText(value.text());
}
inline int valueOf(const CheckBox& box) {
    return box.Value();
}
inline void putValue(CheckBox& box, int value) {
    box.setValue(value);
}
inline DateTime valueOf(const DatePicker& picker) {
    return picker.Value();
}
inline void putValue(DatePicker& picker, const DateTime& value) {
    picker.setValue(value);
}
inline std::string valueOf(const ComboBox& box) {
    return box.Text();
}
inline void putValue(ComboBox& box, const std::string& value) {
    box.setText(value);
}
inline int valueOf(const ListEntry& entry) {
    return entry.list.Selected(entry.index) ? 1 : 0;
}
/// As a click on the entry does.
inline void putValue(ListEntry& entry, int value) {
    entry.list.setSelected(entry.index, value == 1);
    entry.list.Click();
}

/// A field with one value. `Theirs` is a reference to a field, or an entry of a list.
template <typename Mine, typename Theirs>
class FieldMirror final : public Mirror {
  public:
    FieldMirror(Mine& mine, Theirs theirs) : mine_(mine), theirs_(theirs) {}

    void read() override {
        putValue(mine_, valueOf(theirs_));
        asRead_ = valueOf(mine_);
    }
    bool touched() const override { return !(valueOf(mine_) == asRead_); }
    void write() override {
        if (!touched()) return;
        asRead_ = valueOf(mine_);
        putValue(theirs_, asRead_);
    }
    void forget() override { asRead_ = {}; }

  private:
    Mine& mine_;
    Theirs theirs_;
    decltype(valueOf(std::declval<const Mine&>())) asRead_{};
};

}  // namespace velmora
