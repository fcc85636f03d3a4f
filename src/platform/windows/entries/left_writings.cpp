#include "platform/windows/entries/left_writings.h"

#include <windows.h>
// After the one above, which it needs.
#include <winternl.h>

#include <vector>

#include "platform/beside_name.h"
#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/system/unique_handle.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

bool isEnded(std::uint32_t id) {
    const UniqueHandle process(OpenProcess(SYNCHRONIZE, FALSE, id));
    // No process has that number. One that may not be opened is somebody's.
    if (!process.isOpen()) return GetLastError() == ERROR_INVALID_PARAMETER;
    return WaitForSingleObject(process.get(), 0) == WAIT_OBJECT_0;
}

}  // namespace

std::string ownBesideName(std::string_view name) {
    return besideName(name, GetCurrentProcessId());
}

void removeLeftWritings(const std::wstring& path, std::string_view name) {
    OpenedEntry folder;
    if (folder.openPath(path, FILE_LIST_DIRECTORY) != ERROR_SUCCESS) return;
    std::vector<OpenedEntry::Child> children;
    folder.children(children);
    for (const OpenedEntry::Child& child : children) {
        const auto writer = writerBeside(toUtf8(child.name), name);
        if (!writer || !isEnded(*writer)) continue;
        OpenedEntry file;
        EntryKind kind{};
        constexpr ACCESS_MASK toRemove = DELETE | FILE_READ_ATTRIBUTES;
        const bool isFile =
            file.openIn(folder, child.name, toRemove, FILE_NON_DIRECTORY_FILE) == ERROR_SUCCESS &&
            file.kindIn(folder, child.name, kind) == ERROR_SUCCESS && kind == EntryKind::plain;
        if (isFile) file.remove(false);
    }
}

}  // namespace velmora::windows
