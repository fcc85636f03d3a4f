// Controls that pick a number or a time: slider, spinner, time picker.
#pragma once

#include <optional>

#include "base/date_time.h"
#include "controls/control.h"
#include "controls/text_box.h"

namespace velmora {

class Slider : public Control {
  public:
    Slider(Form& form, std::string name, int min, int max, int smallChange, int largeChange);

    int Min() const { return min_; }
    int Max() const { return max_; }
    int SmallChange() const { return small_; }
    int LargeChange() const { return large_; }
    int Value() const { return value_; }
    /// Error 380 outside Min to Max. Moving it by program does not scroll.
    void setValue(int value);

    /// The user moved the slider.
    Event<> Scroll;
    /// The value has changed, whoever changed it.
    Event<> Change;

    /// Moves it as the user's hand would.
    void userScroll(int value);
    std::string mainProperty() const override { return "Value"; }
    Properties properties() override;

  private:
    int min_, max_, small_, large_;
    int value_;
};

/// A spinner. With a buddy, a click steps the number in the buddy's text; a text that is no whole
/// number is left as it is.
class UpDown : public Control {
  public:
    UpDown(Form& form, std::string name, int min, int max, int value, TextBox* buddy = nullptr);

    int Min() const { return min_; }
    int Max() const { return max_; }
    int Value() const { return value_; }

    Event<> UpClick;
    Event<> DownClick;
    /// A click has changed the value.
    Event<> Change;

    void userUp() { step(1, UpClick); }
    void userDown() { step(-1, DownClick); }
    std::string mainProperty() const override { return "Value"; }
    Properties properties() override;

  private:
    void step(int by, Event<>& clicked);
    void moveTo(std::int64_t value);
    void syncWithBuddy();
    /// The whole number in the buddy's text, within the range; nothing when it is none.
    std::optional<int> typed() const;

    int min_, max_, value_;
    TextBox* buddy_;
};

/// A date and time of day of which a form may use one half.
class DatePicker : public Control {
  public:
    DatePicker(Form& form, std::string name, DateTime value, int index = -1);

    const DateTime& Value() const { return value_; }
    /// Error 380 for a date or time that doesn't exist.
    void setValue(const DateTime& value);
    int Hour() const { return value_.hour; }
    int Minute() const { return value_.minute; }
    int Second() const { return value_.second; }
    /// Each raises error 380 outside its range.
    void setHour(int hour);
    void setMinute(int minute);
    void setSecond(int second);

    Event<> Change;

    std::string mainProperty() const override { return "Value"; }
    Properties properties() override;

  private:
    DateTime value_;
};

}  // namespace velmora
