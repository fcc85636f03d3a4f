// Environment variables for one test.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <utility>

namespace velmora::windows {

/// Sets a variable, or takes it away when there is no value, until this object goes.
class Environment {
  public:
    Environment(std::wstring name, const std::optional<std::wstring>& value)
        : name_(std::move(name)) {
        wchar_t before[1024];
        const DWORD length = GetEnvironmentVariableW(name_.c_str(), before, 1024);
        if (length != 0 && length < 1024) before_ = before;
        set(value);
    }
    ~Environment() { set(before_); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

  private:
    void set(const std::optional<std::wstring>& value) {
        SetEnvironmentVariableW(name_.c_str(), value ? value->c_str() : nullptr);
    }

    std::wstring name_;
    std::optional<std::wstring> before_;
};

}  // namespace velmora::windows
