// What real file systems on loop devices say of themselves.
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <memory>

#include "platform/linux/support/child_process.h"
#include "platform/linux/support/mounting.h"
#include "platform/linux/volumes/raw_volumes_rig.h"

namespace velmora::linuxhost {
namespace {

struct MadeVolume {
    const char* test;
    const char* programs;  // that make and mount it
    const char* maker;
    const char* size;
    const char* mounter;  // empty for the FUSE program of FAT
    const char* label;
    const char* name;
};

class VolumeInformation : public testing::TestWithParam<MadeVolume> {};

INSTANTIATE_TEST_SUITE_P(
    FileSystems, VolumeInformation,
    testing::Values(MadeVolume{"Fat12", "mkfs.fat fusefat", "mkfs.fat -F 12 -n SMALL", "2M", "",
                               "SMALL", "FAT12"},
                    MadeVolume{"Fat16", "mkfs.fat fusefat", "mkfs.fat -F 16 -n MIDDLE", "16M", "",
                               "MIDDLE", "FAT16"},
                    MadeVolume{"Fat32", "mkfs.fat fusefat", "mkfs.fat -F 32 -n ELEVENCHARS", "40M",
                               "", "ELEVENCHARS", "FAT32"},
                    MadeVolume{"Ntfs", "mkntfs ntfs-3g", "mkntfs -F -Q -L 'Two Words'", "8M",
                               "ntfs-3g", "Two Words", "NTFS"},
                    MadeVolume{"Exfat", "mkfs.exfat mount.exfat-fuse", "mkfs.exfat -L EXLABEL",
                               "8M", "mount.exfat-fuse", "EXLABEL", "EXFAT"},
                    // Its sixteenth character has no room in front of the NUL.
                    MadeVolume{"Ext4", "mkfs.ext4 mount", "mkfs.ext4 -q -F -L sixteen-letters!",
                               "8M", "mount", "sixteen-letters", "EXT4"},
                    MadeVolume{"WithoutALabel", "mkfs.ext4 mount", "mkfs.ext4 -q -F", "8M", "mount",
                               "", "EXT4"}),
    [](const auto& made) { return std::string(made.param.test); });

TEST_P(VolumeInformation, IsTheLabelAndTheNameOfTheFileSystem) {
    const MadeVolume& made = GetParam();
    SKIP_FOR(whyNoLoopDisk(std::string("losetup ") + made.programs));
    LoopDisk disk(made.maker, made.size);
    ASSERT_NE(disk.device(), "");
    ASSERT_TRUE(disk.mount(*made.mounter != 0 ? made.mounter : fatMounter(disk)));
    VolumesRig rig;
    const std::string drive = rig.driveAt(disk.path());
    std::string label(16, '#');
    std::string name(16, '#');
    ASSERT_TRUE(rig.raw.GetVolumeInformationA(drive + '\\', label, name));
    EXPECT_EQ(label.size(), 16u);
    EXPECT_EQ(name.size(), 16u);
    const std::string expectedLabel = made.label + std::string(1, '\0');
    const std::string expectedName = made.name + std::string(1, '\0');
    EXPECT_EQ(label, expectedLabel + std::string(16 - expectedLabel.size(), '#'));
    EXPECT_EQ(name, expectedName + std::string(16 - expectedName.size(), '#'));
    EXPECT_EQ(rig.raw.GetDriveTypeA(drive), 3u);
}

class ExtVolume : public testing::Test {
  protected:
    void SetUp() override {
        SKIP_FOR(whyNoLoopDisk("mkfs.ext4 losetup"));
        disk_ = std::make_unique<LoopDisk>("mkfs.ext4 -q -F -b 1024 -L data", "8M");
    }
    void mount() {
        ASSERT_TRUE(disk_->mount("mount"));
        rig_ = std::make_unique<VolumesRig>();
        drive_ = rig_->driveAt(disk_->path());
        ASSERT_NE(drive_, "");
    }
    void expectSpaceOfSystem(const DiskFreeSpace& space) {
        struct statvfs system {};
        ASSERT_EQ(statvfs(disk_->path().c_str(), &system), 0);
        const std::uint64_t cluster = std::uint64_t{space.sectorsPerCluster} * space.bytesPerSector;
        EXPECT_EQ(cluster * space.numberOfFreeClusters, system.f_bavail * system.f_frsize);
        EXPECT_EQ(cluster * space.totalNumberOfClusters, system.f_blocks * system.f_frsize);
    }

    std::unique_ptr<LoopDisk> disk_;
    std::unique_ptr<VolumesRig> rig_;
    std::string drive_;
};

TEST_F(ExtVolume, SpaceIsCountedInClustersOfTheFileSystem) {
    mount();
    DiskFreeSpace space;
    ASSERT_TRUE(rig_->raw.GetDiskFreeSpaceA(drive_, space));
    EXPECT_EQ(space.bytesPerSector, 512u);
    EXPECT_EQ(space.sectorsPerCluster, 2u);
    expectSpaceOfSystem(space);
    DiskFreeSpace ofRoot;
    ASSERT_TRUE(rig_->raw.GetDiskFreeSpaceA(drive_ + '\\', ofRoot));
    EXPECT_EQ(ofRoot.totalNumberOfClusters, space.totalNumberOfClusters);
}

TEST_F(ExtVolume, SectorsAreThoseOfTheDevice) {
    disk_ = std::make_unique<LoopDisk>("mkfs.ext4 -q -F -b 4096", "8M");
    if (!disk_->attach("--sector-size 4096 " + disk_->image()))
        GTEST_SKIP() << "loop devices have sectors of 512 bytes only";
    mount();
    DiskFreeSpace space;
    ASSERT_TRUE(rig_->raw.GetDiskFreeSpaceA(drive_, space));
    EXPECT_EQ(space.bytesPerSector, 4096u);
    EXPECT_EQ(space.sectorsPerCluster, 1u);
    expectSpaceOfSystem(space);
}

TEST_F(ExtVolume, WithoutTheRightToReadTheNameIsThatOfTheMountTable) {
    mount();
    chmod(disk_->device().c_str(), 0600);
    const int result = asNobody([&] {
        VolumesRig rig;
        std::string label(16, '#');
        std::string name(16, '#');
        if (!rig.raw.GetVolumeInformationA(drive_ + '\\', label, name)) return 1;
        if (name != std::string("EXT4\0###########", 16)) return 2;
        return label == '\0' + std::string(15, '#') ? 0 : 3;
    });
    EXPECT_EQ(result, 0);
}

TEST_F(ExtVolume, BuffersStayWhenTheNameHasNoRoomOrTheDriveIsMissing) {
    mount();
    std::string label(16, '#');
    std::string name(4, '#');
    EXPECT_FALSE(rig_->raw.GetVolumeInformationA(drive_ + '\\', label, name));
    EXPECT_FALSE(rig_->raw.GetVolumeInformationA("B:\\", label, name));
    EXPECT_EQ(label, std::string(16, '#'));
    EXPECT_EQ(name, "####");
    name += '#';
    EXPECT_TRUE(rig_->raw.GetVolumeInformationA(drive_ + '\\', label, name));
    EXPECT_EQ(name, std::string("EXT4\0", 5));
}

TEST(VolumeKinds, AreToldByRootOrLetter) {
    SKIP_FOR(whyNoMounting());
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=1m"));
    VolumesRig rig;
    const std::string drive = rig.driveAt(mount.path());
    EXPECT_EQ(rig.raw.GetDriveTypeA(drive), 6u);
    EXPECT_EQ(rig.raw.GetDriveTypeA(drive + '\\'), 6u);
    EXPECT_EQ(rig.raw.GetDriveTypeA({static_cast<char>(drive[0] - 'A' + 'a'), ':'}), 6u);
    for (const std::string& none : {std::string("B:"), drive + "\\x", drive + '/', std::string(),
                                    std::string("\\\\host\\share")})
        EXPECT_EQ(rig.raw.GetDriveTypeA(none), 1u) << none;
    DiskFreeSpace space{.sectorsPerCluster = 7};
    EXPECT_FALSE(rig.raw.GetDiskFreeSpaceA("B:", space));
    EXPECT_EQ(space.sectorsPerCluster, 7u);
}

}  // namespace
}  // namespace velmora::linuxhost
