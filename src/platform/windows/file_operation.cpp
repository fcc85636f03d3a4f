#include "platform/windows/file_operation.h"

#include <windows.h>
// Behind the one above, which it needs.
#include <shellapi.h>

#include <string>

#include "base/text.h"
#include "platform/windows/exact_path.h"
#include "platform/windows/utf16.h"

namespace velmora::windows {

namespace {

// The shell takes "*" and "?" for patterns, tidies names, and knows no path beyond the old limit:
// it would do what was ordered to other files than the one that is named.
int failureOfPath(const std::string& path) {
    if (path.find_first_of("*?") != std::string::npos || !isTidy(path)) return ERROR_FILE_NOT_FOUND;
    const std::wstring full = fullPath(path);
    if (full.size() >= MAX_PATH) return ERROR_FILENAME_EXCED_RANGE;
    if (GetFileAttributesW(full.c_str()) != INVALID_FILE_ATTRIBUTES) return ERROR_SUCCESS;
    const DWORD failure = GetLastError();
    const bool isGone = failure == ERROR_PATH_NOT_FOUND || failure == ERROR_FILE_NOT_FOUND;
    return static_cast<int>(isGone ? ERROR_FILE_NOT_FOUND : failure);
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

std::int32_t orderFileOperation(const FileOperation& operation) {
    std::wstring names;
    for (const std::string& path : split(operation.pFrom, std::string(1, '\0'))) {
        if (path.empty()) continue;
        if (const int failure = failureOfPath(path)) return failure;
        names += fullPath(path) + L'\0';
    }
    if (names.empty()) return ERROR_FILE_NOT_FOUND;
    SHFILEOPSTRUCTW order{};
    order.hwnd = GetActiveWindow();
    order.wFunc = operation.wFunc;
    order.pFrom = names.c_str();  // with the text's own NUL as the second one at the end
    order.fFlags = operation.fFlags;
    // What the recycle bin doesn't take is not removed for good without asking.
    if ((operation.fFlags & file_operation::allowUndo) != 0) order.fFlags |= FOF_WANTNUKEWARNING;
    const int code = SHFileOperationW(&order);
    if (code != 0) return systemCode(code);
    return order.fAnyOperationsAborted ? ERROR_CANCELLED : 0;
}

}  // namespace velmora::windows
