#include "platform/windows/volumes/cluster_counts.h"

#include <algorithm>
#include <limits>

namespace velmora::windows {

namespace {

constexpr std::uint64_t greatest = std::numeric_limits<std::uint32_t>::max();

std::uint32_t withinLimit(std::uint64_t number) {
    return static_cast<std::uint32_t>(std::min(number, greatest));
}

}  // namespace

DiskFreeSpace allClusters(const DiskFreeSpace& reported, const SpaceInBytes& bytes) {
    const std::uint64_t clusterSize =
        std::uint64_t{reported.sectorsPerCluster} * reported.bytesPerSector;
    if (clusterSize == 0) return reported;
    std::uint64_t free = bytes.free / clusterSize;
    std::uint64_t total = bytes.total / clusterSize;
    if (total <= reported.totalNumberOfClusters) return reported;
    std::uint64_t sectors = reported.sectorsPerCluster;
    while (std::max(free, total) > greatest) {
        sectors *= 2;
        free /= 2;
        total /= 2;
    }
    return {.sectorsPerCluster = withinLimit(sectors),
            .bytesPerSector = reported.bytesPerSector,
            .numberOfFreeClusters = withinLimit(free),
            .totalNumberOfClusters = withinLimit(total)};
}

}  // namespace velmora::windows
