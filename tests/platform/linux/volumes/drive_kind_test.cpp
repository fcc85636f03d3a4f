#include "platform/linux/volumes/drive_kind.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

std::uint32_t kindFor(const char* type, const char* source = "none") {
    Mount mount;
    mount.device = "0:99";
    mount.type = type;
    mount.source = source;
    return driveKindOf(mount);
}

TEST(DriveKind, WhatLiesInMemoryIsARamDisk) {
    for (const char* type : {"tmpfs", "ramfs", "rootfs"}) EXPECT_EQ(kindFor(type), 6u) << type;
}

TEST(DriveKind, WhatComesFromAnotherMachineIsRemote) {
    for (const char* type : {"nfs", "nfs4", "cifs", "smb3", "9p", "fuse.sshfs", "fuse.rclone"})
        EXPECT_EQ(kindFor(type, "host:/data"), 4u) << type;
}

TEST(DriveKind, DiscsAreOptical) {
    EXPECT_EQ(kindFor("iso9660", "/dev/loop99"), 5u);
    EXPECT_EQ(kindFor("udf"), 5u);
    EXPECT_EQ(kindFor("ext4", "/dev/sr0"), 5u);
}

TEST(DriveKind, LayersAndPoolsLieOnFixedDisks) {
    for (const char* type : {"overlay", "zfs", "btrfs"}) EXPECT_EQ(kindFor(type), 3u) << type;
}

TEST(DriveKind, WhatCanNotBeToldIsUnknown) {
    EXPECT_EQ(kindFor("fuse.something"), 0u);
    EXPECT_EQ(kindFor("fuse", "/dev/fuse"), 0u);
    EXPECT_EQ(kindFor(""), 0u);
}

}  // namespace
}  // namespace velmora::linuxhost
