#include "platform/linux/drives/mount_table.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

std::vector<std::string> mountPointsOf(const std::vector<Mount>& mounts) {
    std::vector<std::string> points;
    for (const Mount& mount : mounts) points.push_back(mount.mountPoint);
    return points;
}

using Points = std::vector<std::string>;

TEST(MountTable, ALineGivesTheFieldsOfItsMount) {
    const auto mounts = parseMountTable(
        "36 35 98:0 /mnt1 /mnt2 rw,noatime master:1 shared:2 - ext3 /dev/root "
        "rw,errors=continue\n");
    ASSERT_EQ(mounts.size(), 1u);
    EXPECT_EQ(mounts[0].id, 36);
    EXPECT_EQ(mounts[0].parent, 35);
    EXPECT_EQ(mounts[0].device, "98:0");
    EXPECT_EQ(mounts[0].mountPoint, "/mnt2");
    EXPECT_EQ(mounts[0].options, "rw,noatime");
    EXPECT_EQ(mounts[0].type, "ext3");
    EXPECT_EQ(mounts[0].source, "/dev/root");
    EXPECT_EQ(mounts[0].fsOptions, "rw,errors=continue");
}

TEST(MountTable, OptionalFieldsMayBeMissingAndTheSourceEmpty) {
    const auto mounts = parseMountTable("36 35 0:40 / /data rw - tmpfs  rw,size=4k");
    ASSERT_EQ(mounts.size(), 1u);
    EXPECT_EQ(mounts[0].type, "tmpfs");
    EXPECT_EQ(mounts[0].source, "");
    EXPECT_EQ(mounts[0].fsOptions, "rw,size=4k");
}

TEST(MountTable, OctalEscapesAreDecodedInEveryText) {
    const auto mounts =
        parseMountTable("1 0 8:1 / /mnt/a\\040b\\011c\\012d\\134e rw - ext4 /dev/my\\040disk rw\n");
    ASSERT_EQ(mounts.size(), 1u);
    EXPECT_EQ(mounts[0].mountPoint, "/mnt/a b\tc\nd\\e");
    EXPECT_EQ(mounts[0].source, "/dev/my disk");
}

TEST(MountTable, ABackSlashWithoutThreeDigitsStaysAsItIs) {
    const auto mounts = parseMountTable("1 0 8:1 / /mnt/a\\04 rw - ext4 /dev/x\\9 rw\n");
    ASSERT_EQ(mounts.size(), 1u);
    EXPECT_EQ(mounts[0].mountPoint, "/mnt/a\\04");
    EXPECT_EQ(mounts[0].source, "/dev/x\\9");
}

TEST(MountTable, LinesThatAreNoMountsArePassedOver) {
    const auto mounts = parseMountTable(
        "\n"
        "nonsense\n"
        "1 0 8:1 / /mnt rw ext4 /dev/sda1 rw\n"
        "x 0 8:1 / /mnt rw - ext4 /dev/sda1 rw\n"
        "1 0 8:1 / mnt rw - ext4 /dev/sda1 rw\n"
        "1 0 8:1 / /mnt rw - ext4\n"
        "2 0 8:1 / /good rw - ext4 /dev/sda1 rw\n");
    EXPECT_EQ(mountPointsOf(mounts), Points{"/good"});
    EXPECT_TRUE(parseMountTable("").empty());
}

TEST(MountTable, OptionsAreFoundAsWholeWords) {
    EXPECT_TRUE(hasOption("rw,noatime,size=4k", "noatime"));
    EXPECT_TRUE(hasOption("rw,noatime,size=4k", "size"));
    EXPECT_FALSE(hasOption("rw,errors=remount-ro", "ro"));
    EXPECT_FALSE(hasOption("", "ro"));
    EXPECT_EQ(optionValue("rw,size=4k,mode=755", "size"), "4k");
    EXPECT_EQ(optionValue("rw", "size"), "");
}

TEST(ReachableMounts, OfSeveralMountsAtOnePointTheLastOneCounts) {
    const auto mounts =
        reachableMounts(parseMountTable("1 0 8:1 / / rw - ext4 /dev/sda1 rw\n"
                                        "2 1 8:2 / /mnt rw - ext4 /dev/sda2 rw\n"
                                        "3 2 8:3 / /mnt rw - xfs /dev/sda3 rw\n"));
    EXPECT_EQ(mountPointsOf(mounts), (Points{"/", "/mnt"}));
    EXPECT_EQ(mounts[1].type, "xfs");
}

TEST(ReachableMounts, OfTwoThatDoNotLieOnEachOtherTheLastOneCounts) {
    const auto mounts =
        reachableMounts(parseMountTable("1 0 8:1 / / rw - ext4 /dev/sda1 rw\n"
                                        "2 1 8:2 / /mnt rw - ext4 /dev/sda2 rw\n"
                                        "3 1 8:3 / /mnt rw - xfs /dev/sda3 rw\n"));
    EXPECT_EQ(mountPointsOf(mounts), (Points{"/", "/mnt"}));
    EXPECT_EQ(mounts[1].type, "xfs");
}

TEST(ReachableMounts, TheTopmostCountsAlsoWhenItIsListedFirst) {
    const auto mounts =
        reachableMounts(parseMountTable("1 0 8:1 / / rw - ext4 /dev/sda1 rw\n"
                                        "3 2 8:3 / /mnt rw - xfs /dev/sda3 rw\n"
                                        "2 1 8:2 / /mnt rw - ext4 /dev/sda2 rw\n"));
    EXPECT_EQ(mountPointsOf(mounts), (Points{"/", "/mnt"}));
    EXPECT_EQ(mounts[1].type, "xfs");
}

TEST(ReachableMounts, WhatLiesInACoveredMountIsOutOfReach) {
    const auto mounts =
        reachableMounts(parseMountTable("1 0 8:1 / / rw - ext4 /dev/sda1 rw\n"
                                        "2 1 8:2 / /mnt rw - ext4 /dev/sda2 rw\n"
                                        "3 2 8:3 / /mnt/inner rw - ext4 /dev/sda3 rw\n"
                                        "4 2 8:4 / /mnt rw - ext4 /dev/sda4 rw\n"));
    EXPECT_EQ(mountPointsOf(mounts), (Points{"/", "/mnt"}));
    EXPECT_EQ(mounts[1].device, "8:4");
}

TEST(ReachableMounts, AMountOnAFolderAboveCoversWhatWasMountedBelow) {
    const auto mounts =
        reachableMounts(parseMountTable("1 0 8:1 / / rw - ext4 /dev/sda1 rw\n"
                                        "2 1 8:2 / /a/b/c rw - ext4 /dev/sda2 rw\n"
                                        "3 1 8:3 / /a rw - ext4 /dev/sda3 rw\n"
                                        "4 3 8:4 / /a/x rw - ext4 /dev/sda4 rw\n"));
    EXPECT_EQ(mountPointsOf(mounts), (Points{"/", "/a", "/a/x"}));
}

TEST(ReachableMounts, AParentOutsideOfWhatIsListedIsNoObstacle) {
    const auto mounts =
        reachableMounts(parseMountTable("20 7 8:1 / / rw - ext4 /dev/sda1 rw\n"
                                        "21 9 8:2 / /mnt rw - ext4 /dev/sda2 rw\n"));
    EXPECT_EQ(mountPointsOf(mounts), (Points{"/", "/mnt"}));
}

TEST(ReachableMounts, ATableThatRunsInACircleStillEnds) {
    const auto mounts =
        reachableMounts(parseMountTable("1 1 8:1 / / rw - rootfs rootfs rw\n"
                                        "2 3 8:2 / /mnt rw - ext4 /dev/sda2 rw\n"
                                        "3 2 8:3 / /mnt rw - ext4 /dev/sda3 rw\n"));
    EXPECT_EQ(mounts[0].mountPoint, "/");
}

}  // namespace
}  // namespace velmora::linuxhost
