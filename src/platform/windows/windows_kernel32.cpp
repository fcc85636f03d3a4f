#include "platform/windows/windows_kernel32.h"

#include <windows.h>

#include "platform/windows/utf16.h"

namespace velmora::windows {

std::uint32_t WindowsKernel32::GetLogicalDriveStringsA(std::uint32_t length, std::string& buffer) {
    // Drive roots are ASCII on every system, so the narrow call loses nothing.
    std::string roots(std::size_t{length} + 1, '\0');
    const DWORD used = ::GetLogicalDriveStringsA(length, roots.data());
    if (used < length) buffer.replace(0, std::size_t{used} + 1, roots, 0, std::size_t{used} + 1);
    return used;
}

std::string WindowsKernel32::GetWindowsDirectoryA() {
    std::wstring folder(MAX_PATH, L'\0');
    const UINT length = GetWindowsDirectoryW(folder.data(), MAX_PATH);
    folder.resize(length < MAX_PATH ? length : 0);
    if (folder.ends_with(L'\\')) folder.pop_back();
    return toUtf8(folder);
}

std::string WindowsKernel32::GetEnvironmentVariableA(const std::string& name) {
    const std::wstring wideName = toUtf16(name);
    std::wstring text(MAX_PATH, L'\0');
    // Another thread may make it longer in between.
    while (true) {
        const auto room = static_cast<DWORD>(text.size());
        const DWORD used = GetEnvironmentVariableW(wideName.c_str(), text.data(), room);
        text.resize(used);
        if (used < room) return toUtf8(text);
    }
}

}  // namespace velmora::windows
