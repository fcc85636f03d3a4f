#include "platform/linux/drives/cached_path.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace velmora::linuxhost {

namespace {

bool isUnknownCall(int failure) {
    return failure == ENOSYS || failure == EINVAL || failure == EPERM;
}

}  // namespace

UniqueFd openCached(int at, const char* path, int flags, std::uint64_t resolve) {
    open_how how{};
    how.flags = static_cast<unsigned>(O_PATH | O_CLOEXEC | flags);
    how.resolve = RESOLVE_CACHED | resolve;
    const auto opened = static_cast<int>(syscall(SYS_openat2, at, path, &how, sizeof how));
    // Kernels before 5.12, and sandboxes that refuse what they don't know.
    if (opened < 0 && isUnknownCall(errno)) errno = EAGAIN;
    return UniqueFd(opened);
}

UniqueFd openCached(const std::string& path, int flags, std::uint64_t resolve) {
    if (path.find('\0') == std::string::npos)
        return openCached(AT_FDCWD, path.c_str(), flags, resolve);
    errno = EAGAIN;
    return {};
}

UniqueFd openCachedWithoutLinks(const std::string& path) {
    return openCached(path, O_DIRECTORY, RESOLVE_NO_SYMLINKS);
}

}  // namespace velmora::linuxhost
