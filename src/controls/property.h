// Properties of controls by name, for surfaces that know a name and not the type.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace velmora {

/// The user's hand can't do this: a value that the control doesn't take, a control that is
/// disabled. Nothing has changed.
class Refused : public std::exception {
  public:
    explicit Refused(std::string reason) : reason_(std::move(reason)) {}
    const char* what() const noexcept override { return reason_.c_str(); }

  private:
    std::string reason_;
};

using PropertyValue = std::variant<std::string, std::int64_t, bool>;

/// One named value of a control.
struct Property {
    std::string name;
    std::function<PropertyValue()> get;
    /// Sets the value as the user's hand would: events fire. Throws Refused before anything
    /// changes. Empty for a property that can only be read.
    std::function<void(const std::string&)> set;
};

using Properties = std::vector<Property>;

/// The value of a switch as a user may write it: on, off, true, false, 1, 0, -1. Throws Refused
/// for others.
bool readSwitch(const std::string& text);
/// A whole number from `least` to `most`; throws Refused for anything else.
std::int64_t readWhole(const std::string& text, std::int64_t least, std::int64_t most);

}  // namespace velmora
