#include "platform/windows/desktop/windows_shell32.h"

#include <windows.h>
// After the one above, which they need.
#include <shellapi.h>
#include <shlobj.h>

#include "platform/windows/desktop/folder_dialog.h"
#include "platform/windows/desktop/unique_items.h"
#include "platform/windows/programs/program_start.h"
#include "platform/windows/system/unique_handle.h"
#include "platform/windows/system/utf16.h"
#include "platform/windows/trash/file_operation.h"

// The system's header gives these names to its wide versions.
#undef ShellExecuteEx
#undef SHBrowseForFolder

namespace velmora::windows {

namespace {

// Only the path of the list is of use; a place without one gives an empty path.
std::string placeOf(const UniqueItems& items) {
    std::wstring path(MAX_PATH, L'\0');
    const bool hasPath = SHGetPathFromIDListW(items.get(), path.data());
    return hasPath ? toUtf8(path.c_str()) : std::string{};
}

}  // namespace

std::int32_t WindowsShell32::SHGetSpecialFolderLocation(std::int32_t csidl, ItemIdList& list) {
    PIDLIST_ABSOLUTE items = nullptr;
    const HRESULT result = ::SHGetSpecialFolderLocation(nullptr, csidl, &items);
    if (FAILED(result)) return result;
    list.place = placeOf(UniqueItems(items));
    return 0;
}

std::int32_t WindowsShell32::ShellExecuteA(const std::string&, const std::string& operation,
                                           const std::string& file, const std::string& parameters,
                                           const std::string& directory, std::int32_t showCommand) {
    const auto orNull = [](const std::wstring& text) {
        return text.empty() ? nullptr : text.c_str();
    };
    const std::wstring verb = toUtf16(operation);
    const std::wstring target = toUtf16(file);
    const std::wstring arguments = toUtf16(parameters);
    const std::wstring folder = toUtf16(directory);
    const HINSTANCE result = ShellExecuteW(GetActiveWindow(), orNull(verb), target.c_str(),
                                           orNull(arguments), orNull(folder), showCommand);
    return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(result));
}

bool WindowsShell32::ShellExecuteEx(const ShellExecuteInfo& info) {
    const std::wstring verb = toUtf16(info.verb);
    const std::wstring file = toUtf16(info.file);
    SHELLEXECUTEINFOW order{};
    order.cbSize = sizeof order;
    order.fMask = info.mask;
    order.hwnd = GetActiveWindow();
    order.lpVerb = verb.empty() ? nullptr : verb.c_str();
    order.lpFile = file.c_str();
    order.nShow = SW_SHOWNORMAL;
    const bool isTaken = ShellExecuteExW(&order);
    const bool hasProcess = (info.mask & SEE_MASK_NOCLOSEPROCESS) != 0;
    const UniqueHandle process(hasProcess ? order.hProcess : nullptr);
    return isTaken;
}

Browse WindowsShell32::SHBrowseForFolder(const BrowseInfo& info, ItemIdList& list) {
    const UniqueItems items = showFolderDialog(info);
    if (!items) return Browse::dismissed;
    list.place = placeOf(items);
    return Browse::chosen;
}

std::int32_t WindowsShell32::SHEmptyRecycleBinA(const std::string&, const std::string& root,
                                                std::uint32_t flags) {
    const std::wstring wideRoot = toUtf16(root);
    return SHEmptyRecycleBinW(GetActiveWindow(), root.empty() ? nullptr : wideRoot.c_str(), flags);
}

std::int32_t WindowsShell32::SHFileOperationA(const FileOperation& operation) {
    return orderFileOperation(operation);
}

void WindowsShell32::Shell(const std::string& commandLine, std::int32_t windowState) {
    startProgram(commandLine, windowState);
}

}  // namespace velmora::windows
