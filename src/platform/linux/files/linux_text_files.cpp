#include "platform/linux/files/linux_text_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/removal/folder_removal.h"

namespace velmora::linuxhost {

namespace {

int errorOf(int reason) {
    switch (reason) {
        case ENOENT:
        case ENOTDIR:
            return error::pathNotFound;
        case EACCES:
        case EPERM:
        case ETXTBSY:
        case EBUSY:
            return error::permissionDenied;
        case EISDIR:
        case EROFS:
            return error::pathFileAccess;
        case ENOSPC:
        case EDQUOT:
            return error::diskFull;
        default:
            return error::deviceIo;
    }
}

class OpenFile {
  public:
    OpenFile(const std::string& path, int flags)
        // A pipe that nobody uses at its other end must not keep the program waiting.
        : file_(open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666)) {
        if (file_ < 0) {
            reason_ = errno;
        } else if (fstat(file_, &status_) != 0) {
            reason_ = errno;
        }
    }
    ~OpenFile() {
        if (file_ >= 0) ::close(file_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    /// Why it couldn't be opened, as errno; 0 when it was.
    int reason() const { return reason_; }
    const OpenFile& orError() const {
        if (reason_ != 0) throw RuntimeError(errorOf(reason_));
        return *this;
    }
    bool isRegular() const { return S_ISREG(status_.st_mode); }
    bool isFolder() const { return S_ISDIR(status_.st_mode); }
    off_t sizeAtFirst() const { return status_.st_size; }

    /// Takes the bytes that were written off their front; 0, or the errno.
    int write(std::string_view& bytes) const {
        while (!bytes.empty()) {
            const auto written = ::write(file_, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) return errno;
            if (written == 0) return ENOSPC;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return 0;
    }

    std::string readToEnd() const {
        std::string content;
        content.resize(static_cast<std::size_t>(sizeAtFirst()) + 1);  // one more, to see the end
        std::size_t size = 0;
        while (true) {
            const auto got = ::read(file_, content.data() + size, content.size() - size);
            if (got < 0 && errno == EINTR) continue;
            if (got < 0) throw RuntimeError(errorOf(errno));
            if (got == 0) break;
            size += static_cast<std::size_t>(got);
            if (size == content.size()) content.resize(size * 2);
        }
        content.resize(size);
        return content;
    }

    /// 0, or the errno. Devices and pipes have no length to cut to.
    int cutTo(off_t size) const { return !isRegular() || ftruncate(file_, size) == 0 ? 0 : errno; }

    /// Some filesystems tell only now that the disk is full.
    void close() {
        const int file = file_;
        file_ = -1;
        if (::close(file) != 0 && errno != EINTR) throw RuntimeError(errorOf(errno));
    }

  private:
    int file_;
    int reason_ = 0;
    struct stat status_ {};
};

// A missing file in a folder that is there is a matter of its own.
int errorOfReading(int reason, const std::string& hostPath) {
    if (reason != ENOENT) return errorOf(reason);
    const auto slash = hostPath.rfind('/');
    struct stat status {};
    const bool hasFolder = stat(hostPath.substr(0, slash + 1).c_str(), &status) == 0;
    return hasFolder ? error::fileNotFound : error::pathNotFound;
}

int errorOfRemoving(int reason) {
    switch (reason) {
        case ENOENT:
        case ENOTDIR:
            return error::fileNotFound;
        case EISDIR:
        case EROFS:
            return error::pathFileAccess;
        default:
            return error::permissionDenied;
    }
}

}  // namespace

std::string LinuxTextFiles::hostPathOrError(const std::string& path) {
    std::string hostPath = hostPathOf(path, volumes_.roots());
    if (hostPath.empty()) throw RuntimeError(error::pathNotFound);
    return hostPath;
}

void LinuxTextFiles::appendLine(const std::string& path, std::string_view text) {
    std::string line(text);
    line += lineEnd;
    OpenFile file(hostPathOrError(path), O_WRONLY | O_APPEND | O_CREAT);
    std::string_view rest = line;
    if (const int failure = file.orError().write(rest); failure != 0) {
        // When even that fails, the first failure is still the one to tell.
        static_cast<void>(file.cutTo(file.sizeAtFirst()));
        throw RuntimeError(errorOf(failure));
    }
    file.close();
}

std::string LinuxTextFiles::readAll(const std::string& path) {
    const std::string hostPath = hostPathOrError(path);
    const OpenFile file(hostPath, O_RDONLY);
    if (file.reason() != 0) throw RuntimeError(errorOfReading(file.reason(), hostPath));
    if (file.isFolder()) throw RuntimeError(error::pathFileAccess);
    // A device may never come to an end.
    if (!file.isRegular()) throw RuntimeError(error::deviceIo);
    return file.readToEnd();
}

void LinuxTextFiles::writeOver(const std::string& path, std::string_view content) {
    OpenFile file(hostPathOrError(path), O_WRONLY | O_CREAT);
    std::string_view rest = content;
    int failure = file.orError().write(rest);
    const int cutFailure = file.cutTo(static_cast<off_t>(content.size() - rest.size()));
    if (failure == 0) failure = cutFailure;
    if (failure != 0) throw RuntimeError(errorOf(failure));
    file.close();
}

double LinuxTextFiles::FileLen(const std::string& path) {
    const std::string hostPath = hostPathOf(path, volumes_.roots());
    // Asked first, since the drive may not answer.
    const bool isFile = !hostPath.empty() && volumes_.kindOf(hostPath) == FileKind::file;
    struct stat status {};
    if (!isFile || stat(hostPath.c_str(), &status) != 0) throw RuntimeError(error::fileNotFound);
    return static_cast<double>(status.st_size);
}

void LinuxTextFiles::remove(const std::string& path) {
    const std::string hostPath = hostPathOf(path, volumes_.roots());
    if (hostPath.empty()) throw RuntimeError(error::fileNotFound);
    const OpenedParent parent(volumes_, hostPath);
    struct stat status {};
    int failure = parent.isOpen() ? parent.look(status) : parent.failure();
    const bool isRoot = parent.failure() == EBUSY;
    const bool isFolderPath = path.ends_with('\\') || path.ends_with('/');
    if (failure == 0 && isFolderPath && !S_ISDIR(status.st_mode)) failure = ENOENT;
    if (failure == 0) failure = removeFile(parent);
    if (failure != 0) throw RuntimeError(errorOfRemoving(isRoot ? EISDIR : failure));
}

}  // namespace velmora::linuxhost
