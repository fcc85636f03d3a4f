#include "platform/linux/files/linux_text_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/linux/removal/folder_removal.h"
#include "platform/linux/system/system_errors.h"
#include "platform/linux/system/unique_fd.h"
#include "platform/linux/system/write_all.h"

namespace velmora::linuxhost {

namespace {

class OpenFile {
  public:
    OpenFile(const std::string& path, int flags)
        // A pipe whose other end isn't open must not keep the program waiting.
        : fd_(open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666)),
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

    /// Some filesystems report only now that the disk is full.
    void close() {
        if (const int failure = fd_.close(); failure != 0)
            throw RuntimeError(runtimeErrorOf(failure));
    }

  private:
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
    std::string_view rest = line;
    if (const int failure = file.orError().write(rest); failure != 0) {
        // When even that fails, the first failure is still the one to report.
        static_cast<void>(file.cutTo(file.sizeAtFirst()));
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
    return file.readToEnd();
}

void LinuxTextFiles::writeOver(const std::string& path, std::string_view content) {
    OpenFile file(hostPathOrError(path), O_WRONLY | O_CREAT);
    std::string_view rest = content;
    int failure = file.orError().write(rest);
    const int cutFailure = file.cutTo(static_cast<off_t>(content.size() - rest.size()));
    if (failure == 0) failure = cutFailure;
    if (failure != 0) throw RuntimeError(runtimeErrorOf(failure));
    file.close();
}

double LinuxTextFiles::FileLen(const std::string& path) {
    const auto status = volumes_.statusOf(volumes_.hostPathOf(path));
    if (!status || kindOf(*status) != FileKind::file) throw RuntimeError(error::fileNotFound);
    return static_cast<double>(status->stx_size);
}

void LinuxTextFiles::remove(const std::string& path) {
    const OpenedParent parent(volumes_, volumes_.hostPathOf(path));
    struct stat status {};
    int failure = statusToRemove(parent, path, status);
    if (failure == 0) failure = removeFile(parent, status);
    // The root of a drive is a folder like any other.
    const bool isRoot = parent.failure() == EBUSY;
    if (failure != 0) throw RuntimeError(errorOfRemovingFile(isRoot ? EISDIR : failure));
}

}  // namespace velmora::linuxhost
