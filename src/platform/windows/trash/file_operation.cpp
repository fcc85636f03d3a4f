#include "platform/windows/trash/file_operation.h"

#include <windows.h>
// After the one above, which it needs.
#include <shellapi.h>

#include <string>
#include <vector>

#include "base/text.h"
#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/paths/exact_path.h"
#include "platform/windows/system/system_errors.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

int codeOfFailure(DWORD failure) {
    if (failure == ledThroughLink) return ERROR_ACCESS_DENIED;
    return static_cast<int>(isMissing(failure) ? ERROR_FILE_NOT_FOUND : failure);
}

// The shell works with paths, so a path that could lead elsewhere is refused, also one of a link to
// a folder. Of a link to a file the shell takes the link.
int failureOfEntry(const OpenedEntry& parent, const std::wstring& name) {
    OpenedEntry entry;
    if (const DWORD failure = entry.openIn(parent, name, FILE_READ_ATTRIBUTES))
        return codeOfFailure(failure);
    OpenedEntry::Facts facts;
    EntryKind kind{};
    if (const DWORD failure = entry.facts(facts)) return codeOfFailure(failure);
    if (const DWORD failure = entry.kindIn(parent, name, kind)) return codeOfFailure(failure);
    const bool isFile = (facts.attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
    const bool isTaken = kind == EntryKind::plain || (kind == EntryKind::link && isFile);
    return isTaken ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

// The shell takes "*" and "?" for patterns, tidies names, and knows no path beyond the old limit:
// it would then change other files than the one that is named. While `parent` is open, no other
// program can put another folder or a link in its place.
int failureOfPath(const std::string& path, OpenedEntry& parent) {
    const auto exact = exactPath(path);
    if (exact && exact->names.empty()) return ERROR_ACCESS_DENIED;
    if (!exact || path.find_first_of("*?") != std::string::npos || !isTidy(path))
        return ERROR_FILE_NOT_FOUND;
    if (fullPath(path).size() >= MAX_PATH) return ERROR_FILENAME_EXCED_RANGE;
    if (const DWORD failure = openParent(*exact, true, parent)) return codeOfFailure(failure);
    return failureOfEntry(parent, exact->names.back());
}

// Codes of the shell's own, older than the system's and with other meanings.
int systemCode(int code) {
    constexpr int cancelled = 0x75;
    constexpr int deniedSource = 0x78;
    constexpr int pathTooDeep = 0x79;
    constexpr int invalidFiles = 0x7C;
    constexpr int unknown = 0x402;
    switch (code) {
        case cancelled:
            return ERROR_CANCELLED;
        case deniedSource:
            return ERROR_ACCESS_DENIED;
        case pathTooDeep:
            return ERROR_FILENAME_EXCED_RANGE;
        case invalidFiles:
        case unknown:
            return ERROR_FILE_NOT_FOUND;
        default:
            return code;
    }
}

}  // namespace

std::uint16_t flagsForShell(std::uint16_t flags) {
    // By itself the shell removes "page_files" with "page.htm".
    flags |= FOF_NO_CONNECTED_ELEMENTS;
    // What the recycle bin doesn't take is not removed for good without asking.
    if ((flags & file_operation::allowUndo) != 0) flags |= FOF_WANTNUKEWARNING;
    return flags;
}

std::int32_t orderFileOperation(const FileOperation& operation) {
    // Nothing else than removing is ever ordered, and there is no place to copy or move to.
    if (operation.wFunc != file_operation::remove) return ERROR_INVALID_PARAMETER;
    std::wstring names;
    std::vector<OpenedEntry> parents;
    for (const std::string& path : split(operation.pFrom, std::string(1, '\0'))) {
        if (path.empty()) continue;
        if (const int failure = failureOfPath(path, parents.emplace_back())) return failure;
        names += fullPath(path) + L'\0';
    }
    if (names.empty()) return ERROR_FILE_NOT_FOUND;
    SHFILEOPSTRUCTW order{};
    order.hwnd = GetActiveWindow();
    order.wFunc = operation.wFunc;
    order.pFrom = names.c_str();  // with the text's own NUL as the second one at the end
    order.fFlags = flagsForShell(operation.fFlags);
    const int code = SHFileOperationW(&order);
    if (code != 0) return systemCode(code);
    return order.fAnyOperationsAborted ? ERROR_CANCELLED : 0;
}

}  // namespace velmora::windows
