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

}  // namespace velmora::windows
