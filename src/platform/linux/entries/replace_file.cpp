#include "platform/linux/entries/replace_file.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace velmora::linuxhost {

namespace {

int writeAndClose(int file, std::string_view content, mode_t mode) {
    int failure = fchmod(file, mode) == 0 ? 0 : errno;
    while (failure == 0 && !content.empty()) {
        const auto written = write(file, content.data(), content.size());
        if (written > 0) {
            content.remove_prefix(static_cast<std::size_t>(written));
        } else if (written == 0 || errno != EINTR) {
            failure = written == 0 ? ENOSPC : errno;
        }
    }
    if (close(file) != 0 && failure == 0 && errno != EINTR) failure = errno;
    return failure;
}

}  // namespace

int makeFolders(const std::string& path) {
    std::error_code failure;
    std::filesystem::create_directories(path, failure);
    return failure.value();
}

int replaceFile(const std::string& path, std::string_view content, mode_t mode) {
    const auto slash = path.rfind('/');
    if (const int failure = makeFolders(path.substr(0, slash)); failure != 0) return failure;
    // Hidden, so that no listing shows it meanwhile.
    std::string newPath = path.substr(0, slash + 1) + ".velmora-XXXXXX";
    const int file = mkostemp(newPath.data(), O_CLOEXEC);
    if (file < 0) return errno;
    int failure = writeAndClose(file, content, mode);
    if (failure == 0 && rename(newPath.c_str(), path.c_str()) != 0) failure = errno;
    if (failure != 0) unlink(newPath.c_str());
    return failure;
}

}  // namespace velmora::linuxhost
