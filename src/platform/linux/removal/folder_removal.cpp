#include "platform/linux/removal/folder_removal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

#include "platform/file_system_object.h"
#include "platform/linux/entries/tree_walk.h"
#include "platform/linux/removal/tree_removal.h"

namespace velmora::linuxhost {

namespace {

bool isWriteProtected(unsigned mode) {
    return !S_ISLNK(mode) && (mode & S_IWUSR) == 0;
}

// 0 when its owner may write all that is in the folder, and the folder.
int failureOfProtected(const OpenFolder& folder) {
    struct stat status {};
    if (fstat(folder.fd(), &status) != 0) return errno;
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
    return parent.readStatus(atName) == 0 && fstat(folder.fd(), &opened) == 0 &&
           atName.st_dev == opened.st_dev && atName.st_ino == opened.st_ino;
}

int removeEmptied(const OpenedParent& parent, const OpenFolder& folder) {
    if (!isStillThere(parent, folder)) return EBUSY;
    return unlinkat(parent.fd(), parent.name().c_str(), AT_REMOVEDIR) == 0 ? 0 : errno;
}

}  // namespace

int removeFolder(const OpenedParent& parent, bool force) {
    struct statx status {};
    if (const int failure = statEntry(parent.fd(), parent.name(), status); failure != 0)
        return failure;
    if (S_ISLNK(status.stx_mode)) return ELOOP;
    if (!S_ISDIR(status.stx_mode)) return ENOENT;
    MountId parentMount;
    if (const int failure = mountIdOf(parent.fd(), parentMount); failure != 0) return failure;
    // Before it is opened, since a mount may not answer.
    if (!mayBeOn(status, parentMount)) return EXDEV;

    const OpenFolder folder(parent.fd(), parent.name());
    if (!folder.isOpen()) return folder.failure();
    MountId mount;
    int failure = mountIdOf(folder.fd(), mount);
    // Something may have been mounted there meanwhile.
    if (failure == 0 && !(mount == parentMount)) failure = EXDEV;
    if (failure == 0 && !force) failure = failureOfProtected(folder);
    if (failure != 0) return failure;
    // Where this fails, the removal reports it.
    std::optional<TemporaryRights> rights;
    if (force) rights.emplace(folder);
    failure = removeEntries(folder, everyEntry, force);
    if (failure == 0) failure = removeEmptied(parent, folder);
    if (failure != 0 && rights) rights->restore();
    return failure;
}

int removeFolder(Volumes& volumes, const std::string& hostPath, bool force) {
    const OpenedParent parent(volumes, hostPath);
    if (!parent.isOpen()) return parent.failure() == ENOTDIR ? ENOENT : parent.failure();
    return removeFolder(parent, force);
}

int statusToRemove(const OpenedParent& parent, const std::string& path, struct stat& status) {
    if (!parent.isOpen()) return parent.failure();
    if (const int failure = parent.readStatus(status); failure != 0) return failure;
    if (S_ISDIR(status.st_mode)) return 0;
    // Only a folder's path may end in a separator.
    if (endsInSeparator(path)) return ENOENT;
    return S_ISREG(status.st_mode) || S_ISLNK(status.st_mode) ? 0 : EACCES;
}

int removeFile(const OpenedParent& parent, const struct stat& status) {
    if (S_ISDIR(status.st_mode)) return EISDIR;
    if (isWriteProtected(status.st_mode)) return EROFS;
    return unlinkat(parent.fd(), parent.name().c_str(), 0) == 0 ? 0 : errno;
}

}  // namespace velmora::linuxhost
