// The folder that a path lies in, held open: whoever removes or moves the path's last name works in
// this folder, whatever is put in its place meanwhile. No symbolic link is followed on the way.
#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/linux/drives/volumes.h"

namespace velmora::linuxhost {

class OpenedParent {
  public:
    /// `hostPath` is absolute, without ".", ".." and slashes behind. A drive that doesn't answer
    /// counts as one where the folder is missing.
    OpenedParent(Volumes& volumes, const std::string& hostPath);
    ~OpenedParent();
    OpenedParent(const OpenedParent&) = delete;
    OpenedParent& operator=(const OpenedParent&) = delete;

    /// For calls relative to it; it can't be listed.
    int file() const { return file_; }
    bool isOpen() const { return file_ >= 0; }
    /// Why it isn't open, an errno: ENOENT for a missing folder, ELOOP for a link on the way, EBUSY
    /// for the root of a drive, which lies in no folder of its own.
    int failure() const { return failure_; }
    /// The path's last name.
    const std::string& name() const { return name_; }
    /// What lies at the name, a link as itself. 0, or the errno.
    int look(struct stat& status) const;

  private:
    std::string name_;
    int file_ = -1;
    int failure_ = 0;
};

/// Opens a folder by its absolute path; no component may be a link. A file, or -1 with the errno in
/// `failure`. The second does it name by name, for kernels that can't do it at once.
int openWithoutLinks(const std::string& path, int& failure);
int walkWithoutLinks(const std::string& path, int& failure);

/// The path with the folder that it lies in told by its real path, without links; as it is when
/// that folder can't be reached. What the last name is doesn't matter.
std::string withoutLinksAbove(const std::string& hostPath, Volumes& volumes);

}  // namespace velmora::linuxhost
