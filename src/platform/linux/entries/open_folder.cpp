#include "platform/linux/entries/open_folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/sysmacros.h>

#include <cerrno>
#include <fstream>
#include <memory>

#include "platform/linux/paths/path_names.h"

namespace velmora::linuxhost {

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

struct CloseListing {
    void operator()(DIR* listing) const { closedir(listing); }
};
using UniqueListing = std::unique_ptr<DIR, CloseListing>;

}  // namespace

OpenFolder::OpenFolder(int fd) : fd_(fd), failure_(fd < 0 ? errno : 0) {}

OpenFolder::OpenFolder(const std::string& path) : OpenFolder(open(path.c_str(), folderFlags)) {}

OpenFolder::OpenFolder(const OpenFolder& parent, const std::string& name)
    : OpenFolder(parent.fd(), name) {}

OpenFolder::OpenFolder(int parentFd, const std::string& name)
    : OpenFolder(openat(parentFd, name.c_str(), folderFlags)) {}

int namesIn(const OpenFolder& folder, std::vector<std::string>& names) {
    UniqueFd fd(openat(folder.fd(), ".", folderFlags));
    const UniqueListing listing(fd.isOpen() ? fdopendir(fd.get()) : nullptr);
    if (!listing) return errno;
    fd.release();  // closed with the listing
    errno = 0;
    while (const dirent* entry = readdir(listing.get())) {
        const std::string name = entry->d_name;
        if (!isDots(name)) names.push_back(name);
    }
    return errno;
}

std::optional<std::uint64_t> mountNumberOf(int fd) {
    std::ifstream fields("/proc/self/fdinfo/" + std::to_string(fd));
    for (std::string name; fields >> name;) {
        std::uint64_t number = 0;
        if (name == "mnt_id:" && fields >> number) return number;
    }
    return std::nullopt;
}

bool mayBeOn(const struct statx& status, const MountId& mount) {
    if (status.stx_dev_major != mount.major || status.stx_dev_minor != mount.minor) return false;
    return (status.stx_mask & STATX_MNT_ID) == 0 || status.stx_mnt_id == mount.number;
}

int statEntry(int folder, const std::string& name, struct statx& status) {
    constexpr int flags =
        AT_SYMLINK_NOFOLLOW | AT_EMPTY_PATH | AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC;
    constexpr unsigned wanted = STATX_BASIC_STATS | STATX_MNT_ID;
    return statx(folder, name.c_str(), flags, wanted, &status) == 0 ? 0 : errno;
}

int mountIdOf(int folder, MountId& mount, EntryIdentity* identity) {
    struct statx status {};
    if (const int failure = statEntry(folder, "", status); failure != 0) return failure;
    const bool hasNumber = (status.stx_mask & STATX_MNT_ID) != 0;
    const auto number =
        hasNumber ? std::optional<std::uint64_t>(status.stx_mnt_id) : mountNumberOf(folder);
    if (!number) return EXDEV;
    mount = {status.stx_dev_major, status.stx_dev_minor, *number};
    if (identity) *identity = {makedev(status.stx_dev_major, status.stx_dev_minor), status.stx_ino};
    return 0;
}

}  // namespace velmora::linuxhost
