#include "platform/windows/volumes/cluster_counts.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace velmora::windows {
namespace {

constexpr std::uint64_t tb = 1ULL << 40;

void expectCounts(const DiskFreeSpace& counts, std::uint32_t perCluster, std::uint32_t free,
                  std::uint32_t total) {
    EXPECT_EQ(counts.sectorsPerCluster, perCluster);
    EXPECT_EQ(counts.bytesPerSector, 512U);
    EXPECT_EQ(counts.numberOfFreeClusters, free);
    EXPECT_EQ(counts.totalNumberOfClusters, total);
}

TEST(ClusterCounts, OfASmallVolumeStayAsTheyAre) {
    // A last piece of a cluster isn't counted.
    const SpaceInBytes bytes{.free = 4096 * 30, .total = 4096 * 100 + 4095};
    expectCounts(allClusters({8, 512, 30, 100}, bytes), 8, 30, 100);
    // As when the system says nothing in bytes.
    expectCounts(allClusters({8, 512, 30, 100}, {}), 8, 30, 100);
}

TEST(ClusterCounts, ThatAreCappedBecomeThoseOfTheBytes) {
    // 2 GB at most, as older calls say it: 4 TB in clusters of 4096 bytes are 2^30.
    const SpaceInBytes bytes{.free = tb, .total = 4 * tb};
    expectCounts(allClusters({8, 512, 524287, 524287}, bytes), 8, 1U << 28, 1U << 30);
}

TEST(ClusterCounts, ThatDoNotFitAreCountedInLargerClusters) {
    // 2^34 clusters of 4096 bytes are 2^31 of eight times the size: the least that fits.
    const SpaceInBytes bytes{.free = 24 * tb, .total = 64 * tb};
    expectCounts(allClusters({8, 512, 0xFFFFFFFF, 0xFFFFFFFF}, bytes), 64, 3U << 28, 1U << 31);
    // The system's own numbers without their upper halves: 2^32 clusters look like none.
    const SpaceInBytes justTooMany{.free = tb, .total = 16 * tb};
    expectCounts(allClusters({8, 512, 1U << 28, 0}, justTooMany), 16, 1U << 27, 1U << 31);
}

TEST(ClusterCounts, TheGreatestNumberThatFitsIsNotHalved) {
    const SpaceInBytes bytes{.free = 0, .total = 512ULL * 0xFFFFFFFF};
    expectCounts(allClusters({1, 512, 0, 5}, bytes), 1, 0, 0xFFFFFFFF);
}

TEST(ClusterCounts, WithoutASizeStayAsTheyAre) {
    const DiskFreeSpace counts = allClusters({0, 512, 7, 9}, {.free = tb, .total = tb});
    expectCounts(counts, 0, 7, 9);
}

}  // namespace
}  // namespace velmora::windows
