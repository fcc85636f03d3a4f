#include "platform/linux/removal/folder_removal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

#include "platform/linux/removal/tree_removal.h"
#include "platform/linux/removal/tree_walk.h"

namespace velmora::linuxhost {

namespace {

bool isWriteProtected(unsigned mode) {
    return !S_ISLNK(mode) && (mode & S_IWUSR) == 0;
}

// 0 when its owner may write all that is in the folder, and the folder.
int failureOfProtected(const OpenFolder& folder) {
    struct stat status {};
    if (fstat(folder.file(), &status) != 0) return errno;
    bool isProtected = isWriteProtected(status.st_mode);
    const int failure = walkTree(folder, [&](const struct statx& each) {
        isProtected = isProtected || isWriteProtected(each.stx_mode);
        return !isProtected;
    });
    if (failure != 0) return failure;
    return isProtected ? EACCES : 0;
}

// Whether the folder that was emptied is still the one at the name.
bool isStillThere(const OpenedParent& parent, const OpenFolder& folder) {
    struct stat atName {};
    struct stat opened {};
    return parent.look(atName) == 0 && fstat(folder.file(), &opened) == 0 &&
           atName.st_dev == opened.st_dev && atName.st_ino == opened.st_ino;
}

int removeEmptied(const OpenedParent& parent, const OpenFolder& folder) {
    if (!isStillThere(parent, folder)) return EBUSY;
    return unlinkat(parent.file(), parent.name().c_str(), AT_REMOVEDIR) == 0 ? 0 : errno;
}

}  // namespace

int removeFolder(const OpenedParent& parent, bool force) {
    struct statx status {};
    if (const int failure = lookAt(parent.file(), parent.name(), status); failure != 0)
        return failure;
    if (S_ISLNK(status.stx_mode)) return ELOOP;
    if (!S_ISDIR(status.stx_mode)) return ENOENT;
    Place outside;
    if (const int failure = placeOf(parent.file(), outside); failure != 0) return failure;
    // Before it is opened, since a mount may not answer.
    if (!mayLieIn(status, outside)) return EXDEV;

    const OpenFolder folder(parent.file(), parent.name());
    if (!folder.isOpen()) return folder.failure();
    Place inside;
    int failure = placeOf(folder.file(), inside);
    // One that was mounted there meanwhile.
    if (failure == 0 && !(inside == outside)) failure = EXDEV;
    if (failure == 0 && !force) failure = failureOfProtected(folder);
    if (failure != 0) return failure;
    // Where this fails, removing tells.
    std::optional<LentRights> rights;
    if (force) rights.emplace(folder);
    failure = removeEntries(
        folder, [](const std::string&) { return true; }, force);
    if (failure == 0) failure = removeEmptied(parent, folder);
    if (failure != 0 && rights) rights->takeBack();
    return failure;
}

int removeFolder(Volumes& volumes, const std::string& hostPath, bool force) {
    const OpenedParent parent(volumes, hostPath);
    if (!parent.isOpen()) return parent.failure() == ENOTDIR ? ENOENT : parent.failure();
    return removeFolder(parent, force);
}

int removeFile(const OpenedParent& parent) {
    struct stat status {};
    if (const int failure = parent.look(status); failure != 0) return failure;
    if (S_ISDIR(status.st_mode)) return EISDIR;
    if (isWriteProtected(status.st_mode)) return EROFS;
    return unlinkat(parent.file(), parent.name().c_str(), 0) == 0 ? 0 : errno;
}

}  // namespace velmora::linuxhost
