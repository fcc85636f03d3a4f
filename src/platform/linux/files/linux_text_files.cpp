#include "platform/linux/files/linux_text_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/linux/files/apart_write.h"
#include "platform/linux/files/file_lock.h"
#include "platform/linux/removal/folder_removal.h"
#include "platform/linux/system/system_errors.h"
#include "platform/linux/system/unique_fd.h"
#include "platform/linux/system/write_all.h"

namespace velmora::linuxhost {

namespace {

constexpr mode_t othersRights = S_IRWXG | S_IRWXO;
constexpr mode_t ownRights = S_IRUSR | S_IWUSR;

std::string paddedTo(std::size_t size, std::string_view content) {
    std::string padded(content);
    if (content.size() < size) padded += blankLines(size - content.size());
    return padded;
}

class OpenFile {
  public:
    /// `mode` is for a file that is made.
    OpenFile(const std::string& path, int flags, mode_t mode = 0666)
        // A pipe whose other end isn't open must not keep the program waiting.
        : fd_(open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, mode)),
          failure_(fd_.isOpen() && fstat(fd_.get(), &status_) == 0 ? 0 : errno) {}

    /// Why it couldn't be opened, as errno; 0 when it was.
    int failure() const { return failure_; }
    const OpenFile& orError() const {
        if (failure_ != 0) throw RuntimeError(runtimeErrorOf(failure_));
        return *this;
    }
    bool isRegular() const { return S_ISREG(status_.st_mode); }
    bool isFolder() const { return S_ISDIR(status_.st_mode); }
    off_t sizeAtFirst() const { return status_.st_size; }

    /// Removes the bytes that were written from the front; 0, or the errno.
    int write(std::string_view& bytes) const { return writeAll(fd_.get(), bytes); }

    std::string readToEnd() const {
        std::string content;
        content.resize(static_cast<std::size_t>(sizeAtFirst()) + 1);  // one more, to see the end
        std::size_t size = 0;
        while (true) {
            const auto got = ::read(fd_.get(), content.data() + size, content.size() - size);
            if (got < 0 && errno == EINTR) continue;
            if (got < 0) throw RuntimeError(runtimeErrorOf(errno));
            if (got == 0) break;
            size += static_cast<std::size_t>(got);
            if (size == content.size()) content.resize(size * 2);
        }
        content.resize(size);
        return content;
    }

    /// 0, or the errno. Devices and pipes have no length to cut to.
    int cutTo(off_t size) const {
        return !isRegular() || ftruncate(fd_.get(), size) == 0 ? 0 : errno;
    }

    /// Writes the content in place of the old one and to the disk; 0, or the errno. Devices and
    /// pipes have neither an end nor a disk.
    int writeOver(std::string_view content) const {
        if (isRegular()) return writeApart(fd_.get(), paddedTo(sizeNow(), content), content.size());
        return write(content);
    }

    /// Takes the rights of all others away. On a filesystem without rights, and on another user's
    /// file, they stay.
    void makePrivate() const {
        const bool isOpenToOthers = (status_.st_mode & othersRights) != 0;
        if (isRegular() && isOpenToOthers && status_.st_uid == geteuid())
            static_cast<void>(fchmod(fd_.get(), status_.st_mode & ownRights));
    }

    /// Keeps other programs from the file until it is closed; 0, or the errno.
    int lock(LockKind kind) const { return isRegular() ? lockFile(fd_.get(), kind) : 0; }

    /// In bytes, 0 for a device. Another program may have written since it was opened.
    std::size_t sizeNow() const {
        struct stat status {};
        const bool isKnown = isRegular() && fstat(fd_.get(), &status) == 0;
        return isKnown ? static_cast<std::size_t>(status.st_size) : 0;
    }

    /// Takes the room for a content of that size; 0, or the errno with the file as it was.
    int reserve(std::size_t size) const {
        if (!isRegular() || size == 0) return 0;
        int failure = 0;
        do {
            const bool isTaken =
                fallocate(fd_.get(), FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size)) == 0;
            failure = isTaken ? 0 : errno;
        } while (failure == EINTR);
        const bool isUnknown = failure == EOPNOTSUPP || failure == ENOSYS || failure == EINVAL;
        return isUnknown ? growTo(size) : failure;
    }

    /// Some filesystems report only now that the disk is full.
    void close() {
        if (const int failure = fd_.close(); failure != 0)
            throw RuntimeError(runtimeErrorOf(failure));
    }

  private:
    // For filesystems that can't reserve: blank lines behind the old content take the room.
    int growTo(std::size_t size) const {
        const std::size_t old = sizeNow();
        if (size <= old) return 0;
        const std::string lines = blankLines(size - old);
        std::string_view rest = lines;
        int failure = lseek(fd_.get(), 0, SEEK_END) >= 0 ? write(rest) : errno;
        if (failure != 0) static_cast<void>(cutTo(static_cast<off_t>(old)));
        if (failure == 0 && lseek(fd_.get(), 0, SEEK_SET) < 0) failure = errno;
        return failure;
    }

    struct stat status_ {};
    UniqueFd fd_;
    int failure_;
};

// A missing file in a folder that is there has an error of its own.
int errorOfReading(int failure, const std::string& hostPath) {
    if (failure != ENOENT) return runtimeErrorOf(failure);
    const auto slash = hostPath.rfind('/');
    struct stat status {};
    const bool hasFolder = stat(hostPath.substr(0, slash + 1).c_str(), &status) == 0;
    return hasFolder ? error::fileNotFound : error::pathNotFound;
}

}  // namespace

std::string LinuxTextFiles::hostPathOrError(const std::string& path) {
    std::string hostPath = volumes_.hostPathOf(path);
    if (hostPath.empty()) throw RuntimeError(error::pathNotFound);
    return hostPath;
}

void LinuxTextFiles::appendLine(const std::string& path, std::string_view text) {
    std::string line(text);
    line += lineEnd;
    OpenFile file(hostPathOrError(path), O_WRONLY | O_APPEND | O_CREAT);
    // One that another program holds for ever takes the line all the same.
    static_cast<void>(file.orError().lock(LockKind::exclusive));
    const auto old = static_cast<off_t>(file.sizeNow());
    std::string_view rest = line;
    if (const int failure = file.write(rest); failure != 0) {
        // When even that fails, the first failure is still the one to report.
        static_cast<void>(file.cutTo(old));
        throw RuntimeError(runtimeErrorOf(failure));
    }
    file.close();
}

std::string LinuxTextFiles::readAll(const std::string& path) {
    const std::string hostPath = hostPathOrError(path);
    const OpenFile file(hostPath, O_RDONLY);
    if (file.failure() != 0) throw RuntimeError(errorOfReading(file.failure(), hostPath));
    if (file.isFolder()) throw RuntimeError(error::pathFileAccess);
    // A device may never come to an end.
    if (!file.isRegular()) throw RuntimeError(error::deviceIo);
    // One that a stopped program holds for ever is read as it is.
    static_cast<void>(file.lock(LockKind::shared));
    return file.readToEnd();
}

void LinuxTextFiles::writeOver(const std::string& path, std::string_view content, Overwriting how) {
    OpenFile file(hostPathOrError(path), O_WRONLY | O_CREAT, how.isPrivate ? 0600 : 0666);
    file.orError();
    if (how.isPrivate) file.makePrivate();
    int failure = file.lock(LockKind::exclusive);
    if (failure == 0 && how.reservesRoom) failure = file.reserve(content.size());
    if (failure == 0) failure = file.writeOver(content);
    if (failure != 0) throw RuntimeError(runtimeErrorOf(failure));
    file.close();
}

double LinuxTextFiles::FileLen(const std::string& path) {
    const Volumes::OneLook look(volumes_);
    const auto status = volumes_.statusOf(volumes_.hostPathOf(path));
    if (!status || kindOf(*status) != FileKind::file) throw RuntimeError(error::fileNotFound);
    return static_cast<double>(status->stx_size);
}

void LinuxTextFiles::remove(const std::string& path) {
    const Volumes::OneLook look(volumes_);
    const OpenedParent parent(volumes_, volumes_.hostPathOf(path));
    struct stat status {};
    int failure = statusToRemove(parent, path, status);
    if (failure == 0) failure = removeFile(parent, status);
    // The root of a drive is a folder like any other.
    const bool isRoot = parent.failure() == EBUSY;
    if (failure != 0) throw RuntimeError(errorOfRemovingFile(isRoot ? EISDIR : failure));
}

}  // namespace velmora::linuxhost
