#include "platform/linux/entries/replace_file.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/linux/system/unique_fd.h"
#include "platform/linux/system/write_all.h"

namespace velmora::linuxhost {

namespace {

int writeAndClose(UniqueFd file, std::string_view content, mode_t mode) {
    int failure = fchmod(file.get(), mode) == 0 ? 0 : errno;
    if (failure == 0) failure = writeAll(file.get(), content);
    const int failureToClose = file.close();
    return failure != 0 ? failure : failureToClose;
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
    UniqueFd file(mkostemp(newPath.data(), O_CLOEXEC));
    if (!file.isOpen()) return errno;
    int failure = writeAndClose(std::move(file), content, mode);
    if (failure == 0 && rename(newPath.c_str(), path.c_str()) != 0) failure = errno;
    if (failure != 0) unlink(newPath.c_str());
    return failure;
}

}  // namespace velmora::linuxhost
