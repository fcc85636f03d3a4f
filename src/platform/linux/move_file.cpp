#include "platform/linux/move_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/linux/file_copy.h"
#include "platform/linux/opened_parent.h"
#include "platform/linux/rename_entry.h"

namespace velmora::linuxhost {

namespace {

constexpr std::uint32_t fileNotFound = 2;
constexpr std::uint32_t pathNotFound = 3;
constexpr std::uint32_t accessDenied = 5;
constexpr std::uint32_t notSameDevice = 17;
constexpr std::uint32_t generalFailure = 31;
constexpr std::uint32_t sharingViolation = 32;
constexpr std::uint32_t invalidParameter = 87;
constexpr std::uint32_t diskFull = 112;
constexpr std::uint32_t alreadyExists = 183;
constexpr std::uint32_t nameTooLong = 206;
constexpr std::uint32_t fileTooLarge = 223;

std::uint32_t codeOf(int failure) {
    switch (failure) {
        case 0:
            return 0;
        case ENOENT:
        case ENOTDIR:
            return pathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case ELOOP:
            return accessDenied;
        case EXDEV:
            return notSameDevice;
        case EBUSY:
        case ETXTBSY:
            return sharingViolation;
        case EINVAL:
            return invalidParameter;
        case ENOSPC:
        case EDQUOT:
            return diskFull;
        case EEXIST:
        case ENOTEMPTY:
            return alreadyExists;
        case ENAMETOOLONG:
            return nameTooLong;
        case EFBIG:
            return fileTooLarge;
        default:
            return generalFailure;
    }
}

bool isSameEntry(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

// The new name must be on the disk before the old one goes.
void syncFolder(int folder) {
    const int listing = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (listing < 0) return;
    // Some filesystems can't; they have no later moment either.
    fsync(listing);
    close(listing);
}

// What was copied is in place; now the source goes, or else the copy.
int removeSource(const OpenedParent& source, const struct stat& copied,
                 const OpenedParent& target) {
    struct stat status {};
    int failure = source.look(status);
    // Another file has come to its name: the copied one is where somebody has moved it.
    if (failure == 0 && !isSameEntry(status, copied)) failure = EBUSY;
    if (failure == 0 && unlinkat(source.file(), source.name().c_str(), 0) != 0) failure = errno;
    if (failure != 0) unlinkat(target.file(), target.name().c_str(), 0);
    return failure;
}

std::string passingName() {
    static unsigned number = 0;
    return ".velmora-" + std::to_string(getpid()) + '-' + std::to_string(++number);
}

// A copy under a passing name, which nobody takes for the whole file.
int moveByCopy(const OpenedParent& source, const OpenedParent& target) {
    if (faccessat(source.file(), ".", W_OK | X_OK, AT_EACCESS) != 0) return errno;
    std::string passing;
    struct stat copied {};
    int failure = EEXIST;
    for (int tries = 0; failure == EEXIST && tries < 100; ++tries) {
        passing = passingName();
        failure = copyEntry(source.file(), source.name(), target.file(), passing, copied);
    }
    if (failure != 0) return failure;
    failure = renameInto(target.file(), passing, target.file(), target.name());
    if (failure != 0) {
        unlinkat(target.file(), passing.c_str(), 0);
        return failure;
    }
    syncFolder(target.file());
    return removeSource(source, copied, target);
}

int move(const OpenedParent& source, const struct stat& status, const OpenedParent& target) {
    const int failure = renameInto(source.file(), source.name(), target.file(), target.name());
    if (failure != EXDEV) return failure;
    struct stat there {};
    if (target.look(there) == 0) return EEXIST;
    return S_ISDIR(status.st_mode) ? EXDEV : moveByCopy(source, target);
}

}  // namespace

std::uint32_t moveFile(Volumes& volumes, const std::string& from, const std::string& to) {
    const OpenedParent source(volumes, from);
    if (!source.isOpen())
        return source.failure() == ENOENT || source.failure() == ENOTDIR ? fileNotFound
                                                                         : accessDenied;
    struct stat status {};
    if (const int failure = source.look(status); failure != 0)
        return failure == ENOENT ? fileNotFound : codeOf(failure);
    const OpenedParent target(volumes, to);
    // The root of a drive is always there.
    if (target.failure() == EBUSY) return alreadyExists;
    if (!target.isOpen()) return codeOf(target.failure());
    // A mount point can't be moved.
    const int failure = move(source, status, target);
    return failure == EBUSY && S_ISDIR(status.st_mode) ? accessDenied : codeOf(failure);
}

}  // namespace velmora::linuxhost
