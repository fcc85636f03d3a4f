#include "platform/windows/system/utf16.h"

#include <windows.h>

namespace velmora::windows {

namespace {

constexpr std::wstring_view longPrefix = LR"(\\?\)";
constexpr std::wstring_view longSharePrefix = LR"(\\?\UNC\)";

// Folders need room for a file name of the old short form, so their limit is the lower one.
constexpr std::size_t shortEnough = MAX_PATH - 12;

}  // namespace

std::wstring toUtf16(std::string_view text) {
    if (text.empty()) return {};
    const int size = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), needed);
    return wide;
}

std::string toUtf8(std::wstring_view text) {
    if (text.empty()) return {};
    const int size = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), needed, nullptr, nullptr);
    return narrow;
}

std::wstring fullPath(std::string_view path) {
    const std::wstring wide = toUtf16(path);
    const DWORD needed = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
    if (needed == 0) return wide;
    std::wstring full(needed, L'\0');
    const DWORD length = GetFullPathNameW(wide.c_str(), needed, full.data(), nullptr);
    // Another thread may have changed the current folder to a longer one in between.
    if (length == 0 || length >= needed) return wide;
    full.resize(length);
    return full;
}

std::wstring systemPath(std::string_view path) {
    std::wstring wide = toUtf16(path);
    if (wide.size() < shortEnough || wide.starts_with(longPrefix)) return wide;
    // The prefix also turns off the system's own tidying (".." and "/"), so the path is tidied
    // first.
    const std::wstring full = fullPath(path);
    if (full.starts_with(LR"(\\.\)") || full.starts_with(longPrefix)) return full;
    if (full.starts_with(LR"(\\)")) return std::wstring(longSharePrefix) + full.substr(2);
    return std::wstring(longPrefix) + full;
}

std::string withoutLongPrefix(std::string_view path) {
    constexpr std::string_view plain = R"(\\?\)";
    constexpr std::string_view share = R"(\\?\UNC\)";
    if (path.starts_with(share)) return R"(\\)" + std::string(path.substr(share.size()));
    if (path.starts_with(plain)) return std::string(path.substr(plain.size()));
    return std::string(path);
}

}  // namespace velmora::windows
