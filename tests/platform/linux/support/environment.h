// Environment variables for one test.
#pragma once

#include <stdlib.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace velmora::linuxhost {

/// Sets a variable, or takes it away when there is no value, until this object goes.
class Environment {
  public:
    Environment(const char* name, const std::optional<std::string>& value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        set(value);
    }
    ~Environment() { set(before_); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

  private:
    void set(const std::optional<std::string>& value) {
        if (value) {
            setenv(name_, value->c_str(), 1);
        } else {
            unsetenv(name_);
        }
    }

    const char* name_;
    std::optional<std::string> before_;
};

/// A user of its own: an empty home, with nothing chosen in the environment.
class OtherUser {
  public:
    explicit OtherUser(const std::string& home) : home_("HOME", home) {}

  private:
    Environment home_;
    Environment config_{"XDG_CONFIG_HOME", std::nullopt};
    Environment data_{"XDG_DATA_HOME", std::nullopt};
    Environment state_{"XDG_STATE_HOME", std::nullopt};
    Environment bus_{"DBUS_SESSION_BUS_ADDRESS", std::nullopt};
};

}  // namespace velmora::linuxhost
