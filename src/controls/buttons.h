// Controls that are clicked: command buttons, labels that act as buttons, check boxes, option
// buttons and menu items.
#pragma once

#include <cstdint>
#include <vector>

#include "controls/control.h"

namespace velmora {

/// A colour as the system numbers it: 0x00BBGGRR, or 0x80000000 and the number of a system colour.
using Colour = std::uint32_t;

namespace colour {
inline constexpr Colour window = 0x80000005;
inline constexpr Colour buttonFace = 0x8000000F;
inline constexpr Colour buttonText = 0x80000012;
}  // namespace colour

/// A control with a caption.
class Captioned : public Control {
  public:
    Captioned(Form& form, std::string name, std::string caption = {}, int index = -1)
        : Control(form, std::move(name), index), caption_(std::move(caption)) {}

    const std::string& Caption() const { return caption_; }
    void setCaption(std::string caption);
    Colour ForeColor() const { return foreColor_; }
    void setForeColor(Colour value);
    Colour BackColor() const { return backColor_; }
    void setBackColor(Colour value);

    std::string mainProperty() const override { return "Caption"; }
    std::string shownWords() const override { return caption_; }
    Properties properties() override;

  private:
    std::string caption_;
    Colour foreColor_ = colour::buttonText;
    Colour backColor_ = colour::buttonFace;
};

/// A caption that can be clicked.
class Clickable : public Captioned {
  public:
    using Captioned::Captioned;
    Event<> Click;
    void userClick() override;
};

class Label : public Clickable {
  public:
    using Clickable::Clickable;

    /// The left button goes down and up over the label, and the pointer moves over it.
    Event<> MouseDown;
    Event<> MouseUp;
    Event<> MouseMove;

    /// A whole click of the user's hand: the pointer comes, the button goes down and up.
    void userClick() override;
};

class CommandButton : public Clickable {
  public:
    using Clickable::Clickable;
};

/// A panel that holds other controls. Its place and size can be read.
class Frame : public Captioned {
  public:
    using Captioned::Captioned;
};

class CheckBox : public Clickable {
  public:
    using Clickable::Clickable;

    int Value() const { return value_; }
    bool ticked() const { return value_ == 1; }
    /// 0 or 1; error 380 for others. Clicks when the user or the program changes the value.
    void setValue(int value);
    /// The initial value of the form's design; nothing clicks.
    void setDesignValue(int value) { value_ = value; }
    void userClick() override;

    std::string mainProperty() const override { return "Value"; }
    Properties properties() override;

  private:
    int value_ = 0;
};

/// One of a group of which exactly one is set. Setting it clears the others and clicks.
class OptionButton : public Clickable {
  public:
    using Clickable::Clickable;

    /// Makes the buttons one group; the first is set, without a click.
    static void group(std::vector<OptionButton*> members);

    bool Value() const { return value_; }
    /// Sets this button of the group and clicks, also when it is set already.
    void choose();
    void userClick() override;

    std::string mainProperty() const override { return "Value"; }
    Properties properties() override;

  private:
    bool value_ = false;
    std::vector<OptionButton*> group_;
};

/// An item of a menu, or the menu itself with the items below it.
class MenuItem : public Clickable {
  public:
    /// The caption of an item that only separates others.
    static constexpr const char* separator = "-";

    /// An item comes last among those below `above`; without one it is a menu of its own.
    MenuItem(Form& form, std::string name, std::string caption = {}, MenuItem* above = nullptr);

    const std::vector<MenuItem*>& items() const { return items_; }
    bool separates() const { return Caption() == separator; }
    bool Checked() const { return checked_; }
    void setChecked(bool checked);
    /// Shows the items below this one as a menu, at what the user has used. Returns at once: a
    /// check that yielded to the click goes on while the menu is open.
    void PopUp() { PoppedUp(); }
    Notice<> PoppedUp;
    /// The menu that was popped up has been closed.
    Event<> Closed;
    /// Separators can't be clicked.
    void userClick() override;
    Properties properties() override;

  private:
    bool checked_ = false;
    std::vector<MenuItem*> items_;
};

}  // namespace velmora
