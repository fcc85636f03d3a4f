#include "platform/linux/entries/rename_entry.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "platform/linux/entries/own_entry.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

namespace {

int makeFolder(int folder, const std::string& name, struct stat& made) {
    if (mkdirat(folder, name.c_str(), 0700) != 0) return errno;
    return fstatat(folder, name.c_str(), &made, AT_SYMLINK_NOFOLLOW) == 0 ? 0 : errno;
}

int makeFile(int folder, const std::string& name, struct stat& made) {
    const UniqueFd file(
        openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    return file.isOpen() && fstat(file.get(), &made) == 0 ? 0 : errno;
}

// Without replacing anything.
int renameToFree(int fromFolder, const std::string& from, int toFolder, const std::string& to) {
    constexpr auto how = RENAME_NOREPLACE;
    return renameat2(fromFolder, from.c_str(), toFolder, to.c_str(), how) == 0 ? 0 : errno;
}

// The answers of network and foreign filesystems that can't rename so.
bool isUnknown(int failure) {
    return failure == EINVAL || failure == ENOSYS;
}

// Whether the entry that holds the name is still the one made here, with nothing in it.
bool isUntouched(int folder, const std::string& name, const struct stat& made) {
    struct stat now {};
    if (fstatat(folder, name.c_str(), &now, AT_SYMLINK_NOFOLLOW) != 0) return false;
    // A folder with something in it isn't replaced or removed by the kernel.
    return identityOf(now) == identityOf(made) && (S_ISDIR(now.st_mode) || now.st_size == 0);
}

}  // namespace

int renameOverOwnEntry(int fromFolder, const std::string& from, int toFolder,
                       const std::string& to) {
    struct stat status {};
    if (fstatat(fromFolder, from.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return errno;
    const bool isFolder = S_ISDIR(status.st_mode);
    struct stat made {};
    int failure = isFolder ? makeFolder(toFolder, to, made) : makeFile(toFolder, to, made);
    if (failure != 0) return failure;
    if (!isUntouched(toFolder, to, made)) return EEXIST;
    if (renameat(fromFolder, from.c_str(), toFolder, to.c_str()) == 0) return 0;
    failure = errno;
    if (isUntouched(toFolder, to, made)) removeOwn(toFolder, to, identityOf(made), isFolder);
    return failure;
}

int renameInto(int fromFolder, const std::string& from, int toFolder, const std::string& to) {
    const int failure = renameToFree(fromFolder, from, toFolder, to);
    return isUnknown(failure) ? renameOverOwnEntry(fromFolder, from, toFolder, to) : failure;
}

int renameOwnFile(int folder, const std::string& from, const std::string& to) {
    const int failure = renameToFree(folder, from, folder, to);
    if (!isUnknown(failure)) return failure;
    if (linkat(folder, from.c_str(), folder, to.c_str(), 0) != 0)
        return errno == EEXIST ? EEXIST : renameOverOwnEntry(folder, from, folder, to);
    // It has its name, whatever becomes of the former one.
    unlinkat(folder, from.c_str(), 0);
    return 0;
}

}  // namespace velmora::linuxhost
