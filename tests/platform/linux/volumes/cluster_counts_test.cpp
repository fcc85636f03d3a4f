#include "platform/linux/volumes/cluster_counts.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

DiskFreeSpace counted(std::uint64_t block, std::uint64_t total, std::uint64_t free,
                      std::uint32_t sector) {
    return clustersOf({.fragmentSize = block, .blocks = total, .availableBlocks = free}, sector);
}

void expectSpace(const DiskFreeSpace& space, std::uint32_t sectors, std::uint32_t bytes,
                 std::uint32_t free, std::uint32_t total) {
    EXPECT_EQ(space.sectorsPerCluster, sectors);
    EXPECT_EQ(space.bytesPerSector, bytes);
    EXPECT_EQ(space.numberOfFreeClusters, free);
    EXPECT_EQ(space.totalNumberOfClusters, total);
}

TEST(ClusterCounts, AClusterIsABlockOfTheFileSystem) {
    expectSpace(counted(4096, 1000, 250, 512), 8, 512, 250, 1000);
    expectSpace(counted(4096, 1000, 0, 4096), 1, 4096, 0, 1000);
    expectSpace(counted(1024, 7, 7, 0), 2, 512, 7, 7);
}

TEST(ClusterCounts, ABlockIsAlwaysAWholeNumberOfSectors) {
    expectSpace(counted(1024, 10, 5, 4096), 2, 512, 5, 10);
    expectSpace(counted(1000, 10, 5, 512), 1, 1000, 5, 10);
    expectSpace(counted(1, 10, 5, 512), 1, 1, 5, 10);
}

TEST(ClusterCounts, CountsThatDoNotFitMakeLargerClusters) {
    constexpr std::uint64_t most = 0xFFFFFFFF;
    expectSpace(counted(512, most, most, 512), 1, 512, 0xFFFFFFFF, 0xFFFFFFFF);
    expectSpace(counted(512, most + 1, 6, 512), 2, 512, 3, 0x80000000);
    // 2^36 blocks of 4096 bytes are 256 TB: 2^31 clusters of 32 blocks.
    expectSpace(counted(4096, std::uint64_t{1} << 36, std::uint64_t{1} << 20, 512), 256, 512, 32768,
                0x80000000);
}

TEST(ClusterCounts, WithoutABlockSizeNothingIsCounted) {
    expectSpace(counted(0, 10, 10, 512), 0, 0, 0, 0);
}

}  // namespace
}  // namespace velmora::linuxhost
