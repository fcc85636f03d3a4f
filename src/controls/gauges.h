// Gauges: a bar of 50 segments in one or two columns, and a row of ten lamps. They show a number
// and know nothing of what it means.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "controls/buttons.h"
#include "controls/control.h"

namespace velmora {

/// What a container keeps of a control: numbers by the names of properties.
using PropertyBag = std::map<std::string, int>;

/// A vertical bar with one column of segments. A scroll bar inside takes the value, whose zero is
/// at the top: the level is what is missing to its maximum.
class Meter2 : public Control {
  public:
    static constexpr int segments = 50;
    static constexpr Colour dark = 0x8000;
    static constexpr Colour lit = 0xFF00;
    using Column = std::array<Colour, segments>;

    using Control::Control;

    int Min() const { return 0; }
    int Max() const { return segments; }
    /// The position of the scroll bar.
    int Value() const { return value_; }
    /// Another value changes the scroll bar, which sets the level and paints it. Reports the
    /// property to the container in any case. Error 380 outside Min to Max.
    void setValue(int value);
    /// The style of the frame: 0 none, 1 a line.
    int Border() const { return border_; }
    void setBorder(int style);

    /// Takes the level from the scroll bar.
    void SetLevelValue() { level_ = static_cast<std::int16_t>(Max() - value_); }
    /// Paints the segments and the caption.
    virtual void ShowLevel();

    int Level() const { return level_; }
    /// The caption: the level in percent.
    const std::string& Label1() const { return label1_; }
    /// The colours of the segments, from the foot up.
    const Column& Shape2() const { return shape2_; }

    /// The property of that name was set.
    Notice<const std::string&> PropertyChanged;
    /// Keeps "Value" and "Border" in the container's bag, and reads them back.
    void WriteProperties(PropertyBag& bag) const;
    void ReadProperties(const PropertyBag& bag);

    std::string mainProperty() const override { return "Value"; }
    Properties properties() override;

  protected:
    /// The unlit segments first, then the lit ones.
    void paint(Column& column) const;

  private:
    int value_ = segments;
    int border_ = 0;
    std::int16_t level_ = 0;
    std::string label1_ = "0%";
    Column shape2_ = darkColumn();

  protected:
    static constexpr Column darkColumn() {
        Column column{};
        column.fill(dark);
        return column;
    }
};

/// The same with two columns and a size of its own, which no container changes.
class Meter : public Meter2 {
  public:
    static constexpr int height = 2775;  ///< twips
    static constexpr int width = 855;

    Meter(Form& form, std::string name, int index = -1);
    void ShowLevel() override;
    /// Takes the place; the size stays.
    void setBounds(const Bounds& bounds) override;
    const Column& Shape1() const { return shape1_; }

  private:
    Column shape1_ = darkColumn();
};

/// Ten lamps for a speed, with its caption.
class CtlDigital : public Control {
  public:
    static constexpr int lamps = 10;
    static constexpr Colour lit = 0xFF00;
    static constexpr Colour off = 0;

    using Control::Control;

    std::int32_t MaxVal() const { return maxVal_; }
    void setMaxVal(std::int32_t value);
    std::int32_t CurrentValue() const { return currentValue_; }
    /// Rounded to a whole number, ties to even, and at most MaxVal. Lights a lamp for each tenth of
    /// MaxVal. Error 6 beyond 32 bits and for a number of lamps outside 0 to 255, 11 where MaxVal
    /// is 0.
    void setCurrentValue(double value);
    const std::string& txtSpeed() const { return txtSpeedval_; }
    void setTxtSpeed(std::string text);
    /// The caption.
    static constexpr const char* Label1 = "Kb/s";

    /// The colour of a lamp, from 1. Error 35600 for another.
    Colour picLED(int lamp) const;
    int litLamps() const { return litLamps_; }
    /// How often a lamp was switched.
    int switchings() const { return switchings_; }

    std::string mainProperty() const override { return "CurrentValue"; }
    Properties properties() override;

  private:
    void light(int lamp, Colour colour);

    std::int32_t maxVal_ = 0;
    std::int32_t currentValue_ = 0;
    std::string txtSpeedval_;
    std::array<Colour, lamps> picLED_{};
    std::uint8_t litLamps_ = 0;
    int switchings_ = 0;
};

}  // namespace velmora
