#include "platform/linux/entries/opened_parent.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/linux/drives/cached_path.h"
#include "platform/linux/paths/path_mapping.h"

namespace velmora::linuxhost {

namespace {

constexpr int pathFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

bool isLink(int folder, const std::string& name) {
    struct stat status {};
    return fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISLNK(status.st_mode);
}

UniqueFd openNext(const UniqueFd& folder, const std::string& name, int& failure) {
    UniqueFd next(openat(folder.get(), name.c_str(), pathFlags | O_NOFOLLOW));
    // For a link too the kernel says that it is no folder.
    if (!next.isOpen()) failure = errno == ENOTDIR && isLink(folder.get(), name) ? ELOOP : errno;
    return next;
}

}  // namespace

UniqueFd walkWithoutLinks(const std::string& path, int& failure) {
    UniqueFd folder(open("/", pathFlags));
    if (!folder.isOpen()) failure = errno;
    for (std::size_t at = 1; folder.isOpen() && at < path.size();) {
        const auto end = std::min(path.find('/', at), path.size());
        folder = openNext(folder, path.substr(at, end - at), failure);
        at = end + 1;
    }
    return folder;
}

UniqueFd openWithoutLinks(const std::string& path, int& failure) {
    open_how how{};
    how.flags = pathFlags;
    how.resolve = RESOLVE_NO_SYMLINKS;
    long folder = -1;
    do {
        folder = syscall(SYS_openat2, AT_FDCWD, path.c_str(), &how, sizeof how);
    } while (folder < 0 && errno == EINTR);
    if (folder >= 0) return UniqueFd(static_cast<int>(folder));
    // Some sandboxes deny calls that they don't know.
    if (errno == ENOSYS || errno == EPERM) return walkWithoutLinks(path, failure);
    failure = errno;
    return {};
}

OpenedParent::OpenedParent(Volumes& volumes, const std::string& hostPath) {
    const auto slash = hostPath.rfind('/');
    if (slash == std::string::npos) {
        failure_ = ENOENT;
        return;
    }
    if (volumes.isMountPoint(hostPath)) {
        failure_ = EBUSY;
        return;
    }
    name_ = hostPath.substr(slash + 1);
    const std::string folder = slash == 0 ? "/" : hostPath.substr(0, slash);
    fd_ = volumes.openWithoutLinks(folder);
    if (fd_.isOpen()) return;
    // Asked first, since opening would wait for a drive that doesn't answer.
    if (volumes.kindOf(folder) != FileKind::folder) {
        failure_ = ENOENT;
        return;
    }
    fd_ = openWithoutLinks(folder, failure_);
}

int OpenedParent::readStatus(struct stat& status) const {
    return fstatat(fd(), name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 ? 0 : errno;
}

std::string withoutLinksAbove(const std::string& hostPath, Volumes& volumes) {
    namespace fs = std::filesystem;
    std::string path = hostPath;
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    const auto slash = path.rfind('/');
    const std::string name = path.substr(slash + 1);
    // "." and ".." name no entry of their own.
    const bool isWhole = name == "." || name == "..";
    const std::string folder = isWhole ? path : path.substr(0, std::max<std::size_t>(slash, 1));
    if (volumes.kindOf(folder) != FileKind::folder) return hostPath;
    std::error_code failure;
    const fs::path real = fs::canonical(folder, failure);
    if (failure) return hostPath;
    return isWhole ? real.string() : (real / name).string();
}

std::string drivePathWithoutLinks(const std::string& path, Volumes& volumes) {
    const std::string hostPath = volumes.hostPathOf(path);
    if (hostPath.empty()) return path;
    // Nearly always: it has no names with points in it, so it is the real path as it stands.
    if (openCachedWithoutLinks(hostPath.substr(0, std::max<std::size_t>(hostPath.rfind('/'), 1)))
            .isOpen())
        return path;
    const std::string real = withoutLinksAbove(hostPath, volumes);
    if (real == hostPath) return path;
    const std::string realPath = drivePathOf(real, volumes.roots());
    return realPath.empty() ? path : realPath;
}

}  // namespace velmora::linuxhost
