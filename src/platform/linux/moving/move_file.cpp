#include "platform/linux/moving/move_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/linux/entries/opened_parent.h"
#include "platform/linux/entries/rename_entry.h"
#include "platform/linux/moving/file_copy.h"
#include "platform/linux/system/system_errors.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

namespace {

int syncFolder(int folder) {
    const UniqueFd listing(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // A folder that takes entries but may not be read can't be synchronized by itself.
    if (!listing.isOpen()) return errno == EACCES ? 0 : errno;
    const int failure = fsync(listing.get()) == 0 ? 0 : errno;
    // Filesystems that can't synchronize a folder have no later moment for it either.
    return failure == EINVAL || failure == ENOTSUP || failure == EROFS ? 0 : failure;
}

// The end of a move whose copy is complete: the source is removed, or else the copy. Where it isn't
// known whether the source still exists, the copy stays.
class EndOfMove {
  public:
    EndOfMove(const OpenedParent& source, const OpenedParent& target, const CopiedEntry& copied,
              const MoveSteps& steps)
        : source_(source), target_(target), copied_(copied), steps_(steps) {}

    int run() {
        // The new name must be on the disk before the old one is removed.
        if (const int failure = steps_.sync(target_.fd()); failure != 0) return undo(failure);
        if (const int failure = steps_.whenCopied(); failure != 0) return undo(failure);
        const bool isFile = S_ISREG(copied_.source.st_mode);
        if (isFile && isOpenForWriting(source_.fd(), source_.name())) return undo(EBUSY);
        struct stat now {};
        if (const int failure = source_.readStatus(now); failure != 0) return whenUnseen(failure);
        // Written to since, or another file has come to its name.
        if (!isUnchanged(now, copied_.source)) return undo(EBUSY);
        const int failure = steps_.remove(source_.fd(), source_.name());
        return failure == 0 ? 0 : whenNotRemoved(failure);
    }

  private:
    int undo(int failure) {
        removeOwn(target_.fd(), target_.name(), copied_.copy);
        return failure;
    }
    // Somebody else has removed it, or a server whose answer was lost: the copy is all there is.
    static int whenUnseen(int failure) { return failure == ENOENT ? 0 : failure; }
    int whenNotRemoved(int failure) {
        struct stat left {};
        if (const int unseen = source_.readStatus(left); unseen != 0)
            return unseen == ENOENT ? 0 : failure;
        return isSameFile(left, copied_.source) ? undo(failure) : failure;
    }

    const OpenedParent& source_;
    const OpenedParent& target_;
    const CopiedEntry& copied_;
    const MoveSteps& steps_;
};

int moveByCopy(const OpenedParent& source, const OpenedParent& target, const MoveSteps& steps) {
    if (faccessat(source.fd(), ".", W_OK | X_OK, AT_EACCESS) != 0) return errno;
    CopiedEntry copied;
    const int failure = copyEntry(source.fd(), source.name(), target.fd(), target.name(), copied);
    return failure == 0 ? EndOfMove(source, target, copied, steps).run() : failure;
}

int move(const OpenedParent& source, const struct stat& status, const OpenedParent& target,
         const MoveSteps& steps) {
    const int failure = renameInto(source.fd(), source.name(), target.fd(), target.name());
    if (failure != EXDEV) return failure;
    struct stat there {};
    if (target.readStatus(there) == 0) return EEXIST;
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
        return source.failure() == ENOENT || source.failure() == ENOTDIR ? code::fileNotFound
                                                                         : code::accessDenied;
    struct stat status {};
    if (const int failure = source.readStatus(status); failure != 0)
        return failure == ENOENT ? code::fileNotFound : codeOf(failure);
    const OpenedParent target(volumes, to);
    // The root of a drive is always there.
    if (target.failure() == EBUSY) return code::alreadyExists;
    if (!target.isOpen()) return codeOf(target.failure());
    // A mount point can't be moved.
    const int failure = move(source, status, target, steps);
    return failure == EBUSY && S_ISDIR(status.st_mode) ? code::accessDenied : codeOf(failure);
}

}  // namespace velmora::linuxhost
