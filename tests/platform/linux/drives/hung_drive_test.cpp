// A filesystem whose server doesn't answer: the program must neither wait for it nor go on running.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <string>
#include <system_error>
#include <utility>

#include "base/errors.h"
#include "platform/linux/entries/open_folder.h"
#include "platform/linux/support/hung_filesystem.h"
#include "platform/linux/support/mounting.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

class HungDrive : public MountingTest {
  protected:
    void SetUp() override {
        MountingTest::SetUp();
        if (IsSkipped()) return;
        if (const std::string reason = whyNoHungFilesystem(); !reason.empty()) {
            std::cout << "skipped: " << reason << '\n';
            GTEST_SKIP() << reason;
        }
        filesystem_ = std::make_unique<HungFilesystem>();
        ASSERT_TRUE(waitUntil([this] { return !newDrive().empty(); }));
        drive_ = newDrive();
    }
    bool isReady() { return fso().GetDrive(drive_)->IsReady(); }

    std::unique_ptr<HungFilesystem> filesystem_;
    std::string drive_;
};

TEST_F(HungDrive, CostsItsDeadlineOnceAndThenNothing) {
    EXPECT_TRUE(fso().DriveExists(drive_));
    auto start = steady_clock::now();
    EXPECT_FALSE(isReady());
    const auto first = steady_clock::now() - start;
    EXPECT_GE(first, 1900ms);
    EXPECT_LT(first, 4s);

    start = steady_clock::now();
    for (int i = 0; i < 100; ++i) EXPECT_FALSE(isReady());
    EXPECT_EQ(errorOf([&] { fso().GetDrive(drive_)->FreeSpace(); }), error::diskNotReady);
    EXPECT_FALSE(fso().FolderExists(drive_ + '\\'));
    EXPECT_LT(steady_clock::now() - start, 1s);
    EXPECT_EQ(filesystem_->questions(), 1u);

    EXPECT_TRUE(fso().GetDrive("C:")->IsReady());
    EXPECT_TRUE(fso().FolderExists("C:\\"));
}

TEST_F(HungDrive, IsReadyAgainOnceItAnswers) {
    EXPECT_FALSE(isReady());
    filesystem_->answerFromNowOn();
    ASSERT_TRUE(waitUntil([this] { return isReady(); }));
    const auto drive = fso().GetDrive(drive_);
    EXPECT_EQ(drive->FreeSpace(), 2000.0 * 1024);
    EXPECT_EQ(drive->TotalSize(), 5000.0 * 1024);
    EXPECT_TRUE(fso().FolderExists(drive_ + '\\'));
}

TEST_F(HungDrive, AFolderThatCanNotBeReachedInTimeDoesNotExist) {
    ASSERT_TRUE(fso().FolderExists(drive_ + '\\'));
    const auto start = steady_clock::now();
    EXPECT_FALSE(fso().FolderExists(drive_ + "\\stuck"));
    EXPECT_GE(steady_clock::now() - start, 1900ms);
    EXPECT_LT(steady_clock::now() - start, 4s);
    EXPECT_EQ(errorOf([&] { fso().GetFolder(drive_ + '\\'); }), error::pathNotFound);
    filesystem_->answerFromNowOn();
    EXPECT_TRUE(waitUntil([this] { return fso().FolderExists(drive_ + '\\'); }));
}

TEST_F(HungDrive, AFolderOnItCanNotBeCountedAndCostsNothingFurther) {
    const auto folder = fso().GetFolder(drive_ + '\\');
    EXPECT_FALSE(isReady());
    const auto start = steady_clock::now();
    EXPECT_EQ(errorOf([&] { folder->FilesCount(); }), error::pathNotFound);
    EXPECT_EQ(errorOf([&] { folder->SubFoldersCount(); }), error::pathNotFound);
    EXPECT_LT(steady_clock::now() - start, 1s);
    filesystem_->answerFromNowOn();
    // Where the late answer of the pending question is gone, the folder is counted again.
    EXPECT_TRUE(waitUntil(
        [&] { return errorOf([&] { fso().GetFolder(drive_ + '\\')->FilesCount(); }) == 0; }));
}

TEST_F(HungDrive, NothingOnItIsListedMovedOrRemovedAndNothingWaits) {
    EXPECT_FALSE(isReady());
    Platform& platform = machine_->platform();
    const std::string file = drive_ + "\\stuck";
    const auto start = steady_clock::now();
    FindData entry;
    EXPECT_EQ(platform.kernel32.FindFirstFileA(drive_ + "\\*.*", entry), 0u);
    EXPECT_EQ(platform.kernel32.GetLastError(), 3u);
    EXPECT_EQ(platform.kernel32.MoveFileA(file, "C:\\velmora-never"), 0);
    EXPECT_EQ(errorOf([&] { platform.files.FileLen(file); }), error::fileNotFound);
    EXPECT_EQ(errorOf([&] { platform.files.remove(file); }), error::fileNotFound);
    EXPECT_EQ(errorOf([&] { fso().GetFile(file); }), error::fileNotFound);
    EXPECT_EQ(platform.shell32.SHFileOperationA({"", 3, file + '\0', 64}), 2);
    EXPECT_EQ(platform.winmm.sndPlaySoundA(file, 2), 0);
    EXPECT_EQ(machine_->toDrivePath(machine_->toHostPath(file)), file);
    EXPECT_LT(steady_clock::now() - start, 1s);
}

TEST_F(HungDrive, AListingThatDoesNotBeginInTimeIsOfAFolderThatDoesNotExist) {
    ASSERT_TRUE(fso().FolderExists(drive_ + "\\endless"));
    Kernel32& kernel32 = machine_->platform().kernel32;
    FindData entry;
    const auto start = steady_clock::now();
    EXPECT_EQ(kernel32.FindFirstFileA(drive_ + "\\endless\\*.*", entry), 0u);
    EXPECT_EQ(kernel32.GetLastError(), 3u);
    EXPECT_GE(steady_clock::now() - start, 1900ms);
    EXPECT_LT(steady_clock::now() - start, 4s);
    filesystem_->answerFromNowOn();
    // Answered late, the folder is listed again.
    EXPECT_TRUE(waitUntil([&] {
        const FindHandle listing = kernel32.FindFirstFileA(drive_ + "\\endless\\*.*", entry);
        if (listing != 0) kernel32.FindClose(listing);
        return listing != 0 || kernel32.GetLastError() == 2;
    }));
}

// How many entries come, and the code that ends them.
std::pair<int, std::uint32_t> countListed(Kernel32& kernel32, const std::string& folder) {
    FindData entry;
    const FindHandle listing = kernel32.FindFirstFileA(folder + "\\*.*", entry);
    if (listing == 0) return {0, kernel32.GetLastError()};
    int count = 1;
    while (kernel32.FindNextFileA(listing, entry)) ++count;
    const std::uint32_t end = kernel32.GetLastError();
    EXPECT_FALSE(kernel32.FindNextFileA(listing, entry));
    EXPECT_EQ(kernel32.GetLastError(), noMoreFiles);
    kernel32.FindClose(listing);
    return {count, end};
}

TEST_F(HungDrive, AListingThatStopsInTheMiddleBreaksOffAfterItsDeadline) {
    Kernel32& kernel32 = machine_->platform().kernel32;
    const auto start = steady_clock::now();
    const auto [count, end] = countListed(kernel32, drive_ + "\\halting");
    EXPECT_GE(steady_clock::now() - start, 1900ms);
    EXPECT_LT(steady_clock::now() - start, 4s);
    EXPECT_GE(count, 2);
    EXPECT_LE(count, 1002);
    EXPECT_EQ(end, 21u);
    filesystem_->answerFromNowOn();
    // All of them, and the dots, with the helper that was kept waiting.
    EXPECT_TRUE(waitUntil([&] {
        return countListed(kernel32, drive_ + "\\halting") == std::pair(2002, noMoreFiles);
    }));
}

std::size_t childProcesses() {
    const std::string self = std::to_string(getpid());
    const std::string children = contentsOf("/proc/self/task/" + self + "/children");
    return static_cast<std::size_t>(std::count(children.begin(), children.end(), ' '));
}

TEST_F(HungDrive, TenThousandQuestionsAfterAListingThatStoppedKeepOneProcessWaiting) {
    Kernel32& kernel32 = machine_->platform().kernel32;
    EXPECT_EQ(countListed(kernel32, drive_ + "\\halting").second, 21u);
    const auto before = childProcesses();
    FindData entry;
    const auto start = steady_clock::now();
    for (int i = 0; i < 10'000; ++i) {
        ASSERT_EQ(kernel32.FindFirstFileA(drive_ + "\\halting\\*.*", entry), 0u);
        ASSERT_FALSE(isReady());
        ASSERT_FALSE(fso().FolderExists(drive_ + '\\'));
    }
    // With a deadline each it would be hours.
    EXPECT_LT(steady_clock::now() - start, 60s);
    EXPECT_EQ(childProcesses(), before);
    EXPECT_EQ(filesystem_->questions(), 0u);
}

// What the children of this process have opened below a folder.
std::size_t openedByChildren(const std::string& folder) {
    std::size_t count = 0;
    std::istringstream children(
        contentsOf("/proc/self/task/" + std::to_string(getpid()) + "/children"));
    for (std::string child; children >> child;) {
        std::error_code failure;
        for (const auto& each :
             std::filesystem::directory_iterator("/proc/" + child + "/fd", failure)) {
            count += std::filesystem::read_symlink(each, failure).string().starts_with(folder);
        }
    }
    return count;
}

// Else the drive could not be unmounted.
TEST_F(HungDrive, AListingThatBrokeOffIsClosedOnceTheDriveAnswers) {
    Kernel32& kernel32 = machine_->platform().kernel32;
    EXPECT_EQ(countListed(kernel32, drive_ + "\\halting").second, 21u);
    EXPECT_EQ(openedByChildren(filesystem_->path()), 1u);
    filesystem_->answerFromNowOn();
    ASSERT_TRUE(waitUntil([this] { return isReady(); }));
    EXPECT_TRUE(waitUntil([this] { return openedByChildren(filesystem_->path()) == 0; }));
}

TEST_F(HungDrive, ACountThatIsNotAnsweredInTimeFails) {
    const auto folder = fso().GetFolder(drive_ + "\\endless");
    const auto start = steady_clock::now();
    EXPECT_EQ(errorOf([&] { folder->FilesCount(); }), error::pathNotFound);
    EXPECT_GE(steady_clock::now() - start, 1900ms);
    EXPECT_LT(steady_clock::now() - start, 4s);
    filesystem_->answerFromNowOn();
    EXPECT_TRUE(waitUntil([&] {
        return errorOf([&] { fso().GetFolder(drive_ + "\\endless")->FilesCount(); }) == 0;
    }));
}

TEST_F(HungDrive, AListingByALinkThatLeadsToItDoesNotBlock) {
    const TestFolder folder;
    std::filesystem::create_directory_symlink(machine_->toHostPath(drive_ + "\\endless"),
                                              folder / "link");
    const std::string link = machine_->toDrivePath(folder / "link");
    FindData entry;
    const auto start = steady_clock::now();
    EXPECT_EQ(machine_->platform().kernel32.FindFirstFileA(link + "\\*.*", entry), 0u);
    EXPECT_LT(steady_clock::now() - start, 4s);
    filesystem_->answerFromNowOn();
}

TEST_F(HungDrive, AFolderThatHoldsItIsListedAndLookedAtWithoutWaiting) {
    EXPECT_FALSE(isReady());
    const std::string mountPoint = machine_->toHostPath(drive_ + '\\');
    const std::string holder = "C:" + mountPoint.substr(0, mountPoint.rfind('/'));
    const std::string name = mountPoint.substr(mountPoint.rfind('/') + 1);
    const auto start = steady_clock::now();
    FindData entry;
    bool isListed = false;
    Kernel32& kernel32 = machine_->platform().kernel32;
    const FindHandle listing = kernel32.FindFirstFileA(holder + "\\*.*", entry);
    for (bool goesOn = listing != 0; goesOn; goesOn = kernel32.FindNextFileA(listing, entry))
        isListed = isListed || entry.cFileName == name;
    kernel32.FindClose(listing);
    EXPECT_TRUE(isListed);
    const OpenFolder folder(mountPoint.substr(0, mountPoint.rfind('/')));
    struct statx status {};
    MountId holderMount;
    ASSERT_EQ(mountIdOf(folder.fd(), holderMount), 0);
    ASSERT_EQ(statEntry(folder.fd(), name, status), 0);
    EXPECT_FALSE(mayBeOn(status, holderMount));
    EXPECT_LT(steady_clock::now() - start, 1s);
}

TEST_F(HungDrive, AFolderOnItReachedByAnotherDrivesPathDoesNotKeepThatDriveWaiting) {
    EXPECT_FALSE(isReady());
    const std::string byRoot = "C:" + machine_->toHostPath(drive_ + "\\stuck");
    const auto start = steady_clock::now();
    EXPECT_FALSE(fso().FolderExists(byRoot));
    EXPECT_TRUE(fso().FolderExists("C:\\"));
    EXPECT_LT(steady_clock::now() - start, 1s);
}

// A fresh process asks, is kept waiting, and is done.
pid_t askingProcess(const std::string& drive, int done) {
    const pid_t process = fork();
    if (process != 0) return process;
    {
        const auto machine = openMachine();
        machine->platform().fso.GetDrive(drive)->IsReady();
        if (write(done, "!", 1) != 1) _exit(1);
    }
    _exit(0);
}

TEST_F(HungDrive, AProcessThatAskedItEndsAtOnce) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    // The letters of a fresh machine begin again, but this drive's is the first new one in both.
    const pid_t process = askingProcess(drive_, ends[1]);
    close(ends[1]);
    pollfd done{ends[0], POLLIN, 0};
    ASSERT_EQ(poll(&done, 1, 10'000), 1);
    int status = -1;
    EXPECT_TRUE(waitUntil([&] { return waitpid(process, &status, WNOHANG) == process; }, 2s));
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    // A reader of the process's output sees its end, too.
    char byte = 0;
    EXPECT_EQ(read(ends[0], &byte, 1), 1);
    ASSERT_EQ(poll(&done, 1, 2000), 1);
    EXPECT_EQ(read(ends[0], &byte, 1), 0);
    close(ends[0]);
    EXPECT_EQ(filesystem_->questions(), 1u);
}

TEST_F(HungDrive, UnmountedItIsGoneAndItsLetterServesARemount) {
    EXPECT_FALSE(isReady());
    const std::string mountPoint = machine_->toHostPath(drive_ + '\\');
    ASSERT_EQ(umount2(mountPoint.c_str(), MNT_DETACH), 0);
    EXPECT_FALSE(fso().DriveExists(drive_));
    ASSERT_EQ(mount("tmpfs", mountPoint.c_str(), "tmpfs", 0, "size=1M"), 0);
    EXPECT_EQ(fso().GetDrive(drive_)->TotalSize(), 1 << 20);
    EXPECT_TRUE(fso().FolderExists(drive_ + '\\'));
    umount2(mountPoint.c_str(), MNT_DETACH);
}

}  // namespace
}  // namespace velmora::linuxhost
