#include "platform/linux/moving/move_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/linux/entries/opened_parent.h"
#include "platform/linux/entries/rename_entry.h"
#include "platform/linux/moving/file_copy.h"

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

bool isSameTime(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

bool isSameFile(const struct stat& one, const struct stat& other) {
    return identityOf(one) == identityOf(other) && one.st_size == other.st_size;
}

bool isUnchanged(const struct stat& one, const struct stat& other) {
    return isSameFile(one, other) && isSameTime(one.st_mtim, other.st_mtim) &&
           isSameTime(one.st_ctim, other.st_ctim);
}

int syncFolder(int folder) {
    const int listing = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // A folder that takes entries but may not be read can't be synchronized by itself.
    if (listing < 0) return errno == EACCES ? 0 : errno;
    int failure = fsync(listing) == 0 ? 0 : errno;
    close(listing);
    // Filesystems that can't; they have no later moment either.
    if (failure == EINVAL || failure == ENOTSUP || failure == EROFS) failure = 0;
    return failure;
}

// A move whose copy is in its place: now the source goes, or else the copy. Where it can't be told
// whether the source is still there, the copy stays.
class EndOfMove {
  public:
    EndOfMove(const OpenedParent& source, const OpenedParent& target, const CopiedEntry& copied,
              const MoveSteps& steps)
        : source_(source), target_(target), copied_(copied), steps_(steps) {}

    int run() {
        // The new name must be on the disk before the old one goes.
        if (const int failure = steps_.sync(target_.file()); failure != 0) return undo(failure);
        if (const int failure = steps_.whenCopied(); failure != 0) return undo(failure);
        const bool isFile = S_ISREG(copied_.source.st_mode);
        if (isFile && isOpenForWriting(source_.file(), source_.name())) return undo(EBUSY);
        struct stat now {};
        if (const int failure = source_.look(now); failure != 0) return whenUnseen(failure);
        // Written to since, or another file has come to its name.
        if (!isUnchanged(now, copied_.source)) return undo(EBUSY);
        const int failure = steps_.remove(source_.file(), source_.name());
        return failure == 0 ? 0 : whenNotRemoved(failure);
    }

  private:
    int undo(int failure) {
        removeOwn(target_.file(), target_.name(), copied_.copy);
        return failure;
    }
    // Somebody else has removed it, or a server whose answer was lost: the copy is all there is.
    static int whenUnseen(int failure) { return failure == ENOENT ? 0 : failure; }
    int whenNotRemoved(int failure) {
        struct stat left {};
        if (const int unseen = source_.look(left); unseen != 0)
            return unseen == ENOENT ? 0 : failure;
        return isSameFile(left, copied_.source) ? undo(failure) : failure;
    }

    const OpenedParent& source_;
    const OpenedParent& target_;
    const CopiedEntry& copied_;
    const MoveSteps& steps_;
};

int moveByCopy(const OpenedParent& source, const OpenedParent& target, const MoveSteps& steps) {
    if (faccessat(source.file(), ".", W_OK | X_OK, AT_EACCESS) != 0) return errno;
    CopiedEntry copied;
    const int failure =
        copyEntry(source.file(), source.name(), target.file(), target.name(), copied);
    return failure == 0 ? EndOfMove(source, target, copied, steps).run() : failure;
}

int move(const OpenedParent& source, const struct stat& status, const OpenedParent& target,
         const MoveSteps& steps) {
    const int failure = renameInto(source.file(), source.name(), target.file(), target.name());
    if (failure != EXDEV) return failure;
    struct stat there {};
    if (target.look(there) == 0) return EEXIST;
    return S_ISDIR(status.st_mode) ? EXDEV : moveByCopy(source, target, steps);
}

}  // namespace

MoveSteps::MoveSteps()
    : sync(syncFolder), remove([](int folder, const std::string& name) {
          return unlinkat(folder, name.c_str(), 0) == 0 ? 0 : errno;
      }) {}

std::uint32_t moveFile(Volumes& volumes, const std::string& from, const std::string& to,
                       const MoveSteps& steps) {
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
    const int failure = move(source, status, target, steps);
    return failure == EBUSY && S_ISDIR(status.st_mode) ? accessDenied : codeOf(failure);
}

}  // namespace velmora::linuxhost
