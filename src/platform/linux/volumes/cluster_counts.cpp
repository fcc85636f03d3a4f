#include "platform/linux/volumes/cluster_counts.h"

#include <limits>

namespace velmora::linuxhost {

namespace {

constexpr std::uint64_t mostCounted = std::numeric_limits<std::uint32_t>::max();

std::uint64_t sectorIn(std::uint64_t block, std::uint32_t sectorSize) {
    constexpr std::uint64_t usual = 512;
    if (sectorSize != 0 && block % sectorSize == 0) return sectorSize;
    return block % usual == 0 ? usual : block;
}

std::uint32_t counted(std::uint64_t number) {
    return static_cast<std::uint32_t>(number < mostCounted ? number : mostCounted);
}

}  // namespace

DiskFreeSpace clustersOf(const FilesystemReading& reading, std::uint32_t sectorSize) {
    if (reading.fragmentSize == 0) return {};
    const std::uint64_t sector = sectorIn(reading.fragmentSize, sectorSize);
    std::uint64_t perCluster = reading.fragmentSize / sector;
    std::uint64_t free = reading.availableBlocks;
    std::uint64_t total = reading.blocks;
    while (free > mostCounted || total > mostCounted) {
        perCluster *= 2;
        free /= 2;
        total /= 2;
    }
    return {.sectorsPerCluster = counted(perCluster),
            .bytesPerSector = counted(sector),
            .numberOfFreeClusters = counted(free),
            .totalNumberOfClusters = counted(total)};
}

}  // namespace velmora::linuxhost
