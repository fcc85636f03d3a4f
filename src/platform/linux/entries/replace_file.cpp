#include "platform/linux/entries/replace_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/linux/entries/left_writings.h"
#include "platform/linux/system/unique_fd.h"
#include "platform/linux/system/write_all.h"

namespace velmora::linuxhost {

namespace {

// Short, whatever name the file gets.
constexpr const char* newFile = "velmora-new";

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
    const std::string folder = path.substr(0, slash + 1);
    removeLeftWritings(UniqueFd(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)).get(),
                       newFile);
    // Hidden, so that no listing shows it meanwhile.
    const std::string newPath = folder + ownBesideName(newFile);
    // One with this number was left by a process that had it before.
    unlink(newPath.c_str());
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    UniqueFd file(open(newPath.c_str(), flags, S_IRUSR | S_IWUSR));
    if (!file.isOpen()) return errno;
    int failure = writeAndClose(std::move(file), content, mode);
    if (failure == 0 && rename(newPath.c_str(), path.c_str()) != 0) failure = errno;
    if (failure != 0) unlink(newPath.c_str());
    return failure;
}

}  // namespace velmora::linuxhost
