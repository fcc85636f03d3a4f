// Changes of files against the time that a scan leaves behind, on filesystems that date them in
// steps of the clock.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <time.h>

#include <cstdint>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "platform/linux/support/loop_disk.h"
#include "platform/linux/support/mounting.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

class ChangedTimes : public MountingTest {
  protected:
    /// The names in the folder with a time above the reference, without "." and "..".
    std::vector<std::string> newer(const std::string& folder, std::uint64_t reference) {
        Kernel32& kernel32 = machine_->platform().kernel32;
        std::vector<std::string> names;
        FindData entry;
        const FindHandle listing =
            kernel32.FindFirstFileA(machine_->toDrivePath(folder) + "\\*.*", entry);
        for (bool more = listing != 0; more; more = kernel32.FindNextFileA(listing, entry)) {
            const bool isNewer =
                entry.ftLastWriteTime > reference || entry.ftCreationTime > reference;
            if (isNewer && entry.cFileName[0] != '.') names.push_back(entry.cFileName);
        }
        kernel32.FindClose(listing);
        return names;
    }
    std::uint64_t now() { return machine_->platform().clock.GetSystemTimeAsFileTime(); }

    /// Changes a file right after each scan.
    void expectEachChangeOnce(const std::string& folder) {
        const std::vector<std::string> one{"file"};
        int missed = 0;
        int repeated = 0;
        newer(folder, 0);
        std::uint64_t reference = now();
        for (int round = 0; round < 200; ++round) {
            std::ofstream(folder + "/file", std::ios::app) << "x";
            if (newer(folder, reference) != one) ++missed;
            reference = now();
            if (!newer(folder, reference).empty()) ++repeated;
            reference = now();
        }
        EXPECT_EQ(missed, 0);
        EXPECT_EQ(repeated, 0);
    }
};

TEST_F(ChangedTimes, AChangeRightAfterAScanIsSeenOnce) {
    const TestFolder folder;
    expectEachChangeOnce(folder.path());
}

TEST_F(ChangedTimes, SoItIsOnAFilesystemThatDatesByTheClocksSteps) {
    const TestFolder folder;
    ASSERT_EQ(::mount("ramfs", folder.path().c_str(), "ramfs", 0, nullptr), 0);
    expectEachChangeOnce(folder.path());
    umount2(folder.path().c_str(), MNT_DETACH);
}

TEST_F(ChangedTimes, FilesOfTheFutureDoNotHideWhatChangesBesideThem) {
    const TestFolder folder;
    ASSERT_EQ(::mount("ramfs", folder.path().c_str(), "ramfs", 0, nullptr), 0);
    std::ofstream(folder / ".ahead") << "x";
    const timespec ahead{.tv_sec = time(nullptr) + 600, .tv_nsec = 0};
    const timespec times[] = {ahead, ahead};
    ASSERT_EQ(utimensat(AT_FDCWD, (folder / ".ahead").c_str(), times, 0), 0);
    expectEachChangeOnce(folder.path());
    umount2(folder.path().c_str(), MNT_DETACH);
}

// A change in the very second of a scan has the time of that second's beginning there.
TEST_F(ChangedTimes, WhereWholeSecondsAreKeptAChangeInALaterSecondIsSeenOnce) {
    const std::string whyNot = whyNoLoopDisk("mkfs.ext3");
    if (!whyNot.empty()) {
        std::cout << "skipped: " << whyNot << '\n';
        GTEST_SKIP() << whyNot;
    }
    LoopDisk disk("mkfs.ext3 -q -F -I 128", "8M");
    ASSERT_TRUE(disk.mount("mount -t ext3"));
    const std::string file = disk.path() + "/file";
    std::ofstream(file) << "x";
    newer(disk.path(), 0);
    std::uint64_t reference = now();
    constexpr std::uint64_t second = 10'000'000;
    ASSERT_TRUE(waitUntil([&] { return now() / second > reference / second; }));
    std::ofstream(file, std::ios::app) << "x";
    EXPECT_EQ(newer(disk.path(), reference), std::vector<std::string>{"file"});
    reference = now();
    EXPECT_EQ(newer(disk.path(), reference), std::vector<std::string>{});
}

TEST_F(ChangedTimes, AFileOfTheFutureIsNotWaitedFor) {
    const TestFolder folder;
    std::ofstream(folder / "file") << "x";
    const timespec ahead{.tv_sec = time(nullptr) + 600, .tv_nsec = 0};
    const timespec times[] = {ahead, ahead};
    ASSERT_EQ(utimensat(AT_FDCWD, (folder / "file").c_str(), times, 0), 0);
    EXPECT_EQ(newer(folder.path(), now()).size(), 1u);
    Clock& clock = machine_->platform().clock;
    const std::int64_t before = clock.GetTickCount();
    for (int i = 0; i < 100; ++i) now();
    EXPECT_LT(clock.GetTickCount() - before, 5000);
}

}  // namespace
}  // namespace velmora::linuxhost
