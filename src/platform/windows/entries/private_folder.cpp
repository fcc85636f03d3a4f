#include "platform/windows/entries/private_folder.h"

#include "platform/windows/system/private_security.h"

namespace velmora::windows {

namespace {

ExactPath parentOf(ExactPath path) {
    path.names.pop_back();
    return path;
}

DWORD make(const ExactPath& path, PrivateSecurity& security) {
    if (CreateDirectoryW(path.text().c_str(), security.attributes())) return ERROR_SUCCESS;
    const DWORD failure = GetLastError();
    return failure == ERROR_ALREADY_EXISTS ? ERROR_SUCCESS : failure;
}

// Sharing is only enforced for handles that may list or traverse the folder.
constexpr ACCESS_MASK toHoldAndProtect =
    FILE_READ_ATTRIBUTES | FILE_LIST_DIRECTORY | FILE_TRAVERSE | READ_CONTROL | WRITE_DAC;

DWORD openItself(const ExactPath& path, OpenedEntry& folder) {
    if (path.names.empty()) return ERROR_PATH_NOT_FOUND;
    const std::wstring& name = path.names.back();
    OpenedEntry above;
    if (const DWORD failure = above.openPath(parentOf(path).text())) return failure;
    if (const DWORD failure = folder.openIn(above, name, toHoldAndProtect, FILE_DIRECTORY_FILE,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE))
        return failure;
    EntryKind kind{};
    if (const DWORD failure = folder.kindIn(above, name, kind)) return failure;
    return kind == EntryKind::plain ? ERROR_SUCCESS : ledThroughLink;
}

}  // namespace

DWORD openPrivateFolder(const ExactPath& path, WhenMissing whenMissing, OpenedEntry& folder) {
    PrivateSecurity security;
    if (security.failure() != ERROR_SUCCESS) return security.failure();
    if (whenMissing == WhenMissing::make) {
        if (const DWORD failure = make(path, security)) return failure;
    }
    DWORD failure = openItself(path, folder);
    if (failure == ERROR_SUCCESS) failure = security.giveTo(folder.handle());
    if (failure != ERROR_SUCCESS) folder.close();
    return failure;
}

}  // namespace velmora::windows
