// Reading volumes: a file system on a loop device, with marked bytes where it keeps none.
#include <signal.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

#include "platform/linux/support/child_process.h"
#include "platform/linux/support/mounting.h"
#include "platform/linux/system/left_children.h"
#include "platform/linux/volumes/raw_volumes_rig.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr std::uint32_t sector = 512;
constexpr std::uint64_t imageSize = 1 << 20;

class ReadVolume : public testing::Test {
  protected:
    void SetUp() override {
        SKIP_FOR(whyNoLoopDisk("mkfs.ext4 losetup"));
        disk_ = std::make_unique<LoopDisk>("mkfs.ext4 -q -F", "1M");
        ASSERT_NE(disk_->device(), "");
        mark(0);
        mark(imageSize - markSize);
        // The system writes nothing to it.
        ASSERT_TRUE(disk_->mount("mount -o ro,noload"));
        rig_ = std::make_unique<VolumesRig>();
        drive_ = rig_->driveAt(disk_->path());
        ASSERT_NE(drive_, "");
        bytes_ = contentsOf(disk_->image());
        ASSERT_EQ(bytes_.size(), imageSize);
    }

    // Before the boot block's end and in the last block lies nothing of the file system.
    static constexpr std::uint64_t markSize = 1024;
    void mark(std::uint64_t place) {
        std::fstream image(disk_->image(), std::ios::binary | std::ios::in | std::ios::out);
        image.seekp(static_cast<std::streamoff>(place));
        for (std::uint64_t i = 0; i < markSize; ++i)
            image.put(static_cast<char>(i * 7 + i / 256 + place / 4096));
    }

    std::unique_ptr<LoopDisk> disk_;
    std::unique_ptr<VolumesRig> rig_;
    std::string drive_;
    std::string bytes_;
};

TEST_F(ReadVolume, GivesTheBytesOfTheDeviceOneAfterTheOther) {
    const VolumeHandle volume = rig_->open(drive_);
    ASSERT_EQ(volume, 1);
    EXPECT_EQ(rig_->raw.failure(), "");
    EXPECT_EQ(rig_->read(volume, sector), bytes_.substr(0, sector));
    EXPECT_EQ(rig_->read(volume, 3), bytes_.substr(sector, 3));
    EXPECT_EQ(rig_->read(volume, 100000), bytes_.substr(sector + 3, 100000));
    EXPECT_EQ(bytes_[1], 7) << "bytes are marked";
    EXPECT_EQ(bytes_.substr(1080, 2), "\x53\xEF") << "the file system is there";
}

TEST_F(ReadVolume, TakesTheDriveInSmallLettersToo) {
    EXPECT_EQ(rig_->open({static_cast<char>(drive_[0] - 'A' + 'a'), ':'}), 1);
}

TEST_F(ReadVolume, AnyByteCanBeTheFirst) {
    const VolumeHandle volume = rig_->open(drive_);
    EXPECT_EQ(rig_->raw.SetFilePointer(volume, 1, 0, raw_volume::fromStart), 1u);
    EXPECT_EQ(rig_->read(volume, sector), bytes_.substr(1, sector));
    EXPECT_EQ(rig_->raw.SetFilePointer(volume, 0, 0, raw_volume::fromStart), 0u);
    EXPECT_EQ(rig_->read(volume, sector), bytes_.substr(0, sector));
}

TEST_F(ReadVolume, FewerBytesComeAtTheEndAndThenNone) {
    const VolumeHandle volume = rig_->open(drive_);
    rig_->raw.SetFilePointer(volume, imageSize - 100, 0, raw_volume::fromStart);
    std::string buffer(sector, '#');
    std::uint32_t read = 0;
    EXPECT_TRUE(rig_->raw.ReadFile(volume, buffer, sector, read));
    EXPECT_EQ(read, 100u);
    EXPECT_EQ(buffer, bytes_.substr(imageSize - 100) + std::string(sector - 100, '#'));
    EXPECT_TRUE(rig_->raw.ReadFile(volume, buffer, sector, read));
    EXPECT_EQ(read, 0u);
    EXPECT_EQ(rig_->read(volume, 1), "");
}

TEST_F(ReadVolume, NoMoreComesThanTheBufferHolds) {
    const VolumeHandle volume = rig_->open(drive_);
    std::string buffer(10, '#');
    std::uint32_t read = 0;
    EXPECT_TRUE(rig_->raw.ReadFile(volume, buffer, sector, read));
    EXPECT_EQ(read, 10u);
    EXPECT_EQ(buffer, bytes_.substr(0, 10));
    EXPECT_EQ(rig_->read(volume, 10), bytes_.substr(10, 10));
}

TEST_F(ReadVolume, HandlesCountUpAndAClosedOneIsNoneAnyMore) {
    const VolumeHandle first = rig_->open(drive_);
    const VolumeHandle second = rig_->open(drive_);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
    rig_->read(second, 5);
    EXPECT_EQ(rig_->read(first, 4), bytes_.substr(0, 4)) << "each has a position of its own";
    EXPECT_TRUE(rig_->raw.CloseHandle(first));
    EXPECT_FALSE(rig_->raw.CloseHandle(first));
    EXPECT_EQ(rig_->read(first, 4), "failed");
    EXPECT_EQ(rig_->raw.SetFilePointer(first, 0, 0, raw_volume::fromStart), 0xFFFFFFFFu);
    EXPECT_EQ(rig_->open(drive_), 3);
}

TEST_F(ReadVolume, PositionsAreCountedFromTheStartOnly) {
    const VolumeHandle volume = rig_->open(drive_);
    EXPECT_EQ(rig_->raw.SetFilePointer(volume, 7, 0, 1), 0xFFFFFFFFu);
    EXPECT_EQ(rig_->raw.SetFilePointer(volume, 7, -1, 0), 0xFFFFFFFFu);
    EXPECT_EQ(rig_->read(volume, 5), bytes_.substr(0, 5));
}

TEST_F(ReadVolume, NothingButReadingIsGranted) {
    for (const std::uint32_t access : {0u, 0x40000000u, 0xC0000000u, 0x10000000u}) {
        EXPECT_EQ(rig_->raw.CreateFileA(R"(\\.\)" + drive_, access, 3, 3), raw_volume::invalid);
        EXPECT_EQ(rig_->raw.failure(), "a volume is opened for reading only");
    }
}

TEST_F(ReadVolume, OnlyDrivePathsOfDevicesAreVolumes) {
    for (const std::string& path : {drive_, drive_ + '\\', R"(\\.\)" + drive_ + '\\',
                                    std::string(R"(\\.\)"), std::string(R"(\\.\é:)")}) {
        EXPECT_EQ(rig_->raw.CreateFileA(path, raw_volume::genericRead, 3, 3), raw_volume::invalid);
        EXPECT_EQ(rig_->raw.failure(), "no drive " + path);
    }
    EXPECT_EQ(rig_->open("B:"), raw_volume::invalid);
    EXPECT_EQ(rig_->raw.failure(), "no drive B:");
    EXPECT_EQ(rig_->open(drive_), 1) << "a failing open takes no handle";
    EXPECT_EQ(rig_->raw.failure(), "");
}

TEST_F(ReadVolume, AnOpenOneOutlastsItsMount) {
    const VolumeHandle volume = rig_->open(drive_);
    disk_->unmount();
    EXPECT_EQ(rig_->read(volume, 8), bytes_.substr(0, 8));
    EXPECT_EQ(rig_->open(drive_), raw_volume::invalid);
    EXPECT_EQ(rig_->raw.failure(), "no drive " + drive_);
}

TEST_F(ReadVolume, AThousandLeaveNoProcessAndNoDescriptorOpen) {
    const auto descriptors = [] {
        const std::filesystem::directory_iterator open("/proc/self/fd");
        return std::distance(begin(open), end(open));
    };
    const auto before = descriptors();
    std::vector<pid_t> processes;
    for (int i = 0; i < 1000; ++i) {
        const VolumeHandle volume = rig_->open(drive_);
        ASSERT_EQ(volume, i + 1);
        ASSERT_EQ(rig_->read(volume, sector), bytes_.substr(0, sector));
        for (const pid_t process : rig_->raw.processes()) processes.push_back(process);
        ASSERT_TRUE(rig_->raw.CloseHandle(volume));
    }
    EXPECT_EQ(processes.size(), 1000u);
    EXPECT_EQ(descriptors(), before);
    EXPECT_TRUE(waitUntil([&] {
        reapLeftChildren();
        return std::none_of(processes.begin(), processes.end(),
                            [](pid_t process) { return kill(process, 0) == 0; });
    }));
}

TEST_F(ReadVolume, OneThatDoesNotAnswerCostsTheDeadlineOnce) {
    VolumesRig rig(1s);
    const VolumeHandle volume = rig.open(drive_);
    ASSERT_EQ(volume, 1);
    const pid_t process = rig.raw.processes().at(0);
    kill(process, SIGSTOP);
    auto start = steady_clock::now();
    EXPECT_EQ(rig.read(volume, sector), "failed");
    EXPECT_GE(steady_clock::now() - start, 990ms);
    EXPECT_LT(steady_clock::now() - start, 10s);
    EXPECT_EQ(rig.raw.failure(), disk_->device() + " doesn't answer");
    start = steady_clock::now();
    EXPECT_EQ(rig.read(volume, sector), "failed");
    EXPECT_LT(steady_clock::now() - start, 900ms);
    EXPECT_TRUE(waitUntil([&] {
        reapLeftChildren();
        return kill(process, 0) != 0;
    })) << "its process is ended";
    EXPECT_EQ(rig.read(rig.open(drive_), sector), bytes_.substr(0, sector));
}

TEST_F(ReadVolume, OneWhoseProcessDiedStaysClosed) {
    const VolumeHandle volume = rig_->open(drive_);
    const pid_t process = rig_->raw.processes().at(0);
    kill(process, SIGKILL);
    ASSERT_TRUE(waitUntil([&] { return rig_->read(volume, sector) == "failed"; }));
    EXPECT_EQ(rig_->read(volume, sector), "failed");
    EXPECT_TRUE(rig_->raw.CloseHandle(volume));
}

// What opening a volume says to a user without rights.
std::string failureForNobody(const std::string& mountPoint) {
    const TestFolder results;
    giveToNobody(results.path());
    chmod(results.path().c_str(), 0777);
    asNobody([&] {
        VolumesRig rig;
        const VolumeHandle volume = rig.open(rig.driveAt(mountPoint));
        std::ofstream(results / "failure") << rig.raw.failure();
        return volume == raw_volume::invalid ? 0 : 1;
    });
    return contentsOf(results / "failure");
}

TEST_F(ReadVolume, WithoutTheRightToReadItSaysWhoHasIt) {
    const std::string& device = disk_->device();
    struct stat before {};
    ASSERT_EQ(stat(device.c_str(), &before), 0);
    chmod(device.c_str(), 0600);
    EXPECT_EQ(failureForNobody(disk_->path()),
              "the right to read " + device + " is missing (only the administrator has it)");
    ASSERT_EQ(chown(device.c_str(), 0, 6), 0);
    chmod(device.c_str(), 0660);
    EXPECT_EQ(failureForNobody(disk_->path()),
              "the right to read " + device + " is missing (members of the group disk have it)");
    EXPECT_EQ(chown(device.c_str(), before.st_uid, before.st_gid), 0);
    chmod(device.c_str(), before.st_mode & 07777);
}

TEST(ReadVolumeFar, PositionsBeyondFourGigabytesHaveAHighHalf) {
    SKIP_FOR(whyNoLoopDisk("mkfs.fat fusefat losetup dd"));
    LoopDisk disk("mkfs.fat -F 32 -s 64", "5G");
    // At byte 4 GiB + 5.
    ASSERT_TRUE(
        runQuietly("printf far | dd conv=notrunc bs=1 seek=4294967301 of=" + disk.device()));
    ASSERT_TRUE(disk.mount(fatMounter(disk)));
    VolumesRig rig;
    const VolumeHandle volume = rig.open(rig.driveAt(disk.path()));
    EXPECT_EQ(rig.raw.SetFilePointer(volume, 5, 1, raw_volume::fromStart), 5u);
    EXPECT_EQ(rig.read(volume, 3), "far");
    EXPECT_EQ(rig.raw.SetFilePointer(volume, 5, 0, raw_volume::fromStart), 5u);
    EXPECT_NE(rig.read(volume, 3), "far");
}

TEST(ReadVolumeNone, AMountWithoutADeviceSaysSo) {
    SKIP_FOR(whyNoMounting());
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=1m"));
    VolumesRig rig;
    const std::string drive = rig.driveAt(mount.path());
    EXPECT_EQ(rig.open(drive), raw_volume::invalid);
    EXPECT_EQ(rig.raw.failure(), drive + " has no block device (tmpfs)");
}

}  // namespace
}  // namespace velmora::linuxhost
