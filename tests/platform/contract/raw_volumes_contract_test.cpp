#include "machine_under_test.h"

namespace velmora::contract {
namespace {

class RawVolumesContract : public ContractTest {
  protected:
    RawVolumes& raw() { return platform().rawVolumes; }
    VolumeHandle openFor(std::uint32_t access, const std::string& drive) {
        return raw().CreateFileA(R"(\\.\)" + drive, access, raw_volume::shareReadAndWrite,
                                 raw_volume::openExisting);
    }
};
INSTANTIATE_TEST_SUITE_P(Machines, RawVolumesContract, everyMachine(), nameOf);

TEST_P(RawVolumesContract, ALetterWithoutADriveHasNoVolume) {
    const std::string letter = letterWithoutDrive();
    ASSERT_FALSE(letter.empty());
    EXPECT_EQ(openFor(raw_volume::genericRead, letter), raw_volume::invalid);
    EXPECT_EQ(raw().GetDriveTypeA(letter + '\\'), 1u);
    std::string label(16, '#');
    std::string name(16, '#');
    EXPECT_FALSE(raw().GetVolumeInformationA(letter + '\\', label, name));
    EXPECT_EQ(label + name, std::string(32, '#'));
    DiskFreeSpace space{1, 2, 3, 4};
    EXPECT_FALSE(raw().GetDiskFreeSpaceA(letter + '\\', space));
    EXPECT_EQ(space.sectorsPerCluster, 1u);
    EXPECT_EQ(space.totalNumberOfClusters, 4u);
}

TEST_P(RawVolumesContract, NoVolumeIsOpenedForWriting) {
    for (const std::uint32_t access : {0x40000000u, 0xC0000000u, 0x10000000u})
        EXPECT_EQ(openFor(access, "C:"), raw_volume::invalid) << access;
}

TEST_P(RawVolumesContract, WhatIsNoHandleIsRefused) {
    for (const VolumeHandle none : {raw_volume::invalid, VolumeHandle{4711}}) {
        std::string buffer(512, '#');
        std::uint32_t read = 0;
        EXPECT_FALSE(raw().ReadFile(none, buffer, 512, read));
        EXPECT_EQ(buffer, std::string(512, '#'));
        EXPECT_EQ(raw().SetFilePointer(none, 0, 0, raw_volume::fromStart), 0xFFFFFFFFu);
        EXPECT_FALSE(raw().CloseHandle(none));
    }
}

TEST_P(RawVolumesContract, TheSystemDriveIsThereByLetterAndByRoot) {
    const std::uint32_t kind = raw().GetDriveTypeA("C:\\");
    EXPECT_NE(kind, 1u);
    EXPECT_LE(kind, 6u);
    EXPECT_EQ(raw().GetDriveTypeA("C:"), kind);
}

TEST_P(RawVolumesContract, TheNameOfTheSystemDrivesFileSystemIsClosedByANul) {
    std::string label(16, '#');
    std::string name(16, '#');
    ASSERT_TRUE(raw().GetVolumeInformationA("C:\\", label, name));
    EXPECT_EQ(label.size(), 16u);
    EXPECT_EQ(name.size(), 16u);
    EXPECT_NE(label.find('\0'), std::string::npos);
    EXPECT_NE(name.find('\0'), std::string::npos);
    EXPECT_GT(name.find('\0'), 0u);
}

TEST_P(RawVolumesContract, ClustersMakeTheSizeOfTheDrive) {
    DiskFreeSpace space;
    ASSERT_TRUE(raw().GetDiskFreeSpaceA("C:\\", space));
    const double cluster = static_cast<double>(space.sectorsPerCluster) * space.bytesPerSector;
    const double total = fso().GetDrive("C:")->TotalSize();
    EXPECT_GT(cluster, 0);
    EXPECT_LE(cluster * space.totalNumberOfClusters, total);
    EXPECT_GT(cluster * (space.totalNumberOfClusters + 1.0), total);
    EXPECT_LE(space.numberOfFreeClusters, space.totalNumberOfClusters);
}

}  // namespace
}  // namespace velmora::contract
