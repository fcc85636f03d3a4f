// The attributes of a drive: its kind and what its file system is made of.
#pragma once

#include <string>
#include <vector>

#include "base/regional.h"
#include "platform/raw_volumes.h"

namespace velmora {

/// The name of a kind of drive by its number; null beyond 6.
const char* driveTypeName(std::uint32_t type);

/// Clusters as MB with digit groups, without a unit.
std::string clustersInMB(const DiskFreeSpace& space, std::uint32_t clusters,
                         const Regional& regional);

/// The six values that the numbers make, in the order in which they are shown.
std::vector<std::string> spaceTexts(const DiskFreeSpace& space, const Regional& regional);

}  // namespace velmora
