// A control: a named field with events, nothing drawn. Handlers of the program and the views both
// connect to its events. What the program does to a field fires the same events as the user's hand
// where the platform's controls do so (a check box whose value changes clicks).
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "controls/event.h"
#include "controls/property.h"

namespace velmora {

class Form;

/// Twips in a pixel of the design, at every resolution of the screen.
inline constexpr int twipsPerPixel = 15;

/// Place and size in twips, within the form or the control's container.
struct Bounds {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    bool operator==(const Bounds&) const = default;
};

class Control {
  public:
    /// Registers itself on the form. `index` is the place in a control array, -1 outside one.
    Control(Form& form, std::string name, int index = -1);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name_; }
    int Index() const { return index_; }
    Form& form() const { return form_; }

    bool Enabled() const { return enabled_; }
    virtual void setEnabled(bool enabled);
    bool Visible() const { return visible_; }
    void setVisible(bool visible);
    const std::string& Tag() const { return tag_; }
    void setTag(std::string tag) { tag_ = std::move(tag); }
    const std::string& ToolTipText() const { return toolTip_; }
    void setToolTipText(std::string text);
    const Bounds& bounds() const { return bounds_; }
    virtual void setBounds(const Bounds& bounds);

    /// Something that a view shows has changed.
    Notice<> Changed;

    /// The name of the property that a bare name means ("Text", "Value", "Caption").
    virtual std::string mainProperty() const { return "Enabled"; }
    virtual Properties properties();

    /// The properties of a numbered part (a panel, a tool bar button, a column, an entry), and the
    /// name of the one that a bare number means. Refused where there is no such part.
    virtual Properties partProperties(int index);
    virtual std::string mainPartProperty() const { return "Text"; }

    /// What it shows as a table, a row of named values each; nothing for a control that shows none.
    using Table = std::vector<std::vector<std::pair<std::string, PropertyValue>>>;
    virtual std::optional<Table> table() const { return std::nullopt; }

    /// The user's click on a numbered part.
    virtual void userClickPart(int index);
    /// The user's click and double click. Refused on a control that is disabled or has none.
    virtual void userClick();
    virtual void userDoubleClick();

    /// "name" or "name(index)".
    std::string fullName() const;
    /// The words by which a user knows it; empty where it shows none.
    virtual std::string shownWords() const { return {}; }

  protected:
    /// Throws Refused when the control is disabled.
    void refuseWhenDisabled() const;

  private:
    Form& form_;
    std::string name_;
    int index_;
    bool enabled_ = true;
    bool visible_ = true;
    std::string tag_;
    std::string toolTip_;
    Bounds bounds_;
};

/// Its name as messages give it: the form, the name, and the caption where it has one.
std::string namedFor(const Control& control);

/// Runs a handler of a control; a run-time error of it leaves with the control's name.
template <typename Handler>
void inHandlerOf(const Control& control, Handler&& handler) {
    try {
        std::forward<Handler>(handler)();
    } catch (RuntimeError& failure) {
        failure.noteHandler(namedFor(control));
        throw;
    }
}

}  // namespace velmora
