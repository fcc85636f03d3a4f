// Clusters of volumes with more of them than the system's older call can say.
#pragma once

#include <cstdint>

#include "platform/raw_volumes.h"

namespace velmora::windows {

struct SpaceInBytes {
    std::uint64_t free = 0;
    std::uint64_t total = 0;
};

/// The system's count of clusters, or, where it makes less than these bytes, a count of them all:
/// in clusters of as many sectors as it takes for both numbers to fit. Sizes of 0 stay as they
/// are.
DiskFreeSpace allClusters(const DiskFreeSpace& reported, const SpaceInBytes& bytes);

}  // namespace velmora::windows
