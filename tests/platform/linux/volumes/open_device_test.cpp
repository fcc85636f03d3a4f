// Devices that don't answer or go away.
#include "platform/linux/volumes/open_device.h"

#include <signal.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <chrono>
#include <climits>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

#include "base/scope_guard.h"
#include "platform/linux/support/hung_filesystem.h"
#include "platform/linux/support/mounting.h"
#include "platform/linux/volumes/block_device.h"
#include "platform/linux/volumes/raw_volumes_rig.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

TEST(OpenDevice, IsABlockDeviceAndNothingElse) {
    OpenDevice null("/dev/null", 5s);
    EXPECT_FALSE(null.open());
    EXPECT_EQ(null.failure(), "/dev/null can't be opened: Block device required");
    OpenDevice missing("/dev/velmora-none", 5s);
    EXPECT_FALSE(missing.open());
    EXPECT_EQ(missing.failure(), "/dev/velmora-none can't be opened: No such file or directory");
    EXPECT_FALSE(missing.read(0, 512));
}

TEST(OpenDevice, APathThatDoesNotFitIsNotCut) {
    const std::string path = std::string(PATH_MAX - 8, '/') + "dev/null";
    OpenDevice device(path, 5s);
    EXPECT_FALSE(device.open());
    EXPECT_EQ(device.failure(), path + " can't be opened: File name too long");
}

// A disk in a file whose server can be kept from answering.
class SlowDevice : public testing::Test {
  protected:
    void SetUp() override {
        SKIP_FOR(whyNoLoopDisk("losetup"));
        SKIP_FOR(whyNoHungFilesystem());
        server_ = std::make_unique<HungFilesystem>("disk");
        ASSERT_TRUE(
            waitUntil([this] { return std::filesystem::exists(server_->path() + "/disk"); }));
        disk_ = std::make_unique<LoopDisk>(server_->path() + "/disk");
        ASSERT_NE(disk_->device(), "");
        device_ = std::make_unique<OpenDevice>(disk_->device(), 1s);
        ASSERT_TRUE(device_->open()) << device_->failure();
    }

    std::unique_ptr<LoopDisk> disk_;
    std::unique_ptr<HungFilesystem> server_;
    std::unique_ptr<OpenDevice> device_;
};

TEST_F(SlowDevice, CostsTheDeadlineOnceAndThenNothing) {
    auto start = steady_clock::now();
    EXPECT_FALSE(device_->read(0, 512));
    EXPECT_GE(steady_clock::now() - start, 990ms);
    EXPECT_LT(steady_clock::now() - start, 10s);
    EXPECT_EQ(device_->failure(), disk_->device() + " doesn't answer");
    start = steady_clock::now();
    for (int i = 0; i < 100; ++i) EXPECT_FALSE(device_->probe());
    device_.reset();
    EXPECT_LT(steady_clock::now() - start, 900ms);
    server_->answerFromNowOn();
}

TEST_F(SlowDevice, OpeningAndProbingShareOneDeadline) {
    constexpr auto deadline = 3000ms;
    device_ = std::make_unique<OpenDevice>(disk_->device(), deadline);
    ASSERT_TRUE(device_->open()) << device_->failure();
    // The process takes most of the deadline to open it once more.
    const pid_t process = device_->process();
    kill(process, SIGSTOP);
    const auto start = steady_clock::now();
    std::thread waking([process, end = start + deadline * 3 / 4] {
        std::this_thread::sleep_until(end);
        kill(process, SIGCONT);
    });
    EXPECT_FALSE(device_->openAndProbe());
    const auto taken = steady_clock::now() - start;
    waking.join();
    EXPECT_GE(taken, deadline);
    EXPECT_LT(taken, deadline * 3 / 2);
    EXPECT_EQ(device_->failure(), disk_->device() + " doesn't answer");
    server_->answerFromNowOn();
}

TEST_F(SlowDevice, IsReadOnceItAnswers) {
    server_->answerFromNowOn();
    EXPECT_EQ(device_->read(0, 512), std::string(512, '\0'));
    const auto names = device_->probe();
    ASSERT_TRUE(names) << device_->failure();
    EXPECT_STREQ(names->type, "");
}

TEST_F(SlowDevice, OneThatGoesAwayCanNotBeRead) {
    server_->endServer();
    EXPECT_FALSE(device_->read(0, 512));
    EXPECT_EQ(device_->failure(), disk_->device() + " can't be read: Input/output error");
}

Mount mountOf(const std::string& device, const std::string& source) {
    Mount mount;
    mount.device = device;
    mount.source = source;
    return mount;
}

TEST(BlockDevice, IsFoundByItsNumberWhereTheSourceIsNoDevice) {
    SKIP_FOR(whyNoLoopDisk("mkfs.ext4 losetup"));
    const LoopDisk disk("mkfs.ext4 -q -F", "8M");
    struct stat status {};
    ASSERT_EQ(stat(disk.device().c_str(), &status), 0);
    const std::string number =
        std::to_string(major(status.st_rdev)) + ':' + std::to_string(minor(status.st_rdev));
    for (const std::string& source :
         {std::string("/dev/root"), std::string("/dev/null"), std::string("none"), disk.device()})
        EXPECT_EQ(blockDeviceOf(mountOf(number, source)), disk.device()) << source;
    EXPECT_EQ(blockDeviceOf(mountOf("0:50", disk.device())), disk.device());
    EXPECT_EQ(blockDeviceOf(mountOf("0:50", "/dev/null")), std::nullopt);
    EXPECT_EQ(blockDeviceOf(mountOf("0:50", disk.image())), std::nullopt);
}

// As logical and encrypted volumes are mounted: by a link below a folder of devices.
TEST(BlockDevice, IsFoundByALinkBelowAFolderOfDevices) {
    SKIP_FOR(whyNoLoopDisk("mkfs.ext4 losetup"));
    const LoopDisk disk("mkfs.ext4 -q -F", "8M");
    const std::string folder = "/dev/velmora-test-" + std::to_string(getpid());
    if (mkdir(folder.c_str(), 0700) != 0) GTEST_SKIP() << "no folder can be made in /dev";
    const ScopeGuard cleanUp([&] { std::filesystem::remove_all(folder); });
    const std::string link = folder + "/group-data";
    ASSERT_EQ(symlink(disk.device().c_str(), link.c_str()), 0);
    struct stat status {};
    ASSERT_EQ(stat(disk.device().c_str(), &status), 0);
    const std::string number =
        std::to_string(major(status.st_rdev)) + ':' + std::to_string(minor(status.st_rdev));
    EXPECT_EQ(blockDeviceOf(mountOf(number, link)), link);
    EXPECT_EQ(blockDeviceOf(mountOf("0:50", link)), link);
    OpenDevice device(link, 5s);
    const auto names = device.openAndProbe();
    ASSERT_TRUE(names) << device.failure();
    EXPECT_STREQ(names->type, "ext4");
    EXPECT_EQ(logicalSectorSize(link), logicalSectorSize(disk.device()));
    // The volume behind the link is another one by now, or the link is gone.
    ASSERT_EQ(unlink(link.c_str()), 0);
    ASSERT_EQ(symlink("/dev/null", link.c_str()), 0);
    EXPECT_EQ(blockDeviceOf(mountOf(number, link)), disk.device());
    ASSERT_EQ(unlink(link.c_str()), 0);
    EXPECT_EQ(blockDeviceOf(mountOf(number, link)), disk.device());
}

}  // namespace
}  // namespace velmora::linuxhost
