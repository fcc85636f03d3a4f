#include "platform/windows/settings/windows_advapi32.h"

#include <windows.h>
// After it, as it needs its types.
#include <lmcons.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

// The hives' handles are numbers of 32 bits, widened with their sign.
HKEY handleOfHive(std::uint32_t number) {
    return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(number)));
}

HKEY handleOf(RegistryKey key) {
    return reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(key));
}

bool isText(std::uint32_t type) {
    return type == REG_SZ || type == REG_EXPAND_SZ;
}

// Another program may have written the value without the NUL at its end, or with half a character.
std::string textOf(const std::string& bytes) {
    std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
    text.resize(std::min(text.find(L'\0'), text.size()));
    return toUtf8(text);
}

}  // namespace

std::int32_t WindowsAdvapi32::RegOpenKeyExA(std::uint32_t hive, const std::string& subKey,
                                            std::uint32_t options, std::uint32_t access,
                                            RegistryKey& key) {
    HKEY opened = nullptr;
    const LONG result =
        RegOpenKeyExW(handleOfHive(hive), toUtf16(subKey).c_str(), options, access, &opened);
    if (result == ERROR_SUCCESS) key = reinterpret_cast<ULONG_PTR>(opened);
    return result;
}

std::int32_t WindowsAdvapi32::RegSetValueExA(RegistryKey key, const std::string& name,
                                             std::uint32_t reserved, std::uint32_t type,
                                             const std::string& data, std::uint32_t length) {
    std::string bytes = data.substr(0, length);
    std::wstring text;
    const void* content = bytes.data();
    std::size_t size = bytes.size();
    if (isText(type)) {
        bytes.resize(std::min(bytes.find('\0'), bytes.size()));
        text = toUtf16(bytes);
        content = text.c_str();
        size = (text.size() + 1) * sizeof(wchar_t);
    }
    return RegSetValueExW(handleOf(key), toUtf16(name).c_str(), reserved, type,
                          static_cast<const BYTE*>(content), static_cast<DWORD>(size));
}

std::int32_t WindowsAdvapi32::RegQueryValueExA(RegistryKey key, const std::string& name,
                                               std::uint32_t& type, std::string& data) {
    const std::wstring wideName = toUtf16(name);
    std::string bytes(256, '\0');
    DWORD found = 0;
    LONG result = ERROR_MORE_DATA;
    // Another program may write a longer one in between.
    while (result == ERROR_MORE_DATA) {
        auto size = static_cast<DWORD>(bytes.size());
        result = RegQueryValueExW(handleOf(key), wideName.c_str(), nullptr, &found,
                                  reinterpret_cast<BYTE*>(bytes.data()), &size);
        // Some hives don't report the size.
        bytes.resize(size > bytes.size() || result == ERROR_SUCCESS ? size : bytes.size() * 2);
    }
    if (result != ERROR_SUCCESS) return result;
    type = found;
    data = isText(found) ? textOf(bytes) : std::move(bytes);
    return ERROR_SUCCESS;
}

std::int32_t WindowsAdvapi32::RegCloseKey(RegistryKey key) {
    return ::RegCloseKey(handleOf(key));
}

bool WindowsAdvapi32::GetUserNameA(std::string& buffer, std::uint32_t& size) {
    wchar_t wideName[UNLEN + 1] = {};
    DWORD room = UNLEN + 1;
    if (!GetUserNameW(wideName, &room)) return false;
    const std::string name = toUtf8(wideName) + '\0';
    const bool fits = name.size() <= size;
    size = static_cast<std::uint32_t>(name.size());
    if (fits) buffer.replace(0, name.size(), name);
    return fits;
}

}  // namespace velmora::windows
