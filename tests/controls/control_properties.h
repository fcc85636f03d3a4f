// Reaching a control's properties by name, as a surface does that doesn't know its type.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

#include "controls/control.h"
#include "controls/property.h"

namespace velmora::tests {

/// The property of that name; Refused when there is none.
inline Property propertyOf(const Properties& all, const std::string& name) {
    for (const Property& property : all) {
        if (property.name == name) return property;
    }
    throw Refused("no property " + name);
}

/// The value as a text: switches as "true" and "false".
inline std::string textOf(const PropertyValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
    return std::get<bool>(value) ? "true" : "false";
}

inline std::string get(Control& control, const std::string& name) {
    return textOf(propertyOf(control.properties(), name).get());
}

inline std::string getPart(Control& control, int index, const std::string& name) {
    return textOf(propertyOf(control.partProperties(index), name).get());
}

inline void set(Control& control, const std::string& name, const std::string& text) {
    propertyOf(control.properties(), name).set(text);
}

inline bool readOnly(Control& control, const std::string& name) {
    return !propertyOf(control.properties(), name).set;
}

/// The reason of a refusal, empty when the statement isn't refused.
template <typename Statement>
std::string refusalOf(Statement&& statement) {
    try {
        statement();
    } catch (const Refused& refusal) {
        return refusal.what();
    }
    return {};
}

/// Counts how often an event or a notice fires.
template <typename Event>
class Count {
  public:
    explicit Count(Event& event) {
        event.connect([count = count_](const auto&...) { ++*count; });
    }
    operator int() const { return *count_; }

  private:
    std::shared_ptr<int> count_ = std::make_shared<int>(0);
};

}  // namespace velmora::tests
