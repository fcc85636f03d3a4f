#include "platform/linux/volumes/drive_kind.h"

#include "platform/linux/drives/drive_mounts.h"
#include "platform/linux/volumes/block_device.h"

namespace velmora::linuxhost {

std::uint32_t driveKindOf(const Mount& mount) {
    const std::string& type = mount.type;
    if (type == "tmpfs" || type == "ramfs" || type == "rootfs") return drive_kind::memory;
    if (isNetworkType(type)) return drive_kind::remote;
    const bool isDisc = type == "iso9660" || type == "udf";
    if (isDisc || mount.source.starts_with("/dev/sr")) return drive_kind::optical;
    if (const auto device = blockDeviceOf(mount))
        return isRemovable(*device) ? drive_kind::removable : drive_kind::fixed;
    return type == "overlay" || isDiskType(type) ? drive_kind::fixed : drive_kind::unknown;
}

}  // namespace velmora::linuxhost
