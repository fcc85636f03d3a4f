#include "platform/linux/trash/file_operation.h"

#include <sys/stat.h>

#include <cerrno>
#include <string>
#include <string_view>

#include "base/text.h"
#include "platform/linux/entries/opened_parent.h"
#include "platform/linux/removal/folder_removal.h"
#include "platform/linux/trash/trash_feeding.h"

namespace velmora::linuxhost {

namespace {

constexpr std::int32_t notThere = 2;

std::int32_t codeOf(int failure) {
    constexpr std::int32_t accessDenied = 5;
    constexpr std::int32_t diskFull = 112;
    switch (failure) {
        case 0:
            return 0;
        case ENOENT:
        case ENOTDIR:
            return notThere;
        case ENOSPC:
        case EDQUOT:
            return diskFull;
        default:
            return accessDenied;
    }
}

// 0, or the errno.
int removeOne(Volumes& volumes, const std::string& path, bool allowUndo) {
    const auto roots = volumes.roots();
    const std::string hostPath = hostPathOf(path, roots);
    if (hostPath.empty()) return ENOENT;
    const OpenedParent parent(volumes, hostPath);
    if (!parent.isOpen()) return parent.failure();
    struct stat status {};
    if (const int failure = parent.look(status); failure != 0) return failure;
    const bool isFolder = S_ISDIR(status.st_mode);
    // Only a folder's path may have a separator behind.
    if (!isFolder && (path.ends_with('\\') || path.ends_with('/'))) return ENOENT;
    if (allowUndo) return moveToTrash(parent, hostPath, roots);
    return isFolder ? removeFolder(parent, true) : removeFile(parent);
}

}  // namespace

std::int32_t removeByShell(Volumes& volumes, const FileOperation& operation) {
    constexpr std::int32_t invalidParameter = 87;
    if (operation.wFunc != file_operation::remove) return invalidParameter;
    const bool allowUndo = (operation.fFlags & file_operation::allowUndo) != 0;
    std::int32_t code = notThere;
    for (const std::string& path : split(operation.pFrom, std::string_view("\0", 1))) {
        if (path.empty()) continue;
        code = codeOf(removeOne(volumes, path, allowUndo));
        if (code != 0) break;
    }
    return code;
}

}  // namespace velmora::linuxhost
