#include "platform/linux/rename_entry.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace velmora::linuxhost {

namespace {

// 0, or the errno: EEXIST when the name is taken.
int holdName(int folder, const std::string& name, bool isFolder) {
    if (isFolder) return mkdirat(folder, name.c_str(), 0700) == 0 ? 0 : errno;
    const int file =
        openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file < 0) return errno;
    close(file);
    return 0;
}

}  // namespace

int renameOverOwnEntry(int fromFolder, const std::string& from, int toFolder,
                       const std::string& to) {
    struct stat status {};
    if (fstatat(fromFolder, from.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return errno;
    const bool isFolder = S_ISDIR(status.st_mode);
    if (const int failure = holdName(toFolder, to, isFolder); failure != 0) return failure;
    if (renameat(fromFolder, from.c_str(), toFolder, to.c_str()) == 0) return 0;
    const int failure = errno;
    unlinkat(toFolder, to.c_str(), isFolder ? AT_REMOVEDIR : 0);
    return failure;
}

int renameInto(int fromFolder, const std::string& from, int toFolder, const std::string& to) {
    if (renameat2(fromFolder, from.c_str(), toFolder, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    const int failure = errno;
    // What filesystems of the network and of other systems say that don't know the flag.
    if (failure != EINVAL && failure != ENOSYS) return failure;
    return renameOverOwnEntry(fromFolder, from, toFolder, to);
}

}  // namespace velmora::linuxhost
