// The space of a file system in sectors and clusters.
#pragma once

#include <cstdint>

#include "platform/linux/drives/filesystem_reading.h"
#include "platform/raw_volumes.h"

namespace velmora::linuxhost {

/// Clusters are the blocks of the file system, of a whole number of sectors of that size; when the
/// block has no whole number of them, of 512 bytes, or the block itself is the sector. Where a
/// count doesn't fit its field, clusters are made larger by twos until both do.
DiskFreeSpace clustersOf(const FilesystemReading& reading, std::uint32_t sectorSize);

}  // namespace velmora::linuxhost
