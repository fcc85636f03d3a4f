// Folders held open, so that what is done in them is done to the very folder that was opened. No
// symbolic link is followed, and each folder's mount is known, so that none is entered by mistake.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/entries/own_entry.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

class OpenFolder {
  public:
    /// Opens the path, or the name in an open folder. The last name may be no link.
    explicit OpenFolder(const std::string& path);
    OpenFolder(const OpenFolder& parent, const std::string& name);
    OpenFolder(int parentFd, const std::string& name);

    int fd() const { return fd_.get(); }
    bool isOpen() const { return fd_.isOpen(); }
    /// Why it isn't open, an errno.
    int failure() const { return failure_; }
    void close() { fd_.reset(); }

  private:
    explicit OpenFolder(int fd);

    UniqueFd fd_;
    int failure_;
};

/// Which mount a folder is on. Two mounts of the same filesystem differ in the number.
struct MountId {
    unsigned major = 0;
    unsigned minor = 0;
    std::uint64_t number = 0;
    bool operator==(const MountId&) const = default;
};

/// 0, or the errno: EXDEV where the system doesn't report the mount, since then no other mount
/// could be recognized. `identity` takes what the folder is, if it isn't null.
int mountIdOf(int folder, MountId& mount, EntryIdentity* identity = nullptr);
/// The number of an open file's mount, for kernels whose statx doesn't report it; nothing where it
/// can't be read.
std::optional<std::uint64_t> mountNumberOf(int fd);
/// Whether an entry with the status that `statEntry` gave may be on the mount. Some kernels report
/// no mount number there; a second mount of the same filesystem then shows only once it is open,
/// by `mountIdOf`.
bool mayBeOn(const struct statx& status, const MountId& mount);

/// Reads the status of an entry of the folder, of a link that of the link itself, without waiting
/// for a server: a mount that doesn't answer is still recognized as another mount. 0, or the errno.
int statEntry(int folder, const std::string& name, struct statx& status);

/// All names in the folder but "." and "..", added to what is there. 0, or the errno.
int namesIn(const OpenFolder& folder, std::vector<std::string>& names);

}  // namespace velmora::linuxhost
