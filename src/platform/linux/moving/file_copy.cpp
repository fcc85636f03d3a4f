#include "platform/linux/moving/file_copy.h"

#include <fcntl.h>
#include <limits.h>
#include <linux/fs.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/entries/rename_entry.h"
#include "platform/linux/moving/clock_step.h"
#include "platform/linux/moving/left_copies.h"
#include "platform/linux/system/unique_fd.h"
#include "platform/linux/system/write_all.h"
#include "platform/work_steps.h"

namespace velmora::linuxhost {

namespace {

// Results apart from the errnos: the caller tries another way.
constexpr int noUnnamedFiles = -1;
constexpr int temporaryNameTaken = -2;

// A lease for reading can't be had beside a writer. Somebody who opens the file in that moment
// waits for its end, and must cost this process no signal that would end it.
bool isHeldForWriting(int file) {
    fcntl(file, F_SETSIG, SIGURG);
    if (fcntl(file, F_SETLEASE, F_RDLCK) != 0) return errno == EAGAIN;
    fcntl(file, F_SETLEASE, F_UNLCK);
    return false;
}

UniqueFd openToRead(int folder, const std::string& name) {
    return UniqueFd(openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
}

// Where both files are on one filesystem that can share blocks, nothing is copied at all. What the
// source has beyond the size is cut off later.
bool canShareBlocks(int from, int to) {
    return ioctl(to, FICLONE, from) == 0;
}

// What the kernel or a server copies by itself from `at` on, which is moved on. It stops where that
// can't be done, for whatever reason.
void copyWithinSystem(int from, int to, off_t& at, off_t end) {
    constexpr off_t longestPart = 1 << 20;  // a step of work
    while (at < end) {
        off_t in = at;
        off_t out = at;
        const auto part = static_cast<std::size_t>(std::min(end - at, longestPart));
        const auto copied = copy_file_range(from, &in, to, &out, part, 0);
        if (copied < 0 && errno == EINTR) continue;
        if (copied <= 0) return;
        at += copied;
        noteWorkStep();
    }
}

// The bytes from `at` to `end` in both files.
int copyPiece(int from, int to, off_t at, off_t end, std::vector<char>& buffer) {
    copyWithinSystem(from, to, at, end);
    if (lseek(from, at, SEEK_SET) < 0 || lseek(to, at, SEEK_SET) < 0) return errno;
    while (at < end) {
        const auto part = std::min<off_t>(end - at, static_cast<off_t>(buffer.size()));
        const auto got = read(from, buffer.data(), static_cast<std::size_t>(part));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        if (got == 0) return EBUSY;  // cut shorter meanwhile
        std::string_view bytes(buffer.data(), static_cast<std::size_t>(got));
        if (const int failure = writeAll(to, bytes); failure != 0) return failure;
        at += got;
        noteWorkStep();
    }
    return 0;
}

// Holes stay holes, so that a file doesn't grow on its way.
int copyContent(int from, int to, off_t size) {
    if (canShareBlocks(from, to)) return ftruncate(to, size) == 0 ? 0 : errno;
    std::vector<char> buffer(256 << 10);  // what a processor's cache takes
    off_t at = 0;
    while (at < size) {
        off_t start = lseek(from, at, SEEK_DATA);
        if (start < 0 && errno == ENXIO) break;
        if (start < 0) start = at;  // a filesystem that doesn't report holes
        off_t end = lseek(from, start, SEEK_HOLE);
        if (end < 0) end = size;
        end = std::min(end, size);
        if (const int failure = copyPiece(from, to, start, end, buffer); failure != 0)
            return failure;
        at = std::max(end, start + 1);
    }
    return ftruncate(to, size) == 0 ? 0 : errno;
}

bool isLossOfDisk(int failure) {
    return failure == ENOSPC || failure == EDQUOT || failure == EIO;
}

// Access lists and what programs keep beside a file, as far as the other filesystem takes them. 0,
// or the errno of a disk that is full or broken.
int copyAttributes(int from, int to) {
    const auto size = flistxattr(from, nullptr, 0);
    if (size <= 0) return 0;
    std::vector<char> names(static_cast<std::size_t>(size));
    const auto used = flistxattr(from, names.data(), names.size());
    for (ssize_t at = 0; at < used;) {
        const char* name = names.data() + at;
        std::vector<char> value(XATTR_SIZE_MAX);
        const auto length = fgetxattr(from, name, value.data(), value.size());
        if (length < 0 && errno == EIO) return EIO;
        if (length >= 0 &&
            fsetxattr(to, name, value.data(), static_cast<std::size_t>(length), 0) != 0 &&
            isLossOfDisk(errno))
            return errno;
        at += static_cast<ssize_t>(std::strlen(name)) + 1;
    }
    return 0;
}

// A filesystem without owners or modes refuses; times are what a copy must have.
int copyMetadata(int from, int to, const struct stat& status) {
    const bool hasOwner = fchown(to, status.st_uid, status.st_gid) == 0;
    // With another owner the set-user and set-group bits would give that owner's rights: dropped.
    const mode_t mode = status.st_mode & (hasOwner ? 07777 : 0777);
    if (const int failure = copyAttributes(from, to); failure != 0) return failure;
    if (fchmod(to, mode) != 0 && errno != EPERM && errno != ENOTSUP) return errno;
    const timespec times[] = {status.st_atim, status.st_mtim};
    return futimens(to, times) == 0 ? 0 : errno;
}

bool isSameTime(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

int copyInto(int from, const struct stat& status, int to) {
    if (const int failure = copyContent(from, to, status.st_size); failure != 0) return failure;
    if (const int failure = copyMetadata(from, to, status); failure != 0) return failure;
    if (fsync(to) != 0) return errno;
    struct stat now {};
    if (fstat(from, &now) != 0) return errno;
    return isUnchanged(now, status) ? 0 : EBUSY;
}

// A nameless file in the folder, which the system removes if this process ends. 0, or the errno.
int copyUnnamed(int from, int toFolder, const std::string& to, CopiedEntry& copied) {
    UniqueFd copy(openat(toFolder, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600));
    if (!copy.isOpen()) return noUnnamedFiles;
    const std::string path = "/proc/self/fd/" + std::to_string(copy.get());
    struct stat status {};
    if (fstat(copy.get(), &status) != 0 || access(path.c_str(), F_OK) != 0) return noUnnamedFiles;
    copied.copy = identityOf(status);
    if (const int failure = copyInto(from, copied.source, copy.get()); failure != 0) return failure;
    if (linkat(AT_FDCWD, path.c_str(), toFolder, to.c_str(), AT_SYMLINK_FOLLOW) != 0)
        return errno == EEXIST || isLossOfDisk(errno) ? errno : noUnnamedFiles;
    const int failure = copy.close();
    if (failure != 0) removeOwn(toFolder, to, copied.copy);
    return failure;
}

// A copy under a temporary name, so that it isn't taken for the whole file. 0, or the errno.
int copyUnderTemporaryName(int from, int toFolder, const std::string& temporary,
                           const std::string& to, CopiedEntry& copied) {
    CopyNote note(toFolder, temporary);
    UniqueFd copy(openat(toFolder, temporary.c_str(),
                         O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!copy.isOpen()) {
        const int failure = errno;
        note.forget();
        return failure == EEXIST ? temporaryNameTaken : failure;
    }
    struct stat status {};
    if (fstat(copy.get(), &status) != 0) return errno;
    copied.copy = identityOf(status);
    int failure = copyInto(from, copied.source, copy.get());
    if (const int atClose = copy.close(); failure == 0) failure = atClose;
    if (failure == 0) failure = renameOwnFile(toFolder, temporary, to);
    if (failure != 0) removeOwn(toFolder, temporary, copied.copy);
    return failure;
}

int copyFile(int fromFolder, const std::string& from, int toFolder, const std::string& to,
             CopiedEntry& copied) {
    const UniqueFd source = openToRead(fromFolder, from);
    if (!source.isOpen()) return errno;
    if (fstat(source.get(), &copied.source) != 0) return errno;
    if (!S_ISREG(copied.source.st_mode)) return EXDEV;
    if (isHeldForWriting(source.get())) return EBUSY;
    // So that what is written from here on shows in the times.
    waitForNextStep(copied.source.st_ctim);
    if (fstat(source.get(), &copied.source) != 0) return errno;
    int failure = copyUnnamed(source.get(), toFolder, to, copied);
    if (failure != noUnnamedFiles) return failure;
    failure = temporaryNameTaken;
    for (int tries = 0; failure == temporaryNameTaken && tries < 100; ++tries)
        failure = copyUnderTemporaryName(source.get(), toFolder, temporaryCopyName(), to, copied);
    return failure == temporaryNameTaken ? EEXIST : failure;
}

// A link is there as a whole or not at all, so it needs no other name before.
int copyLink(int fromFolder, const std::string& from, int toFolder, const std::string& to,
             CopiedEntry& copied) {
    std::vector<char> target(PATH_MAX + 1);
    const auto size = readlinkat(fromFolder, from.c_str(), target.data(), PATH_MAX);
    if (size < 0) return errno;
    if (symlinkat(target.data(), toFolder, to.c_str()) != 0) return errno;
    struct stat made {};
    if (fstatat(toFolder, to.c_str(), &made, AT_SYMLINK_NOFOLLOW) != 0) return errno;
    copied.copy = identityOf(made);
    const struct stat& status = copied.source;
    const timespec times[] = {status.st_atim, status.st_mtim};
    // A link's owner and times hardly matter; a failure to set them is ignored.
    utimensat(toFolder, to.c_str(), times, AT_SYMLINK_NOFOLLOW);
    static_cast<void>(
        !fchownat(toFolder, to.c_str(), status.st_uid, status.st_gid, AT_SYMLINK_NOFOLLOW));
    return 0;
}

}  // namespace

bool isSameFile(const struct stat& one, const struct stat& other) {
    return identityOf(one) == identityOf(other) && one.st_size == other.st_size;
}

bool isUnchanged(const struct stat& one, const struct stat& other) {
    return isSameFile(one, other) && isSameTime(one.st_mtim, other.st_mtim) &&
           isSameTime(one.st_ctim, other.st_ctim);
}

int copyEntry(int fromFolder, const std::string& from, int toFolder, const std::string& to,
              CopiedEntry& copied) {
    struct stat& status = copied.source;
    if (fstatat(fromFolder, from.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return errno;
    if (S_ISREG(status.st_mode)) return copyFile(fromFolder, from, toFolder, to, copied);
    if (S_ISLNK(status.st_mode)) return copyLink(fromFolder, from, toFolder, to, copied);
    return EXDEV;
}

bool isOpenForWriting(int folder, const std::string& name) {
    const UniqueFd file = openToRead(folder, name);
    return file.isOpen() && isHeldForWriting(file.get());
}

}  // namespace velmora::linuxhost
