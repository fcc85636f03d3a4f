// Drives as a user has them: mounted, filled, unmounted and mounted again while the program runs.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>

#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/errors.h"
#include "platform/linux/drives/volumes.h"
#include "platform/linux/support/mounting.h"

namespace velmora::linuxhost {
namespace {

class MountedDrives : public MountingTest {
  protected:
    void expectLikeDf(const std::string& drive, const std::string& mountPoint) {
        const auto reading = fso().GetDrive(drive);
        ASSERT_TRUE(reading->IsReady());
        EXPECT_EQ(reading->FreeSpace(), dfReports("avail", mountPoint));
        EXPECT_EQ(reading->TotalSize(), dfReports("size", mountPoint));
    }
    static void writeMegabyte(const std::string& path) {
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        const std::string content(1 << 20, 'x');
        ASSERT_EQ(write(file, content.data(), content.size()), 1 << 20);
        ASSERT_EQ(fsync(file), 0);
        close(file);
    }
};

TEST_F(MountedDrives, ATmpfsIsMeasuredLikeDf) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=8M"));
    const std::string drive = newDrive();
    ASSERT_FALSE(drive.empty());
    EXPECT_EQ(fso().GetDrive(drive)->TotalSize(), 8 << 20);
    expectLikeDf(drive, mount.path());
    EXPECT_TRUE(fso().DriveExists(drive));
}

TEST_F(MountedDrives, AFileTakesItsSpace) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=8M"));
    const std::string drive = newDrive();
    const double before = fso().GetDrive(drive)->FreeSpace();
    writeMegabyte(mount.path() + "/file");
    EXPECT_EQ(fso().GetDrive(drive)->FreeSpace(), before - (1 << 20));
    expectLikeDf(drive, mount.path());
}

TEST_F(MountedDrives, ADiskImageIsMeasuredLikeDf) {
    const TestFolder images;
    TestMount mount;
    if (!mount.mountNewDisk(images, 16)) GTEST_SKIP() << "no loop device or no mkfs.ext4";
    const std::string drive = newDrive();
    ASSERT_FALSE(drive.empty());
    expectLikeDf(drive, mount.path());
    const double before = fso().GetDrive(drive)->FreeSpace();
    writeMegabyte(mount.path() + "/file");
    expectLikeDf(drive, mount.path());
    EXPECT_LE(fso().GetDrive(drive)->FreeSpace(), before - (1 << 20));
}

// There are letters from C to Z. What has none isn't listed, and the others go on.
TEST_F(MountedDrives, MoreDrivesThanLettersAreNoHarm) {
    std::vector<std::unique_ptr<TestMount>> mounts;
    for (int i = 0; i < 26; ++i) {
        mounts.push_back(std::make_unique<TestMount>());
        ASSERT_TRUE(mounts.back()->mountTmpfs("size=1M"));
    }
    const std::set<std::string> drives = logicalDrives();
    EXPECT_EQ(drives.size(), 24u);
    for (const std::string& drive : drives) EXPECT_TRUE(fso().GetDrive(drive)->IsReady()) << drive;
    mounts.clear();
    EXPECT_EQ(logicalDrives(), drivesBefore_);
}

TEST_F(MountedDrives, AnUnmountedDriveIsNotReadyAndNotListedAtOnce) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=8M"));
    const std::string drive = newDrive();
    ASSERT_TRUE(fso().GetDrive(drive)->IsReady());
    mount.unmount();
    EXPECT_FALSE(fso().GetDrive(drive)->IsReady());
    EXPECT_EQ(errorOf([&] { fso().GetDrive(drive)->FreeSpace(); }), error::diskNotReady);
    EXPECT_FALSE(fso().DriveExists(drive));
    EXPECT_EQ(logicalDrives(), drivesBefore_);
    EXPECT_FALSE(fso().FolderExists(drive + '\\'));
}

TEST_F(MountedDrives, WithinOneLookTheyAreThoseOfItsStart) {
    Volumes volumes;
    TestMount mount;
    {
        const Volumes::OneLook look(volumes);
        ASSERT_TRUE(mount.mountTmpfs("size=8M"));
        EXPECT_FALSE(volumes.isMountPoint(mount.path()));
        { const Volumes::OneLook within(volumes); }
        EXPECT_FALSE(volumes.isMountPoint(mount.path()));
    }
    EXPECT_TRUE(volumes.isMountPoint(mount.path()));
    mount.unmount();
    const Volumes::OneLook next(volumes);
    EXPECT_FALSE(volumes.isMountPoint(mount.path()));
}

TEST_F(MountedDrives, ARemountGetsItsLetterBackAndANewMountAnother) {
    TestMount first;
    ASSERT_TRUE(first.mountTmpfs("size=8M"));
    const std::string drive = newDrive();
    first.unmount();
    TestMount second;
    ASSERT_TRUE(second.mountTmpfs("size=2M"));
    const std::string other = newDrive();
    EXPECT_NE(other, drive);
    EXPECT_FALSE(fso().GetDrive(drive)->IsReady());
    ASSERT_TRUE(first.mountTmpfs("size=4M"));
    EXPECT_EQ(fso().GetDrive(drive)->TotalSize(), 4 << 20);
    EXPECT_EQ(fso().GetDrive(other)->TotalSize(), 2 << 20);
}

TEST_F(MountedDrives, AMountOverADriveIsWhatTheDriveReports) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=8M"));
    const std::string drive = newDrive();
    ASSERT_EQ(fso().GetDrive(drive)->TotalSize(), 8 << 20);
    ASSERT_EQ(::mount("tmpfs", mount.path().c_str(), "tmpfs", 0, "size=3M"), 0);
    ASSERT_TRUE(fso().DriveExists(drive));
    EXPECT_EQ(fso().GetDrive(drive)->TotalSize(), 3 << 20);
    umount2(mount.path().c_str(), MNT_DETACH);
    ASSERT_TRUE(fso().DriveExists(drive));
    EXPECT_EQ(fso().GetDrive(drive)->TotalSize(), 8 << 20);
}

TEST_F(MountedDrives, PathsGoThroughTheDriveOfTheirLongestMount) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=8M"));
    const std::string drive = newDrive();
    const std::string file = mount.path() + "/some file";
    std::ofstream(file) << "x";
    EXPECT_EQ(machine_->toDrivePath(file), drive + "\\some file");
    EXPECT_EQ(machine_->toHostPath(drive + "\\some file"), file);
    EXPECT_TRUE(fso().FileExists(drive + "\\some file"));
    EXPECT_EQ(fso().GetFolder(drive + '\\')->Path(), drive + '\\');
    machine_->platform().files.appendLine(drive + "\\some file", "y");
    EXPECT_EQ(contentsOf(file), "xy\r\n");
}

TEST_F(MountedDrives, AFullDriveTakesNoLineAndKeepsNothingOfIt) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=64k"));
    const std::string drive = newDrive();
    TextFiles& files = machine_->platform().files;
    files.appendLine(drive + "\\log", "first");
    EXPECT_EQ(errorOf([&] { files.appendLine(drive + "\\log", std::string(100'000, 'x')); }),
              error::diskFull);
    EXPECT_EQ(contentsOf(mount.path() + "/log"), "first\r\n");
}

TEST_F(MountedDrives, ADriveThatIsAskedCanBeUnmountedTheOrdinaryWay) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=8M"));
    const std::string drive = newDrive();
    ASSERT_TRUE(fso().GetDrive(drive)->IsReady());
    ASSERT_TRUE(fso().FolderExists(drive + '\\'));
    EXPECT_EQ(umount2(mount.path().c_str(), 0), 0);
}

TEST_F(MountedDrives, DrivesInMemoryAreAskedWithoutAHelper) {
    TestMount mount;
    ASSERT_TRUE(mount.mountTmpfs("size=8M"));
    Volumes volumes;
    ASSERT_TRUE(volumes.measure("C:"));
    ASSERT_TRUE(volumes.measure(newDrive()));
    // The kernel knows it by heart.
    EXPECT_EQ(volumes.kindOf(mount.path()), FileKind::folder);
    EXPECT_EQ(volumes.kindOf(mount.path() + '\0' + "x"), FileKind::none);
    EXPECT_TRUE(volumes.helpers().empty());
    EXPECT_TRUE(volumes.entriesOf(mount.path()));
    EXPECT_EQ(volumes.helpers().size(), 1u);
}

}  // namespace
}  // namespace velmora::linuxhost
