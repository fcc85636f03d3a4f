// Work that may take minutes makes steps, so that a program that does it isn't taken for one that
// hangs.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/linux/entries/tree_walk.h"
#include "platform/linux/moving/file_copy.h"
#include "platform/linux/removal/tree_removal.h"
#include "platform/linux/support/test_folder.h"
#include "platform/linux/system/forked_child.h"
#include "platform/linux/system/unique_fd.h"
#include "platform/work_steps.h"

namespace velmora::linuxhost {
namespace {

struct LongWork : testing::Test {
    LongWork() {
        hearWorkSteps([this] { ++steps_; });
    }
    ~LongWork() override { hearWorkSteps({}); }

    TestFolder folder_;
    int steps_ = 0;
};

TEST_F(LongWork, ACopyMakesAStepForEachMegabyte) {
    std::ofstream(folder_ / "large") << std::string(3 << 20, 'x');
    const OpenFolder folder(AT_FDCWD, folder_.path());
    CopiedEntry copied;
    ASSERT_EQ(copyEntry(folder.fd(), "large", folder.fd(), "copy", copied), 0);
    EXPECT_EQ(std::filesystem::file_size(folder_ / "copy"), 3u << 20);
    // A filesystem that shares blocks has nothing to copy.
    const UniqueFd one(open((folder_ / "large").c_str(), O_RDONLY | O_CLOEXEC));
    const UniqueFd other(open((folder_ / "other").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    const bool sharesBlocks = ioctl(other.get(), FICLONE, one.get()) == 0;
    EXPECT_GE(steps_, sharesBlocks ? 0 : 3);
}

TEST_F(LongWork, ARemovalMakesOneForEachEntry) {
    for (const char* name : {"1", "2", "3", "4"}) std::ofstream(folder_ / name) << "x";
    ASSERT_EQ(removeEntries(OpenFolder(folder_.path()), everyEntry), 0);
    EXPECT_GE(steps_, 4);
}

TEST_F(LongWork, AWalkMakesOneForEachFolder) {
    for (const char* name : {"1", "2", "3"}) {
        std::filesystem::create_directory(folder_ / name);
        std::ofstream(folder_ / name + "/file") << "x";
    }
    const auto seen = [](const struct statx&) { return true; };
    ASSERT_EQ(walkTree(OpenFolder(AT_FDCWD, folder_.path()), seen), 0);
    EXPECT_GE(steps_, 4);  // the top folder too
}

// It has the memory of the program, and with it who listens.
TEST_F(LongWork, AProcessOfItsOwnMakesNone) {
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_DGRAM, 0, ends), 0);
    const UniqueFd ours(ends[0]);
    hearWorkSteps([] { (void)!write(forkedChildSocket, "step", 4); });
    pid_t child = -1;
    {
        const UniqueFd childs(ends[1]);
        child = forkChild(childs.get(), "velmora-test", [] {
            noteWorkStep();
            (void)!write(forkedChildSocket, "end", 3);
        });
    }
    ASSERT_GT(child, 0);
    char said[8] = {};
    EXPECT_EQ(read(ours.get(), said, sizeof said), 3);
    EXPECT_EQ(std::string(said), "end");
    waitpid(child, nullptr, 0);
}

}  // namespace
}  // namespace velmora::linuxhost
