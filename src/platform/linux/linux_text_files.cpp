#include "platform/linux/linux_text_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/linux/path_mapping.h"

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

class AppendedFile {
  public:
    explicit AppendedFile(const std::string& path)
        // A pipe that nobody reads must not keep the program waiting.
        : file_(open(path.c_str(),
                     O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666)) {
        if (file_ < 0) throw RuntimeError(errorOf(errno));
    }
    ~AppendedFile() {
        if (file_ >= 0) ::close(file_);
    }
    AppendedFile(const AppendedFile&) = delete;
    AppendedFile& operator=(const AppendedFile&) = delete;

    /// All of the bytes or none.
    void append(std::string_view bytes) {
        struct stat before {};
        if (fstat(file_, &before) != 0) throw RuntimeError(errorOf(errno));
        const int failure = write(bytes);
        if (failure == 0) return;
        // When even that fails, the first failure is still the one to tell.
        const bool isCut = S_ISREG(before.st_mode) && ftruncate(file_, before.st_size) == 0;
        static_cast<void>(isCut);
        throw RuntimeError(errorOf(failure));
    }

    /// Some filesystems tell only now that the disk is full.
    void close() {
        const int file = file_;
        file_ = -1;
        if (::close(file) != 0 && errno != EINTR) throw RuntimeError(errorOf(errno));
    }

  private:
    int write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const auto written = ::write(file_, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) return errno;
            if (written == 0) return ENOSPC;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return 0;
    }

    int file_;
};

}  // namespace

void LinuxTextFiles::appendLine(const std::string& path, std::string_view text) {
    const std::string hostPath = hostPathOf(path, volumes_.roots());
    if (hostPath.empty()) throw RuntimeError(error::pathNotFound);
    std::string line(text);
    line += lineEnd;
    AppendedFile file(hostPath);
    file.append(line);
    file.close();
}

}  // namespace velmora::linuxhost
