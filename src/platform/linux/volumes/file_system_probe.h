// What file system lies on a device, by its first sectors.
#pragma once

#include "platform/linux/volumes/device_messages.h"

namespace velmora::linuxhost {

/// Reads the names from an open device. 0 or the errno; without libblkid ENOSYS. It allocates
/// memory, which the C library allows in a forked child.
int probeFileSystem(int device, FileSystemNames& names);

}  // namespace velmora::linuxhost
