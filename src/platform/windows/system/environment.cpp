#include "platform/windows/system/environment.h"

#include <windows.h>

namespace velmora::windows {

std::wstring environmentVariable(const wchar_t* name) {
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    const DWORD length =
        GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    value.resize(length < value.size() ? length : 0);
    return value;
}

}  // namespace velmora::windows
