#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <functional>
#include <memory>
#include <set>
#include <thread>

#include "platform/linux/moving/move_elsewhere.h"
#include "platform/linux/moving/move_file.h"
#include "platform/linux/support/child_process.h"
#include "platform/linux/support/loop_disk.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;

// A descriptor that writes, held as long as this object is there.
class HeldWriter {
  public:
    explicit HeldWriter(const std::string& path)
        : file_(open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC)) {}
    ~HeldWriter() { close(file_); }
    HeldWriter(const HeldWriter&) = delete;
    HeldWriter& operator=(const HeldWriter&) = delete;

    bool append() const { return write(file_, "more", 4) == 4; }

  private:
    int file_;
};

class MoveLoss : public MoveElsewhere {
  protected:
    std::uint32_t moveBy(const MoveSteps& steps, const std::string& name = "a.txt") {
        return moveFile(volumes_, at("work/" + name), elsewhere_ + "/x", steps);
    }
    /// Expects that the move fails with the code and leaves both folders as `meanwhile` has made
    /// them.
    void expectKept(std::uint32_t code, MoveSteps steps, const std::function<void()>& meanwhile) {
        TreeListing after;
        const TreeListing beforeThere = listTree(elsewhere_);
        steps.whenCopied = [&] {
            EXPECT_EQ(listTree(elsewhere_)["x"], tree()["work/a.txt"]);
            meanwhile();
            after = tree();
            return 0;
        };
        EXPECT_EQ(moveBy(steps), code);
        EXPECT_EQ(tree(), after);
        EXPECT_EQ(listTree(elsewhere_), beforeThere);
    }
    std::string contentThere() { return contentsOf(elsewhere_ + "/x"); }
};

TEST_F(MoveLoss, ALostAnswerToTheRemovalKeepsTheCopyAndCountsAsDone) {
    for (const char* name : {"a.txt", "to a file"}) {
        const TreeListing before = tree();
        const std::string what = before.at(std::string("work/") + name);
        MoveSteps steps;
        steps.remove = [](int folder, const std::string& entry) {
            return unlinkat(folder, entry.c_str(), 0) == 0 ? EIO : errno;
        };
        EXPECT_EQ(moveBy(steps, name), 0u);
        EXPECT_EQ(tree(), without(before, {std::string("work/") + name}));
        EXPECT_EQ(listTree(elsewhere_)["x"], what);
        fs::remove(elsewhere_ + "/x");
    }
}

TEST_F(MoveLoss, ARemovalThatFailsTakesTheCopyBack) {
    for (const auto& [failure, code] : {std::pair{EIO, 31u}, {EACCES, 5u}, {EBUSY, 32u}}) {
        MoveSteps steps;
        steps.remove = [failure](int, const std::string&) { return failure; };
        expectKept(code, steps, [] {});
    }
}

TEST_F(MoveLoss, WhereAnotherFileCameAfterALostAnswerTheCopyStays) {
    const std::string content = contentsOf(at("work/a.txt"));
    MoveSteps steps;
    steps.remove = [&](int folder, const std::string& name) {
        fs::rename(at("work/a.txt2"), at("work/next"));
        unlinkat(folder, name.c_str(), 0);
        fs::rename(at("work/next"), at("work/a.txt"));
        return EIO;
    };
    EXPECT_EQ(moveBy(steps), 31u);
    EXPECT_EQ(contentThere(), content);
    EXPECT_EQ(contentsOf(at("work/a.txt")), "content of work/a.txt2");
}

TEST_F(MoveLoss, WhereTheSourceCanNotBeLookedAtAfterItsRemovalFailedTheCopyStays) {
    const std::string content = contentsOf(at("work/a.txt"));
    const int code = inChild([&] {
        MoveSteps steps;
        steps.remove = [&](int, const std::string&) {
            // In this process every look fails from here on.
            return letCallsFail(SYS_newfstatat, EIO) ? EIO : 0;
        };
        return static_cast<int>(moveBy(steps));
    });
    EXPECT_EQ(code, 31);
    EXPECT_EQ(contentThere(), content);
    EXPECT_EQ(contentsOf(at("work/a.txt")), content);
}

TEST_F(MoveLoss, ASourceThatSomebodyElseRemovesDuringTheCopyLeavesTheCopy) {
    const std::string content = contentsOf(at("work/a.txt"));
    MoveSteps steps;
    steps.whenCopied = [&] { return unlink(at("work/a.txt").c_str()); };
    EXPECT_EQ(moveBy(steps), 0u);
    EXPECT_EQ(contentThere(), content);
}

TEST_F(MoveLoss, WhatIsWrittenAfterTheCopyStaysWithTheFile) {
    expectKept(32, {}, [&] { std::ofstream(at("work/a.txt"), std::ios::app) << "more"; });
    EXPECT_EQ(contentsOf(at("work/a.txt")), "content of work/a.txtmore");
    // Of the same size, and with its old time put back.
    expectKept(32, {}, [&] {
        struct stat status {};
        ASSERT_EQ(stat(at("work/a.txt").c_str(), &status), 0);
        std::fstream(at("work/a.txt")) << "CONTENT";
        const timespec times[] = {status.st_atim, status.st_mtim};
        ASSERT_EQ(utimensat(AT_FDCWD, at("work/a.txt").c_str(), times, 0), 0);
    });
    EXPECT_EQ(contentsOf(at("work/a.txt")), "CONTENT of work/a.txtmore");
}

// Writes as many bytes as were there.
void rewrite(const std::string& path, char with) {
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    std::fstream(path) << std::string(static_cast<std::size_t>(status.st_size), with);
}

TEST_F(MoveLoss, ARewriteWithinAStepOfTheClockIsSeen) {
    for (int round = 0; round < 50; ++round) {
        make("work/a.txt");
        expectKept(32, {}, [&] { rewrite(at("work/a.txt"), 'n'); });
    }
}

TEST_F(MoveLoss, ItIsSeenOnAFilesystemThatKeepsWholeSecondsToo) {
    const std::string whyNot = whyNoLoopDisk("mkfs.ext3");
    if (!whyNot.empty()) {
        std::cout << "skipped: " << whyNot << '\n';
        GTEST_SKIP() << whyNot;
    }
    LoopDisk disk("mkfs.ext3 -q -F -I 128", "8M");
    ASSERT_TRUE(disk.attach());
    ASSERT_TRUE(disk.mount("mount -t ext3"));
    const std::string source = disk.path() + "/file";
    std::ofstream(source) << "content";
    MoveSteps steps;
    steps.whenCopied = [&] {
        rewrite(source, 'n');
        return 0;
    };
    EXPECT_EQ(moveFile(volumes_, source, elsewhere_ + "/x", steps), 32u);
    EXPECT_EQ(contentsOf(source), "nnnnnnn");
    EXPECT_FALSE(fs::exists(elsewhere_ + "/x"));
}

TEST_F(MoveLoss, AFileThatTakesTheNameDuringTheCopyStaysAndNoCopyRemains) {
    expectKept(32, {}, [&] { fs::rename(at("work/.hidden"), at("work/a.txt")); });
    EXPECT_EQ(contentsOf(at("work/a.txt")), "content of work/.hidden");
}

TEST_F(MoveLoss, AFileThatSomebodyBeginsToWriteDuringTheCopyStays) {
    std::unique_ptr<HeldWriter> writer;
    expectKept(32, {}, [&] { writer = std::make_unique<HeldWriter>(at("work/a.txt")); });
    writer.reset();
    EXPECT_EQ(moveBy({}), 0u);
}

// Where no lease shows that a program writes.
TEST_F(MoveLoss, AFileThatGrowsWithoutPauseStaysWhole) {
    const std::string path = at("work/big");
    std::ofstream(path) << std::string(20'000'000, 'b');
    const TreeListing beforeThere = listTree(elsewhere_);
    const int result = withoutCall(SYS_fcntl, EINVAL, [&] {
        std::atomic<bool> isDone = false;
        std::atomic<unsigned> appended = 0;
        std::thread program([&] {
            const HeldWriter writer(path);
            while (!isDone) appended += writer.append();
        });
        while (appended == 0) std::this_thread::yield();
        const std::uint32_t code = moveBy({}, "big");
        isDone = true;
        program.join();
        if (code != 32) return 1;
        return fs::file_size(path) == 20'000'000 + 4 * appended ? 0 : 2;
    });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(listTree(elsewhere_), beforeThere);
}

TEST_F(MoveLoss, WithoutLeasesAFileGoesAllTheSame) {
    const int result = withoutCall(SYS_fcntl, EINVAL, [&] { return static_cast<int>(moveBy({})); });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(contentThere(), "content of work/a.txt");
}

TEST_F(MoveLoss, ATargetFolderThatIsNotOnTheDiskTakesTheCopyBack) {
    for (const auto& [failure, code] : {std::pair{EIO, 31u}, {ENOSPC, 112u}}) {
        const TreeListing before = tree();
        const TreeListing beforeThere = listTree(elsewhere_);
        MoveSteps steps;
        steps.sync = [failure](int) { return failure; };
        EXPECT_EQ(moveBy(steps), code);
        EXPECT_EQ(tree(), before);
        EXPECT_EQ(listTree(elsewhere_), beforeThere);
    }
}

TEST_F(MoveLoss, AnInterruptedCloseIsNoFailure) {
    const int result = withoutCall(SYS_close, EINTR, [&] { return static_cast<int>(moveBy({})); });
    EXPECT_EQ(result, 0);
    EXPECT_EQ(contentThere(), "content of work/a.txt");
}

TEST_F(MoveLoss, AnEntryThatTookTheCopysNameIsNotRemovedInItsPlace) {
    MoveSteps steps;
    steps.whenCopied = [&] {
        std::ofstream(elsewhere_ + "/foreign") << "somebody's";
        fs::rename(elsewhere_ + "/foreign", elsewhere_ + "/x");
        return EIO;
    };
    EXPECT_EQ(moveBy(steps), 31u);
    EXPECT_EQ(contentThere(), "somebody's");
    EXPECT_EQ(contentsOf(at("work/a.txt")), "content of work/a.txt");
}

TEST_F(MoveLoss, AFolderThatCanNotBeSynchronizedIsNoFailure) {
    const UniqueFd kernels(open("/proc", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_LT(fsync(kernels.get()), 0);
    ASSERT_EQ(errno, EINVAL);
    EXPECT_EQ(MoveSteps().sync(kernels.get()), 0);
    EXPECT_EQ(MoveSteps().sync(-1), EBADF);
}

TEST_F(MoveLoss, NothingButTheWholeFileEverAppears) {
    constexpr std::uintmax_t size = 40'000'000;
    std::ofstream(at("work/big")) << std::string(size, 'b');
    std::set<std::string> seen;
    bool isWhole = true;
    std::atomic<bool> isDone = false;
    std::atomic<bool> isWatching = false;
    std::thread watcher([&] {
        while (!isDone) {
            for (const auto& each : fs::directory_iterator(elsewhere_)) {
                seen.insert(each.path().filename());
                if (each.path().filename() == "x") isWhole = isWhole && each.file_size() == size;
            }
            isWatching = true;
        }
    });
    while (!isWatching) std::this_thread::yield();
    const std::uint32_t code = moveBy({}, "big");
    isDone = true;
    watcher.join();
    EXPECT_EQ(code, 0u);
    seen.insert("x");
    EXPECT_EQ(seen, (std::set<std::string>{"there already", "x"}));
    EXPECT_TRUE(isWhole);
    EXPECT_EQ(fs::file_size(elsewhere_ + "/x"), size);
}

TEST_F(MoveLoss, AFilesystemWithoutUnnamedFilesGetsTheWholeFileToo) {
    for (const int failure : {EPERM, EOPNOTSUPP, ENOENT}) {
        make("work/a.txt");
        const TreeListing before = tree();
        const int result =
            withoutCall(SYS_linkat, failure, [&] { return static_cast<int>(moveBy({})); });
        EXPECT_EQ(result, 0) << failure;
        EXPECT_EQ(tree(), without(before, {"work/a.txt"}));
        EXPECT_EQ(listTree(elsewhere_),
                  (TreeListing{{"there already", "file 6 bytes: before"},
                               {"x", "file 21 bytes: content of work/a.txt"}}));
        fs::remove(elsewhere_ + "/x");
    }
    for (const int failure : {ENOSPC, EIO}) {
        make("work/a.txt");
        expectLeftAlone(SYS_linkat, failure, "work/a.txt");
    }
}

}  // namespace
}  // namespace velmora::linuxhost
