#include "platform/linux/drives/folder_memory.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdio.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "platform/linux/drives/volumes.h"
#include "platform/linux/files/linux_file_system_object.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/mounting.h"
#include "platform/linux/support/test_folder.h"
#include "support/wait.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

using Counted = std::optional<std::pair<std::uint64_t, std::uint64_t>>;

// While it lives, no helper answers: what is answered comes from the memory.
class HelpersHeld {
  public:
    explicit HelpersHeld(const Volumes& volumes) : helpers_(volumes.helpers()) {
        for (const pid_t helper : helpers_) kill(helper, SIGSTOP);
    }
    ~HelpersHeld() {
        for (const pid_t helper : helpers_) kill(helper, SIGCONT);
    }
    HelpersHeld(const HelpersHeld&) = delete;
    HelpersHeld& operator=(const HelpersHeld&) = delete;

  private:
    std::vector<pid_t> helpers_;
};

// A clock that runs ahead of the one that changes are dated by, so that each has settled at once.
std::int64_t clockIsAhead = 0;
std::int64_t shiftedClock() {
    return changeClock() + clockIsAhead;
}

// In folders of one filesystem.
class CountedAgain {
  public:
    explicit CountedAgain(const char* base) : base_("TMPDIR", base) { clockIsAhead = second; }

    std::string at(const std::string& name) const { return root_ / ("tree/" + name); }
    void make(const std::string& name) const { std::ofstream(at(name)) << "x"; }
    void makeFolder(const std::string& name) const { fs::create_directories(at(name)); }
    void link(const std::string& target, const std::string& name) const {
        fs::create_symlink(target, at(name));
    }
    Counted count(const std::string& name) {
        const UniqueFd known = volumes_.openKnown(at(name));
        const auto counts = volumes_.entriesOf(at(name), known);
        if (!counts) return std::nullopt;
        return std::pair(counts->files, counts->folders);
    }
    Counted countFromMemory(const std::string& name) {
        const UniqueFd known = volumes_.openKnown(at(name));
        if (!known.isOpen()) return std::nullopt;
        const HelpersHeld held(volumes_);
        const auto counts = volumes_.entriesOf(at(name), known);
        if (!counts) return std::nullopt;
        return std::pair(counts->files, counts->folders);
    }
    // A change from now on has a later time than all before.
    static void nextStep() {
        const auto now = changeClock();
        ASSERT_TRUE(waitUntil([now] { return changeClock() > now; }));
    }

    static constexpr std::int64_t second = 1'000'000'000;

    Environment base_;
    TestFolder root_;
    Volumes volumes_{300ms, shiftedClock};
    LinuxFileSystemObject fso_{volumes_};
};

class FolderMemoryTest : public testing::TestWithParam<const char*>, protected CountedAgain {
  protected:
    FolderMemoryTest() : CountedAgain(GetParam()) {}
    void SetUp() override {
        makeFolder("counted");
        const UniqueFd folder(open(at("counted").c_str(), O_RDONLY | O_CLOEXEC));
        if (!datesEveryChange(folder.get())) GTEST_SKIP() << "not such a filesystem";
        makeFolder("counted/folder");
        makeFolder("beside/folder");
        for (const char* name : {"counted/a", "counted/b", "beside/c"}) make(name);
        nextStep();
        expectAfterAStep(2, 1);
    }
    void expectCounts(std::uint64_t files, std::uint64_t folders) {
        EXPECT_EQ(count("counted"), Counted({files, folders}));
    }
    // A further change has a later time, as one has that comes when this one has settled.
    void expectAfterAStep(std::uint64_t files, std::uint64_t folders) {
        expectCounts(files, folders);
        nextStep();
        EXPECT_EQ(countFromMemory("counted"), Counted({files, folders}));
    }
    void exchange(const std::string& one, const std::string& other) {
        ASSERT_EQ(
            renameat2(AT_FDCWD, at(one).c_str(), AT_FDCWD, at(other).c_str(), RENAME_EXCHANGE), 0);
    }
};
INSTANTIATE_TEST_SUITE_P(Filesystems, FolderMemoryTest, testing::Values("/var/tmp", "/dev/shm"),
                         [](const auto& each) { return each.index == 0 ? "disk" : "memory"; });

TEST_P(FolderMemoryTest, AFolderWithoutAChangeIsNotListedAgain) {
    for (int i = 0; i < 10; ++i) EXPECT_EQ(countFromMemory("counted"), Counted({2, 1}));
}

TEST_P(FolderMemoryTest, WhatComesAndGoesIsCounted) {
    make("counted/new");
    expectAfterAStep(3, 1);
    fs::remove(at("counted/a"));
    expectAfterAStep(2, 1);
    makeFolder("counted/new folder");
    expectAfterAStep(2, 2);
    fs::remove(at("counted/new folder"));
    expectAfterAStep(2, 1);
    fs::rename(at("beside/c"), at("counted/c"));
    expectAfterAStep(3, 1);
    fs::rename(at("counted/folder"), at("beside/d"));
    expectAfterAStep(3, 0);
    fs::create_hard_link(at("counted/b"), at("counted/e"));
    expectAfterAStep(4, 0);
}

TEST_P(FolderMemoryTest, AFileThatIsRenamedOverAnotherIsCounted) {
    fs::rename(at("counted/a"), at("counted/b"));
    expectCounts(1, 1);
}

TEST_P(FolderMemoryTest, AFileInThePlaceOfAFolderIsCounted) {
    fs::remove(at("counted/folder"));
    make("counted/folder");
    expectCounts(3, 0);
}

TEST_P(FolderMemoryTest, AFileExchangedForAFolderIsCounted) {
    exchange("counted/a", "beside/folder");
    expectCounts(1, 2);
}

TEST_P(FolderMemoryTest, ATimeThatIsSetBackHidesNoChange) {
    struct stat before {};
    ASSERT_EQ(stat(at("counted").c_str(), &before), 0);
    make("counted/new");
    const timespec times[] = {before.st_atim, before.st_mtim};
    ASSERT_EQ(utimensat(AT_FDCWD, at("counted").c_str(), times, 0), 0);
    expectCounts(3, 1);
}

TEST_P(FolderMemoryTest, AFolderMadeAnewWithTheSameTimesIsAnother) {
    struct stat before {};
    ASSERT_EQ(stat(at("counted").c_str(), &before), 0);
    fs::remove_all(at("counted"));
    makeFolder("counted");
    const timespec times[] = {before.st_atim, before.st_mtim};
    ASSERT_EQ(utimensat(AT_FDCWD, at("counted").c_str(), times, 0), 0);
    expectCounts(0, 0);
}

TEST_P(FolderMemoryTest, AnotherFolderInItsPlaceIsCounted) {
    exchange("counted", "beside");
    expectCounts(1, 1);
    fs::remove_all(at("counted"));
    fs::create_directory_symlink("beside", at("counted"));
    expectCounts(2, 1);
}

TEST_P(FolderMemoryTest, AnotherFolderOnTheWayIsSeen) {
    makeFolder("way/counted");
    fs::rename(at("counted"), at("way/counted"));
    makeFolder("other/counted");
    EXPECT_EQ(count("way/counted"), Counted({2, 1}));
    exchange("way", "other");
    EXPECT_EQ(count("way/counted"), Counted({0, 0}));
}

TEST_P(FolderMemoryTest, AFolderThatIsGoneIsNotThere) {
    const std::string path = drivePathOf(at("counted"), volumes_.roots());
    const auto folder = fso_.GetFolder(path);
    fs::remove_all(at("counted"));
    EXPECT_EQ(errorOf([&] { folder->FilesCount(); }), error::pathNotFound);
    EXPECT_EQ(errorOf([&] { fso_.GetFolder(path); }), error::pathNotFound);
    EXPECT_EQ(count("counted"), std::nullopt);
    make("counted");
    EXPECT_EQ(errorOf([&] { fso_.GetFolder(path); }), error::pathNotFound);
}

TEST_P(FolderMemoryTest, WhatALinkLeadsToIsLookedAtEachTime) {
    makeFolder("target");
    link("../target", "counted/link");
    // The kernel dates the first reading of a link, which it can't do without waiting.
    nextStep();
    expectAfterAStep(2, 2);
    fs::remove(at("target"));
    // Not every filesystem remembers that nothing is there: it may be counted anew then.
    for (int i = 0; i < 2; ++i) expectCounts(3, 1);
    make("target");
    expectCounts(3, 1);
    EXPECT_EQ(countFromMemory("counted"), Counted({3, 1}));
    fs::remove(at("target"));
    ASSERT_EQ(mkfifo(at("target").c_str(), 0600), 0);
    expectCounts(2, 1);
    fs::remove(at("target"));
    makeFolder("target");
    expectCounts(2, 2);
}

TEST_P(FolderMemoryTest, AFolderWithMoreLinksThanCanBeNotedIsListedEachTime) {
    makeFolder("target");
    for (int i = 0; i < 100; ++i)
        link("../target", "counted/" + std::string(100, 'n') + std::to_string(i));
    nextStep();
    expectCounts(2, 101);
    EXPECT_EQ(countFromMemory("counted"), std::nullopt);
    fs::remove(at("target"));
    expectCounts(102, 1);
}

// Each change comes in the very step of the one before, as often as it can be had.
TEST_P(FolderMemoryTest, ManyChangesOfOneStepAreAllSeen) {
    clockIsAhead = 0;
    for (int i = 0; i < 300; ++i) {
        make("counted/new");
        expectCounts(3, 1);
        fs::remove(at("counted/new"));
        makeFolder("counted/new");
        expectCounts(2, 2);
        fs::remove(at("counted/new"));
        expectCounts(2, 1);
    }
}

TEST_P(FolderMemoryTest, AFreshChangeIsNotKeptYet) {
    clockIsAhead = 0;
    make("counted/new");
    expectCounts(3, 1);
    EXPECT_EQ(countFromMemory("counted"), std::nullopt);
    // A tenth of a second later it is.
    EXPECT_TRUE(waitUntil([&] {
        expectCounts(3, 1);
        return countFromMemory("counted") == Counted({3, 1});
    }));
}

TEST_P(FolderMemoryTest, AClockThatWasSetBackMakesItForget) {
    clockIsAhead = 0;
    EXPECT_EQ(countFromMemory("counted"), std::nullopt);
    expectCounts(2, 1);
}

TEST_P(FolderMemoryTest, ADriveWithAQuestionThatIsPendingIsNotAnsweredFor) {
    const UniqueFd known = volumes_.openKnown(at("counted"));
    ASSERT_TRUE(known.isOpen());
    const HelpersHeld held(volumes_);
    EXPECT_FALSE(volumes_.entriesOf(at("beside")));
    EXPECT_EQ(volumes_.kindOf(at("beside")), FileKind::none);
    EXPECT_FALSE(volumes_.openKnown(at("counted")).isOpen());
}

TEST_P(FolderMemoryTest, NothingStaysOpen) {
    const auto openFiles = [] {
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    };
    const std::string path = drivePathOf(at("counted"), volumes_.roots());
    const auto before = openFiles();
    for (int i = 0; i < 10; ++i) {
        const auto folder = fso_.GetFolder(path);
        EXPECT_EQ(folder->FilesCount(), 2);
        EXPECT_EQ(openFiles(), before);
    }
}

TEST(FolderMarkTest, SettlesATenthOfASecondAfterTheChange) {
    FolderMark mark;
    mark.changed = 5'000'000'001;
    EXPECT_FALSE(isSettled(mark, 5'000'000'001));
    EXPECT_FALSE(isSettled(mark, 5'100'000'000));
    EXPECT_TRUE(isSettled(mark, 5'100'000'001));
    // Dated ahead of the clock.
    EXPECT_FALSE(isSettled(mark, 4'000'000'000));
}

TEST(FolderMarkTest, ATimeInWholeSecondsNeverSettles) {
    FolderMark mark;
    mark.changed = 5'000'000'000;
    EXPECT_FALSE(isSettled(mark, 500'000'000'000));
}

TEST(FolderMarkTest, FilesystemsThatHideChangesAreLeftOut) {
    const UniqueFd processes(open("/proc", O_RDONLY | O_CLOEXEC));
    EXPECT_FALSE(datesEveryChange(processes.get()));
    CountedFolder counted;
    EXPECT_EQ(countEntries("/proc", counted), 0);
    EXPECT_FALSE(counted.standsWithMark);
}

class MountOverAFolder : public MountingTest {};

TEST_F(MountOverAFolder, IsCountedInsteadAndTheFolderAgainAfterwards) {
    CountedAgain tree("/var/tmp");
    tree.makeFolder("counted/folder");
    tree.make("counted/a");
    CountedAgain::nextStep();
    for (int i = 0; i < 2; ++i) EXPECT_EQ(tree.count("counted"), Counted({1, 1}));
    const std::string path = tree.at("counted");
    ASSERT_EQ(mount("tmpfs", path.c_str(), "tmpfs", 0, "size=1M"), 0);
    EXPECT_EQ(tree.count("counted"), Counted({0, 0}));
    tree.make("counted/b");
    tree.make("counted/c");
    EXPECT_EQ(tree.count("counted"), Counted({2, 0}));
    // Nothing that the counts have opened keeps it mounted.
    ASSERT_EQ(umount(path.c_str()), 0);
    EXPECT_EQ(tree.count("counted"), Counted({1, 1}));
    EXPECT_EQ(tree.count("counted/folder"), Counted({0, 0}));
    const std::string inner = tree.at("counted/folder");
    ASSERT_EQ(mount("tmpfs", inner.c_str(), "tmpfs", 0, "size=1M"), 0);
    EXPECT_EQ(tree.count("counted"), Counted({1, 1}));
    EXPECT_EQ(tree.count("counted/folder"), Counted({0, 0}));
    ASSERT_EQ(umount(inner.c_str()), 0);
}

}  // namespace
}  // namespace velmora::linuxhost
