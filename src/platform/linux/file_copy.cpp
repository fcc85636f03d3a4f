#include "platform/linux/file_copy.h"

#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <vector>

namespace velmora::linuxhost {

namespace {

class Descriptor {
  public:
    explicit Descriptor(int file) : file_(file), failure_(file < 0 ? errno : 0) {}
    ~Descriptor() {
        if (file_ >= 0) close(file_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int file() const { return file_; }
    int failure() const { return failure_; }

  private:
    int file_;
    int failure_;
};

int writeAll(int file, const char* bytes, std::size_t size) {
    while (size > 0) {
        const auto written = write(file, bytes, size);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        if (written == 0) return ENOSPC;
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return 0;
}

// The bytes from `at` to `end` in both files.
int copyPiece(int from, int to, off_t at, off_t end, std::vector<char>& buffer) {
    if (lseek(from, at, SEEK_SET) < 0 || lseek(to, at, SEEK_SET) < 0) return errno;
    while (at < end) {
        const auto wanted = std::min<off_t>(end - at, static_cast<off_t>(buffer.size()));
        const auto got = read(from, buffer.data(), static_cast<std::size_t>(wanted));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        if (got == 0) return EBUSY;  // cut shorter meanwhile
        if (const int failure = writeAll(to, buffer.data(), static_cast<std::size_t>(got));
            failure != 0)
            return failure;
        at += got;
    }
    return 0;
}

// Holes stay holes, so that a file doesn't grow on its way.
int copyContent(int from, int to, off_t size) {
    std::vector<char> buffer(1 << 20);
    off_t at = 0;
    while (at < size) {
        off_t start = lseek(from, at, SEEK_DATA);
        if (start < 0 && errno == ENXIO) break;
        if (start < 0) start = at;  // a filesystem that doesn't tell
        off_t end = lseek(from, start, SEEK_HOLE);
        if (end < 0) end = size;
        end = std::min(end, size);
        if (const int failure = copyPiece(from, to, start, end, buffer); failure != 0)
            return failure;
        at = std::max(end, start + 1);
    }
    return ftruncate(to, size) == 0 ? 0 : errno;
}

// Access lists and what programs keep beside a file, as far as the other filesystem takes them.
void copyAttributes(int from, int to) {
    const auto size = flistxattr(from, nullptr, 0);
    if (size <= 0) return;
    std::vector<char> names(static_cast<std::size_t>(size));
    const auto used = flistxattr(from, names.data(), names.size());
    for (ssize_t at = 0; at < used;) {
        const char* name = names.data() + at;
        std::vector<char> value(XATTR_SIZE_MAX);
        const auto length = fgetxattr(from, name, value.data(), value.size());
        if (length >= 0) fsetxattr(to, name, value.data(), static_cast<std::size_t>(length), 0);
        at += static_cast<ssize_t>(std::strlen(name)) + 1;
    }
}

// A filesystem without owners or modes refuses; times are what a copy must have.
int copyNature(int from, int to, const struct stat& status) {
    const bool hasOwner = fchown(to, status.st_uid, status.st_gid) == 0;
    // The rights of an owner who isn't the file's here are nobody's.
    const mode_t mode = status.st_mode & (hasOwner ? 07777 : 0777);
    copyAttributes(from, to);
    if (fchmod(to, mode) != 0 && errno != EPERM && errno != ENOTSUP) return errno;
    const timespec times[] = {status.st_atim, status.st_mtim};
    return futimens(to, times) == 0 ? 0 : errno;
}

bool isSame(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino &&
           one.st_size == other.st_size && one.st_mtim.tv_sec == other.st_mtim.tv_sec &&
           one.st_mtim.tv_nsec == other.st_mtim.tv_nsec;
}

int copyInto(int from, const struct stat& status, int to) {
    if (const int failure = copyContent(from, to, status.st_size); failure != 0) return failure;
    if (const int failure = copyNature(from, to, status); failure != 0) return failure;
    if (fsync(to) != 0) return errno;
    struct stat now {};
    if (fstat(from, &now) != 0) return errno;
    return isSame(now, status) ? 0 : EBUSY;
}

int copyFile(int fromFolder, const std::string& from, int toFolder, const std::string& to,
             struct stat& status) {
    const Descriptor source(
        openat(fromFolder, from.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (source.failure() != 0) return source.failure();
    if (fstat(source.file(), &status) != 0) return errno;
    if (!S_ISREG(status.st_mode)) return EXDEV;
    const Descriptor copy(
        openat(toFolder, to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (copy.failure() != 0) return copy.failure();
    const int failure = copyInto(source.file(), status, copy.file());
    if (failure != 0) unlinkat(toFolder, to.c_str(), 0);
    return failure;
}

int copyLink(int fromFolder, const std::string& from, const struct stat& status, int toFolder,
             const std::string& to) {
    std::vector<char> target(PATH_MAX + 1);
    const auto size = readlinkat(fromFolder, from.c_str(), target.data(), PATH_MAX);
    if (size < 0) return errno;
    if (symlinkat(target.data(), toFolder, to.c_str()) != 0) return errno;
    const timespec times[] = {status.st_atim, status.st_mtim};
    // A link's owner and times are as good as never looked at; where they stay behind, so be it.
    utimensat(toFolder, to.c_str(), times, AT_SYMLINK_NOFOLLOW);
    static_cast<void>(
        !fchownat(toFolder, to.c_str(), status.st_uid, status.st_gid, AT_SYMLINK_NOFOLLOW));
    return 0;
}

}  // namespace

int copyEntry(int fromFolder, const std::string& from, int toFolder, const std::string& to,
              struct stat& copied) {
    if (fstatat(fromFolder, from.c_str(), &copied, AT_SYMLINK_NOFOLLOW) != 0) return errno;
    if (S_ISREG(copied.st_mode)) return copyFile(fromFolder, from, toFolder, to, copied);
    if (S_ISLNK(copied.st_mode)) return copyLink(fromFolder, from, copied, toFolder, to);
    return EXDEV;
}

}  // namespace velmora::linuxhost
