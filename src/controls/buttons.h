// Controls that are clicked: command buttons, labels that act as buttons, check boxes, option
// buttons and menu items.
#pragma once

#include <vector>

#include "controls/control.h"

namespace velmora {

/// A control with a caption.
class Captioned : public Control {
  public:
    Captioned(Form& form, std::string name, std::string caption = {}, int index = -1)
        : Control(form, std::move(name), index), caption_(std::move(caption)) {}

    const std::string& Caption() const { return caption_; }
    void setCaption(std::string caption);

    std::string mainProperty() const override { return "Caption"; }
    Properties properties() override;

  private:
    std::string caption_;
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
};

class CommandButton : public Clickable {
  public:
    using Clickable::Clickable;
};

/// A panel that holds other controls.
class Frame : public Captioned {
  public:
    using Captioned::Captioned;
};

class CheckBox : public Clickable {
  public:
    using Clickable::Clickable;

    int Value() const { return value_; }
    bool ticked() const { return value_ == 1; }
    /// 0 or 1; error 380 for others. Clicks when the value changes, whoever changes it.
    void setValue(int value);
    /// The value that the form is made with; nothing clicks.
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

class MenuItem : public Clickable {
  public:
    using Clickable::Clickable;

    bool Checked() const { return checked_; }
    void setChecked(bool checked);
    /// Shows the items below this one as a menu at the pointer.
    void PopUp() { PoppedUp(); }
    Notice<> PoppedUp;
    Properties properties() override;

  private:
    bool checked_ = false;
};

}  // namespace velmora
