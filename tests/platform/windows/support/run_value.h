// A value among the programs that start with the system.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <utility>

namespace velmora::windows {

inline constexpr const wchar_t* runKey = LR"(SOFTWARE\Microsoft\Windows\CurrentVersion\Run)";

/// The text as the system gives it, without the NUL at its end; nothing when there is no such
/// value.
inline std::optional<std::wstring> runValue(const std::wstring& name) {
    wchar_t text[1024];
    DWORD size = sizeof text;
    if (RegGetValueW(HKEY_LOCAL_MACHINE, runKey, name.c_str(), RRF_RT_REG_SZ, nullptr, text,
                     &size) != ERROR_SUCCESS)
        return std::nullopt;
    return text;
}

/// Puts the value back as it was, or away when there was none.
class KeptRunValue {
  public:
    explicit KeptRunValue(std::wstring name) : name_(std::move(name)), before_(runValue(name_)) {}
    ~KeptRunValue() {
        if (before_) {
            const auto size = (before_->size() + 1) * sizeof(wchar_t);
            RegSetKeyValueW(HKEY_LOCAL_MACHINE, runKey, name_.c_str(), REG_SZ, before_->c_str(),
                            static_cast<DWORD>(size));
        } else {
            RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, runKey, name_.c_str());
        }
    }
    KeptRunValue(const KeptRunValue&) = delete;
    KeptRunValue& operator=(const KeptRunValue&) = delete;

  private:
    std::wstring name_;
    std::optional<std::wstring> before_;
};

}  // namespace velmora::windows
