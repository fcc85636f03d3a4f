#include "platform/linux/drives/drive_mounts.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

using Points = std::vector<std::string>;

const std::string rootLine = "1 0 8:1 / / rw - ext4 /dev/sda1 rw\n";

bool everythingIsAFolder(const std::string&) {
    return true;
}

std::vector<DriveMount> drivesOf(const std::string& table) {
    return driveMounts(parseMountTable(table), everythingIsAFolder);
}

Points pointsOf(const std::vector<DriveMount>& drives) {
    Points points;
    for (const DriveMount& drive : drives) points.push_back(drive.mount.mountPoint);
    return points;
}

TEST(DriveMounts, BlockFuseAndNetworkFilesystemsAreDrivesInMountOrder) {
    const auto drives = drivesOf("2 1 8:2 / /home rw - ext4 /dev/sda2 rw\n" + rootLine +
                                 "3 1 0:50 / /mnt/ssh rw - fuse.sshfs me@host:/ rw\n"
                                 "4 1 8:17 / /media/stick rw - vfat /dev/sdb1 rw\n"
                                 "5 1 0:51 / /mnt/win rw - cifs //host/share rw\n"
                                 "6 1 8:33 / /mnt/ntfs rw - fuseblk /dev/sdc1 rw\n"
                                 "7 1 0:52 / /mnt/nfs rw - nfs4 host:/srv rw\n"
                                 "8 1 0:53 / /mnt/pool rw - btrfs /dev/sdd rw\n"
                                 "9 1 0:54 / /mnt/zfs rw - zfs tank/data rw\n"
                                 "10 1 0:55 / /mnt/own rw - fuse something rw\n");
    EXPECT_EQ(pointsOf(drives),
              (Points{"/", "/home", "/mnt/ssh", "/media/stick", "/mnt/win", "/mnt/ntfs", "/mnt/nfs",
                      "/mnt/pool", "/mnt/zfs", "/mnt/own"}));
}

TEST(DriveMounts, TheseOfFuseLeadIntoTheNetwork) {
    for (const char* type : {"sshfs", "glusterfs", "rclone", "davfs2", "s3fs", "gcsfuse",
                             "curlftpfs", "httpfs", "ceph-fuse", "smbnetfs"}) {
        EXPECT_TRUE(isNetworkType(std::string("fuse.") + type)) << type;
    }
    EXPECT_FALSE(isNetworkType("fuse"));
    EXPECT_FALSE(isNetworkType("fuseblk"));
}

TEST(DriveMounts, ViewsOfTheKernelAreLeftOut) {
    const auto drives =
        drivesOf(rootLine +
                 "2 1 0:21 / /proc rw - proc proc rw\n"
                 "3 1 0:22 / /sys rw - sysfs sysfs rw\n"
                 "4 1 0:6 / /dev rw - devtmpfs devtmpfs rw,size=1000k\n"
                 "5 4 0:24 / /dev/pts rw - devpts devpts rw\n"
                 "6 3 0:28 / /sys/fs/cgroup rw - cgroup2 cgroup2 rw\n"
                 "7 2 0:29 / /proc/sys/fs/binfmt_misc rw - autofs systemd-1 rw\n"
                 "8 1 0:30 / /mnt/auto rw - autofs /etc/auto.misc rw\n"
                 "9 3 0:31 / /sys/fs/fuse/connections rw - fusectl fusectl rw\n"
                 "10 1 0:32 / /run/user/1000/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw\n"
                 "11 1 0:33 / /run/user/1000/doc rw - fuse.portal portal rw\n"
                 "12 1 0:34 / /merged rw - overlay overlay rw\n");
    EXPECT_EQ(pointsOf(drives), Points{"/"});
}

TEST(DriveMounts, ViewsByFuseAreLeftOutByTheirNames) {
    for (const char* type : {"gvfsd-fuse", "portal", "lxcfs", "snapfuse", "squashfuse",
                             "squashfuse_ll", "vmware-vmblock", "overlayfs"}) {
        EXPECT_EQ(pointsOf(drivesOf(rootLine + "2 1 0:32 / /mnt rw - fuse." + type + " x rw\n")),
                  Points{"/"})
            << type;
    }
    EXPECT_EQ(pointsOf(drivesOf(rootLine + "2 1 0:32 / /mnt rw - fuse.other x rw\n")),
              (Points{"/", "/mnt"}));
}

TEST(DriveMounts, TheRootIsADriveOfAnyKind) {
    EXPECT_EQ(pointsOf(drivesOf("1 0 0:40 / / rw - overlay overlay rw\n")), Points{"/"});
    EXPECT_EQ(pointsOf(drivesOf("1 0 7:0 / / ro - squashfs /dev/loop0 ro\n")), Points{"/"});
    EXPECT_EQ(pointsOf(drivesOf("")), Points{"/"});
}

TEST(DriveMounts, PackageImagesAreLeftOut) {
    EXPECT_EQ(pointsOf(drivesOf(rootLine + "2 1 7:1 / /snap/core/1 ro - squashfs /dev/loop1 ro\n")),
              Points{"/"});
}

TEST(DriveMounts, ATmpfsIsADriveWhenItIsSizedAndWritableAndNotTheKernels) {
    const auto drives = drivesOf(rootLine +
                                 "2 1 0:40 / /tmp rw,nosuid - tmpfs tmpfs rw,size=4096k\n"
                                 "3 1 0:41 / /nolimit rw - tmpfs tmpfs rw\n"
                                 "4 1 0:42 / /zero rw - tmpfs tmpfs rw,size=0k\n"
                                 "5 1 0:43 / /readonly ro - tmpfs tmpfs rw,size=4k\n"
                                 "6 1 0:44 / /readonly2 rw - tmpfs tmpfs ro,size=4k\n"
                                 "7 1 0:45 / /run rw - tmpfs tmpfs rw,size=4k\n"
                                 "8 7 0:46 / /run/user/1000 rw - tmpfs tmpfs rw,size=4k\n"
                                 "9 1 0:47 / /dev/shm rw - tmpfs tmpfs rw,size=4k\n"
                                 "10 1 0:48 / /sys/x rw - tmpfs tmpfs rw,size=4k\n"
                                 "11 1 0:49 / /proc/x rw - tmpfs tmpfs rw,size=4k\n"
                                 "12 1 0:50 / /running rw - tmpfs tmpfs rw,size=4k\n");
    EXPECT_EQ(pointsOf(drives), (Points{"/", "/tmp", "/running"}));
}

TEST(DriveMounts, ASecondMountOfADeviceIsLeftOut) {
    const auto drives = drivesOf(
        "2 3 8:2 /sub /bound rw - ext4 /dev/sda2 rw\n"
        "3 0 8:1 / / rw - ext4 /dev/sda1 rw\n"
        "4 3 8:2 / /home rw - ext4 /dev/sda2 rw\n"
        "5 3 8:1 /srv /export rw - ext4 /dev/sda1 rw\n");
    EXPECT_EQ(pointsOf(drives), (Points{"/", "/bound"}));
}

TEST(DriveMounts, AMountPointThatIsNoFolderIsLeftOut) {
    const auto isFolder = [](const std::string& path) { return path != "/etc/hosts"; };
    const auto drives =
        driveMounts(parseMountTable(rootLine + "2 1 8:2 /hosts /etc/hosts rw - ext4 /dev/sda2 rw\n"
                                               "3 1 8:2 / /home rw - ext4 /dev/sda2 rw\n"),
                    isFolder);
    EXPECT_EQ(pointsOf(drives), (Points{"/", "/home"}));
}

TEST(DriveMounts, MountPointsThatMightKeepWaitingAreNotLookedAt) {
    Points lookedAt;
    const auto isFolder = [&lookedAt](const std::string& path) {
        lookedAt.push_back(path);
        return true;
    };
    const auto drives =
        driveMounts(parseMountTable(rootLine + "2 1 0:40 / /fuse rw - fuse.x x rw\n"
                                               "3 2 8:2 / /fuse/disk rw - ext4 /dev/sda2 rw\n"
                                               "4 1 0:41 / /nfs rw - nfs host:/x rw\n"
                                               "5 1 8:3 / /disk rw - vfat /dev/sda3 rw\n"
                                               "6 5 8:4 / /disk/inner rw - ext4 /dev/sda4 rw\n"),
                    isFolder);
    EXPECT_EQ(drives.size(), 6u);
    EXPECT_EQ(lookedAt, Points{"/disk"});
}

TEST(DriveMounts, SizesAreInMemoryOnlyWhenTheWholeWayIs) {
    const auto drives = drivesOf(rootLine +
                                 "2 1 8:2 / /xfs rw - xfs /dev/sda2 rw\n"
                                 "3 2 0:40 / /xfs/tmp rw - tmpfs tmpfs rw,size=4k\n"
                                 "4 1 0:41 / /fuse rw - fuse.x x rw\n"
                                 "5 4 8:3 / /fuse/disk rw - ext4 /dev/sda3 rw\n"
                                 "6 1 8:4 / /stick rw - vfat /dev/sda4 rw\n"
                                 "7 1 0:42 / /nfs rw - nfs host:/x rw\n");
    Points inMemory;
    for (const DriveMount& drive : drives) {
        if (drive.answersFromMemory) inMemory.push_back(drive.mount.mountPoint);
    }
    EXPECT_EQ(inMemory, (Points{"/", "/xfs", "/xfs/tmp"}));
}

TEST(DriveMounts, NothingIsInMemoryBelowARootOfAnUnknownKind) {
    for (const auto& drive : drivesOf("1 0 0:9 / / rw - 9p root rw\n"
                                      "2 1 8:2 / /disk rw - ext4 /dev/sda2 rw\n"))
        EXPECT_FALSE(drive.answersFromMemory) << drive.mount.mountPoint;
}

TEST(DriveMounts, ADriveOfTheNetworkIsAShare) {
    const auto drives = drivesOf(rootLine + "2 1 0:50 / /mnt/win rw - cifs //host/share rw\n");
    ASSERT_EQ(drives.size(), 2u);
    EXPECT_EQ(drives[0].share, "");
    EXPECT_EQ(drives[1].share, "\\\\host\\share");
}

TEST(ShareOfMount, EachNetworkHasItsForm) {
    EXPECT_EQ(shareOfMount("cifs", "//host/share"), "\\\\host\\share");
    EXPECT_EQ(shareOfMount("smb3", "//host/share/"), "\\\\host\\share");
    EXPECT_EQ(shareOfMount("cifs", "//host/share/sub"), "\\\\host\\share_sub");
    EXPECT_EQ(shareOfMount("nfs", "host:/srv/data"), "\\\\host\\srv_data");
    EXPECT_EQ(shareOfMount("nfs4", "host:/srv"), "\\\\host\\srv");
    EXPECT_EQ(shareOfMount("nfs4", "[fe80::1]:/srv/x"), "\\\\[fe80::1]\\srv_x");
    EXPECT_EQ(shareOfMount("fuse.sshfs", "user@host:/p"), "\\\\host\\p");
    EXPECT_EQ(shareOfMount("fuse.sshfs", "host:docs"), "\\\\host\\docs");
}

TEST(ShareOfMount, TheTopFolderOfAHostIsAnUnderline) {
    EXPECT_EQ(shareOfMount("nfs", "host:/"), "\\\\host\\_");
    EXPECT_EQ(shareOfMount("fuse.sshfs", "user@host:"), "\\\\host\\_");
}

TEST(ShareOfMount, OtherFilesystemsAndSourcesWithoutAHostAreNoShares) {
    EXPECT_EQ(shareOfMount("ext4", "/dev/sda1"), "");
    EXPECT_EQ(shareOfMount("fuseblk", "host:/x"), "");
    EXPECT_EQ(shareOfMount("cifs", "//host"), "");
    EXPECT_EQ(shareOfMount("cifs", "share"), "");
    EXPECT_EQ(shareOfMount("nfs", ":/srv"), "");
    EXPECT_EQ(shareOfMount("nfs", "srv"), "");
    EXPECT_EQ(shareOfMount("virtiofs", "tag"), "");
}

}  // namespace
}  // namespace velmora::linuxhost
