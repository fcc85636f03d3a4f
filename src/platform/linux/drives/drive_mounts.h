// Which mounts are drives. Filesystems that hold somebody's files are: on block devices, by FUSE
// and from the network, and a size-limited tmpfs that can be written. Views of the kernel,
// read-only images of packages and second views of a filesystem are not.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/drives/mount_table.h"

namespace velmora::linuxhost {

/// A mount that appears as a drive.
struct DriveMount {
    Mount mount;
    std::string share;  ///< "\\host\share" of a network mount, else empty
    /// Whether a question about free space is answered from memory all the way: the filesystem
    /// never waits for a device or a server to report its sizes, and neither does any filesystem
    /// that the way to the mount point leads through.
    bool answersFromMemory = false;

    bool operator==(const DriveMount& other) const {
        return mount.id == other.mount.id && mount.device == other.mount.device &&
               mount.mountPoint == other.mount.mountPoint && mount.source == other.mount.source;
    }
};

/// The drives among the mounts, the root filesystem first and the others in the order of the
/// listing. `isFolder` says whether a mount point is a folder; it is only asked where no
/// network or FUSE filesystem can keep it waiting, and mount points elsewhere are taken for
/// folders.
std::vector<DriveMount> driveMounts(const std::vector<Mount>& mounts,
                                    const std::function<bool(const std::string&)>& isFolder);

/// "\\host\share" for a network filesystem, empty for any other and for a source without a host:
/// "//host/share" of Windows networks as it is, "user@host:/srv/data" of others as
/// "\\host\srv_data". The top folder of a host is the share "_".
std::string shareOfMount(std::string_view type, std::string_view source);

/// Whether a filesystem of this type waits for no device or server to report what it knows.
bool isMemoryType(std::string_view type);
/// Whether files of a filesystem of this type lie on another machine, or outside of this one.
bool isNetworkType(std::string_view type);
/// Whether a filesystem of this type lies on disks of this machine without a device number of its
/// own.
bool isDiskType(std::string_view type);

}  // namespace velmora::linuxhost
