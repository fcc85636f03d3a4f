#include "controls/pickers.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string_view>

#include "base/runtime_error.h"
#include "base/text.h"

namespace velmora {

namespace {

// Hours, minutes and seconds of "H:MM:SS"; throws Refused for another text.
DateTime readTimeOfDay(const std::string& text, DateTime onDate) {
    const auto parts = split(trim(text), ":");
    if (parts.size() != 3) throw Refused("not a time (H:MM:SS): " + text);
    onDate.hour = static_cast<int>(readWhole(parts[0], 0, 23));
    onDate.minute = static_cast<int>(readWhole(parts[1], 0, 59));
    onDate.second = static_cast<int>(readWhole(parts[2], 0, 59));
    return onDate;
}

}  // namespace

Slider::Slider(Form& form, std::string name, int min, int max, int smallChange, int largeChange)
    : Control(form, std::move(name)),
      min_(min),
      max_(max),
      small_(smallChange),
      large_(largeChange),
      value_(min) {}

void Slider::setValue(int value) {
    if (value < min_ || value > max_) throw RuntimeError(error::invalidPropertyValue);
    if (value_ == value) return;
    value_ = value;
    Changed();
    Change();
}

void Slider::userScroll(int value) {
    refuseWhenDisabled();
    setValue(value);
    Scroll();
}

Properties Slider::properties() {
    Properties all = Control::properties();
    all.push_back({"Value", [this] { return PropertyValue{std::int64_t{value_}}; },
                   [this](const std::string& text) {
                       refuseWhenDisabled();
                       userScroll(static_cast<int>(readWhole(text, min_, max_)));
                   }});
    return all;
}

UpDown::UpDown(Form& form, std::string name, int min, int max, int value, TextBox* buddy)
    : Control(form, std::move(name)), min_(min), max_(max), value_(value), buddy_(buddy) {}

std::optional<int> UpDown::typed() const {
    const std::string text = buddy_ == nullptr ? std::string{} : trim(buddy_->Text());
    const bool negative = !text.empty() && text.front() == '-';
    const auto digits = std::string_view(text).substr(negative ? 1 : 0);
    if (digits.empty() || digits.find_first_not_of("0123456789") != digits.npos) return {};
    std::int64_t number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (read.ec != std::errc{}) number = std::numeric_limits<std::int64_t>::max();
    return static_cast<int>(std::clamp<std::int64_t>(negative ? -number : number, min_, max_));
}

void UpDown::syncWithBuddy() {
    value_ = typed().value_or(value_);
}

void UpDown::moveTo(std::int64_t value) {
    const int before = value_;
    value_ = static_cast<int>(std::clamp<std::int64_t>(value, min_, max_));
    if (value_ == before) return;
    if (typed()) buddy_->setText(std::to_string(value_));
    Changed();
    Change();
}

void UpDown::step(int by, Event<>& clicked) {
    refuseWhenDisabled();
    syncWithBuddy();
    moveTo(std::int64_t{value_} + by);
    clicked();
}

Properties UpDown::properties() {
    Properties all = Control::properties();
    all.push_back({"Value", [this] { return PropertyValue{std::int64_t{value_}}; },
                   [this](const std::string& text) {
                       refuseWhenDisabled();
                       const auto value = static_cast<int>(readWhole(text, min_, max_));
                       syncWithBuddy();
                       moveTo(value);
                   }});
    return all;
}

DatePicker::DatePicker(Form& form, std::string name, DateTime value, int index)
    : Control(form, std::move(name), index), value_(value) {}

void DatePicker::setValue(const DateTime& value) {
    if (!isValid(value)) throw RuntimeError(error::invalidPropertyValue);
    if (value_ == value) return;
    value_ = value;
    Changed();
    Change();
}

void DatePicker::setHour(int hour) {
    DateTime next = value_;
    next.hour = hour;
    setValue(next);
}

void DatePicker::setMinute(int minute) {
    DateTime next = value_;
    next.minute = minute;
    setValue(next);
}

void DatePicker::setSecond(int second) {
    DateTime next = value_;
    next.second = second;
    setValue(next);
}

Properties DatePicker::properties() {
    Properties all = Control::properties();
    const auto part = [this](const char* name, int most, int DateTime::*field) {
        return Property{name, [this, field] { return PropertyValue{std::int64_t{value_.*field}}; },
                        [this, field, most](const std::string& text) {
                            refuseWhenDisabled();
                            DateTime next = value_;
                            next.*field = static_cast<int>(readWhole(text, 0, most));
                            setValue(next);
                        }};
    };
    all.push_back({"Value", [this] { return PropertyValue{Format(value_, "h:mm:ss")}; },
                   [this](const std::string& text) {
                       refuseWhenDisabled();
                       setValue(readTimeOfDay(text, value_));
                   }});
    all.push_back(part("Hour", 23, &DateTime::hour));
    all.push_back(part("Minute", 59, &DateTime::minute));
    all.push_back(part("Second", 59, &DateTime::second));
    return all;
}

}  // namespace velmora
