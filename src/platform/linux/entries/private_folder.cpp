#include "platform/linux/entries/private_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace velmora::linuxhost {

namespace {

constexpr mode_t rightsOfOthers = S_IRWXG | S_IRWXO;

int makePrivate(int folder) {
    struct stat status {};
    if (fstat(folder, &status) != 0) return errno;
    if (status.st_uid != geteuid()) return EPERM;
    if ((status.st_mode & rightsOfOthers) == 0) return 0;
    // Some filesystems take it and change nothing.
    if (fchmod(folder, S_IRWXU) != 0 || fstat(folder, &status) != 0) return errno;
    return (status.st_mode & rightsOfOthers) == 0 ? 0 : EPERM;
}

// 0 when it is there.
int makeFolder(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) return 0;
    if (errno != ENOENT) return errno;
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) return ENOENT;
    const std::string above = slash == 0 ? "/" : path.substr(0, slash);
    if (const int failure = makeFolder(above); failure != 0) return failure;
    if (stat(above.c_str(), &status) != 0) return errno;
    if (status.st_uid != geteuid()) return EPERM;
    return mkdir(path.c_str(), S_IRWXU) == 0 || errno == EEXIST ? 0 : errno;
}

}  // namespace

int openPrivateFolder(const std::string& path, UniqueFd& folder) {
    UniqueFd opened(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!opened.isOpen()) return errno;
    const int failure = makePrivate(opened.get());
    if (failure == 0) folder = std::move(opened);
    return failure;
}

int makePrivateFolder(const std::string& path, UniqueFd& folder) {
    const int failure = makeFolder(path);
    return failure != 0 ? failure : openPrivateFolder(path, folder);
}

}  // namespace velmora::linuxhost
