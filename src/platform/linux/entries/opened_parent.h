// The parent folder of a path, held open: the entry with the path's last name is removed or moved
// in this folder, even if something else is put at the folder's path meanwhile. No symbolic link is
// followed.
#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/linux/drives/volumes.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

class OpenedParent {
  public:
    /// `hostPath` is absolute, without ".", ".." and a slash at the end. A drive that doesn't
    /// answer counts as one where the folder is missing.
    OpenedParent(Volumes& volumes, const std::string& hostPath);

    /// For calls relative to it; it can't be listed.
    int fd() const { return fd_.get(); }
    bool isOpen() const { return fd_.isOpen(); }
    /// Why it isn't open, an errno: ENOENT for a missing folder, ELOOP for a link in its path,
    /// EBUSY for the root of a drive, which lies in no folder of its own.
    int failure() const { return failure_; }
    /// The path's last name.
    const std::string& name() const { return name_; }
    /// Reads the status of the entry with that name, of a link that of the link itself. 0, or the
    /// errno.
    int readStatus(struct stat& status) const;

  private:
    std::string name_;
    UniqueFd fd_;
    int failure_ = 0;
};

/// Opens a folder by its absolute path; no component may be a link. Where it can't be opened, the
/// errno is in `failure`. The second opens name by name, for kernels without such a call.
UniqueFd openWithoutLinks(const std::string& path, int& failure);
UniqueFd walkWithoutLinks(const std::string& path, int& failure);

/// The path with the links above its last name resolved; the last name itself is kept, even where
/// it is a link. The path as it is when its parent folder can't be reached.
std::string withoutLinksAbove(const std::string& hostPath, Volumes& volumes);

/// The same for a drive path, which stays as it is written where there is no link.
std::string drivePathWithoutLinks(const std::string& path, Volumes& volumes);

}  // namespace velmora::linuxhost
