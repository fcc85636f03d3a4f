#include "platform/linux/trash/file_operation.h"

#include <sys/stat.h>

#include <string>
#include <string_view>

#include "base/text.h"
#include "platform/linux/entries/opened_parent.h"
#include "platform/linux/removal/folder_removal.h"
#include "platform/linux/system/system_errors.h"
#include "platform/linux/trash/move_to_trash.h"

namespace velmora::linuxhost {

namespace {

// The shell has only these codes for a failure.
std::uint32_t shellCodeOf(int failure) {
    const std::uint32_t result = codeOf(failure);
    switch (result) {
        case code::success:
        case code::diskFull:
            return result;
        case code::pathNotFound:
            return code::fileNotFound;
        default:
            return code::accessDenied;
    }
}

// The path is mapped once and its entry looked at once; all that follows works in the opened parent
// folder. 0, or the errno.
int removeOne(Volumes& volumes, const std::string& path, bool allowUndo) {
    const Volumes::OneLook look(volumes);
    const auto& roots = volumes.roots();
    const std::string hostPath = hostPathOf(path, roots);
    const OpenedParent parent(volumes, hostPath);
    struct stat status {};
    if (const int failure = statusToRemove(parent, path, status); failure != 0) return failure;
    if (allowUndo) return moveToTrash(parent, hostPath, roots);
    return S_ISDIR(status.st_mode) ? removeFolder(parent, true) : removeFile(parent, status);
}

}  // namespace

std::int32_t removeByShell(Volumes& volumes, const FileOperation& operation) {
    if (operation.wFunc != file_operation::remove) return code::invalidParameter;
    const bool allowUndo = (operation.fFlags & file_operation::allowUndo) != 0;
    std::uint32_t result = code::fileNotFound;
    for (const std::string& path : split(operation.pFrom, std::string_view("\0", 1))) {
        if (path.empty()) continue;
        result = shellCodeOf(removeOne(volumes, path, allowUndo));
        if (result != code::success) break;
    }
    return static_cast<std::int32_t>(result);
}

}  // namespace velmora::linuxhost
