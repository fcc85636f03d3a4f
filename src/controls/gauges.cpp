#include "controls/gauges.h"

#include <algorithm>

#include "base/convert.h"
#include "base/runtime_error.h"

namespace velmora {

void Meter2::setValue(int value) {
    if (value < Min() || value > Max()) throw RuntimeError(error::invalidPropertyValue);
    if (value != value_) {
        value_ = value;
        SetLevelValue();
        ShowLevel();
    }
    PropertyChanged("Value");
}

void Meter2::setBorder(int style) {
    border_ = style;
    Changed();
    PropertyChanged("Border");
}

void Meter2::paint(Column& column) const {
    for (int i = level_; i < segments; ++i) column[static_cast<std::size_t>(i)] = dark;
    for (int i = 0; i < level_; ++i) column[static_cast<std::size_t>(i)] = lit;
}

void Meter2::ShowLevel() {
    paint(shape2_);
    label1_ = std::to_string(level_ * 2) + "%";
    Changed();
}

void Meter2::WriteProperties(PropertyBag& bag) const {
    bag["Value"] = value_;
    bag["Border"] = border_;
}

void Meter2::ReadProperties(const PropertyBag& bag) {
    if (const auto value = bag.find("Value"); value != bag.end()) setValue(value->second);
    if (const auto border = bag.find("Border"); border != bag.end()) setBorder(border->second);
}

Properties Meter2::properties() {
    Properties all = Control::properties();
    all.push_back({"Value", [this] { return PropertyValue{std::int64_t{value_}}; },
                   [this](const std::string& text) {
                       refuseWhenDisabled();
                       setValue(static_cast<int>(readWhole(text, Min(), Max())));
                   }});
    all.push_back({"Level", [this] { return PropertyValue{std::int64_t{level_}}; }, {}});
    all.push_back({"Label1", [this] { return PropertyValue{label1_}; }, {}});
    return all;
}

Meter::Meter(Form& form, std::string name, int index) : Meter2(form, std::move(name), index) {
    setBounds({});
}

void Meter::ShowLevel() {
    paint(shape1_);
    Meter2::ShowLevel();
}

void Meter::setBounds(const Bounds& bounds) {
    Control::setBounds({.Left = bounds.Left, .Top = bounds.Top, .Width = width, .Height = height});
}

void CtlDigital::setMaxVal(std::int32_t value) {
    maxVal_ = value;
    Changed();
}

void CtlDigital::setTxtSpeed(std::string text) {
    txtSpeedval_ = std::move(text);
    Changed();
}

void CtlDigital::setCurrentValue(double value) {
    currentValue_ = std::min(toLong(value), maxVal_);
    const double step = maxVal_ / 10.0;
    if (step == 0) throw RuntimeError(error::divisionByZero);
    const std::int32_t count = toLong(currentValue_ / step);
    if (count < 0 || count > 255) throw RuntimeError(error::overflow);
    for (int lamp = count + 1; lamp <= litLamps_; ++lamp) light(lamp, off);
    for (int lamp = 1; lamp <= count; ++lamp) light(lamp, lit);
    litLamps_ = static_cast<std::uint8_t>(count);
    Changed();
}

void CtlDigital::light(int lamp, Colour colour) {
    if (lamp > lamps) throw RuntimeError(error::indexOutOfBounds);
    picLED_[static_cast<std::size_t>(lamp) - 1] = colour;
    ++switchings_;
}

Colour CtlDigital::picLED(int lamp) const {
    if (lamp < 1 || lamp > lamps) throw RuntimeError(error::indexOutOfBounds);
    return picLED_[static_cast<std::size_t>(lamp) - 1];
}

Properties CtlDigital::properties() {
    Properties all = Control::properties();
    const auto number = [&all](const char* name, std::int64_t value) {
        all.push_back({name, [value] { return PropertyValue{value}; }, {}});
    };
    number("CurrentValue", currentValue_);
    number("MaxVal", maxVal_);
    number("Lit", litLamps_);
    all.push_back({"txtSpeed", [this] { return PropertyValue{txtSpeedval_}; }, {}});
    return all;
}

}  // namespace velmora
