// Recycling by path while somebody puts another folder in the place of the one that the path leads
// to.
#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <iostream>
#include <thread>

#include "platform/windows/desktop/windows_shell32.h"
#include "platform/windows/support/scratch_tree.h"

namespace velmora::windows {
namespace {

using tests::windows::byTheLetter;
using tests::windows::isThere;
using tests::windows::Link;
using tests::windows::makeFile;
using tests::windows::makeFolder;
using tests::windows::ScratchTree;
using tests::windows::treeOf;

class WindowsRecyclingRace : public testing::Test {
  protected:
    std::string in(const std::string& name) const { return scratch_ / name; }
    bool rename(const std::string& from, const std::string& to) const {
        return MoveFileExW(byTheLetter(in(from)).c_str(), byTheLetter(in(to)).c_str(), 0);
    }
    /// Puts the trap there once, after so many looks, for as long as the order runs.
    bool swapDuring(const std::atomic<bool>& isOver, int looks) const {
        for (int i = 0; i < looks; ++i) isThere(in("way"));
        bool isAway = false;
        while (!isAway && !isOver) isAway = rename("way", "away");
        if (!isAway) return false;
        EXPECT_TRUE(waitUntil([this] { return rename("precious", "way"); }));
        waitUntil([&] { return isOver.load(); });
        EXPECT_TRUE(waitUntil([this] { return rename("way", "precious"); }));
        EXPECT_TRUE(waitUntil([this] { return rename("away", "way"); }));
        return true;
    }

    ScratchTree scratch_;
    WindowsShell32 shell_;
};

// In the trap the same name is a link to a folder, which no order goes through: what lies beyond it
// can only be reached when the folders are swapped between the look and the shell's own way.
TEST_F(WindowsRecyclingRace, AnotherFolderInThePlaceLosesNothing) {
    constexpr int swapRounds = 100;
    constexpr std::uint16_t withoutAsking =
        file_operation::silent | file_operation::noConfirmation | file_operation::noErrorBox;
    makeFolder(in("way"));
    makeFolder(in("precious"));
    makeFolder(in("treasure"));
    makeFile(in("treasure\\gold.txt"), "keep me");
    const Link link(in("precious"), "one", "..\\treasure");
    if (!link) GTEST_SKIP() << "no links";
    int removed = 0;
    int swaps = 0;
    for (int round = 0; round < swapRounds && isThere(in("treasure\\gold.txt")); ++round) {
        if (!isThere(in("way\\one"))) makeFile(in("way\\one"), "x");
        std::atomic<bool> isReady = false;
        std::atomic<bool> isOver = false;
        std::thread swapper([&] {
            isReady = true;
            if (swapDuring(isOver, round * 12)) ++swaps;
        });
        waitUntil([&] { return isReady.load(); });
        const auto code = shell_.SHFileOperationA(
            {"Form1", file_operation::remove, in("way\\one"), withoutAsking});
        if (code == 0) ++removed;
        isOver = true;
        swapper.join();
    }
    std::cout << swaps << " swaps, " << removed << " removed\n";
    EXPECT_TRUE(link);
    EXPECT_EQ(treeOf(in("treasure")), (std::vector<std::string>{"\\gold.txt file 7 [keep me]"}));
}

}  // namespace
}  // namespace velmora::windows
