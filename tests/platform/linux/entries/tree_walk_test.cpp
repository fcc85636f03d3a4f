// What a walk through a folder costs.
#include "platform/linux/entries/tree_walk.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "platform/linux/support/child_process.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

struct TreeWalkCost : testing::Test {
    TreeWalkCost() {
        for (int i = 0; i < folders; ++i) {
            const std::string name = folder_ / std::to_string(i);
            std::filesystem::create_directory(name);
            for (int file = 0; file < files; ++file)
                std::ofstream(name + '/' + std::to_string(file)) << "x";
        }
    }
    /// The uses of a system call by a walk in which all files are seen.
    std::optional<int> callsOfWalk(long number, Visited which) {
        return callsOf(number, [&] {
            int seen = 0;
            const auto count = [&seen](const struct statx& status) {
                seen += S_ISREG(status.stx_mode);
                return true;
            };
            const OpenFolder top(AT_FDCWD, folder_.path());
            return walkTree(top, count, which) == 0 && seen == folders * files ? 0 : 1;
        });
    }

    static constexpr int folders = 100;
    static constexpr int files = 3;
    static constexpr int overhead = 30;  // of the top folder and the table of mounts
    TestFolder folder_;
};

// The size of a drive's root is asked for while the user waits.
TEST_F(TreeWalkCost, ForFilesAFolderIsLookedAtOnce) {
    const auto looks = callsOfWalk(SYS_statx, Visited::files);
    if (!looks) {
        std::cout << "skipped: calls can't be counted\n";
        GTEST_SKIP() << "calls can't be counted";
    }
    EXPECT_LE(*looks, folders * (files + 1) + overhead);
    EXPECT_GE(callsOfWalk(SYS_statx, Visited::everything), folders * (files + 2))
        << "the count must tell the two apart";
}

TEST_F(TreeWalkCost, AndOpenedAndReadInOneGo) {
    const auto listings = callsOfWalk(SYS_getdents64, Visited::files);
    if (!listings) GTEST_SKIP() << "calls can't be counted";
    EXPECT_LE(*listings, folders * 2 + overhead);
    EXPECT_LE(callsOfWalk(SYS_openat, Visited::files), folders * 2 + overhead);
}

}  // namespace
}  // namespace velmora::linuxhost
