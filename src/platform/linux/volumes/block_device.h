// The block device below a mount, and what the kernel tells of it under /sys.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/linux/drives/mount_table.h"

namespace velmora::linuxhost {

/// The path of the device file, by the mount's source or else by its device number; nothing for a
/// mount without a device. Asks nothing outside of /dev and /sys, so it never waits.
std::optional<std::string> blockDeviceOf(const Mount& mount);

/// Whether the disk's medium can be taken out.
bool isRemovable(const std::string& device);
/// Bytes in a sector as the device counts them; 512 when that isn't known.
std::uint32_t logicalSectorSize(const std::string& device);

/// Who may read a device file, for a person: "members of the group disk have it".
std::string whoMayRead(const std::string& device);

}  // namespace velmora::linuxhost
