// Moving files and folders, with everything around them listed before and after.
#include "platform/windows/files/windows_kernel32.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/entries/entry_facts.h"
#include "platform/windows/support/other_drive.h"
#include "platform/windows/support/scratch_tree.h"

namespace velmora::windows {
namespace {

using tests::windows::byTheLetter;
using tests::windows::FileInUse;
using tests::windows::isThere;
using tests::windows::Link;
using tests::windows::makeFile;
using tests::windows::makeFolder;
using tests::windows::OtherDrive;
using tests::windows::ScratchTree;
using tests::windows::setAttributes;
using tests::windows::treeOf;

using Lines = std::vector<std::string>;

constexpr std::uint32_t missingFile = 2;
constexpr std::uint32_t missingFolder = 3;
constexpr std::uint32_t otherDrive = 17;
constexpr std::uint32_t existsAlready = 183;
constexpr std::uint32_t throughLink = 681;

class WindowsMove : public testing::Test {
  protected:
    void SetUp() override {
        makeFolder(in("from"));
        makeFile(in("from\\one.txt"), "one");
        makeFolder(in("from\\sub"));
        makeFile(in("from\\sub\\zwei Größe.txt"), "zwei");
        makeFolder(in("to"));
        makeFile(in("to\\there.txt"), "there");
    }

    std::string in(const std::string& name) const { return scratch_ / name; }
    Lines tree() const { return treeOf(scratch_.path()); }
    bool move(const std::string& from, const std::string& to) {
        return kernel32_.MoveFileA(from, to) == 1;
    }
    /// The error of the refused move; 0 when it was no refusal or left anything changed.
    std::uint32_t refusal(const std::string& from, const std::string& to) {
        const Lines before = tree();
        const bool isMoved = move(from, to);
        const bool isUntouched = tree() == before;
        return !isMoved && isUntouched ? kernel32_.GetLastError() : 0;
    }

    ScratchTree scratch_;
    WindowsKernel32 kernel32_;
};

TEST_F(WindowsMove, AFileGoesUnderItsNewName) {
    EXPECT_TRUE(move(in("from\\one.txt"), in("to\\new Größe.txt")));
    EXPECT_EQ(kernel32_.GetLastError(), 0u);
    EXPECT_EQ(tree(),
              (Lines{"\\from folder", "\\from\\sub folder",
                     "\\from\\sub\\zwei Größe.txt file 4 [zwei]", "\\to folder",
                     "\\to\\new Größe.txt file 3 [one]", "\\to\\there.txt file 5 [there]"}));
}

TEST_F(WindowsMove, AFolderGoesWithAllInIt) {
    EXPECT_TRUE(move(in("from"), in("to\\moved")));
    EXPECT_EQ(tree(),
              (Lines{"\\to folder", "\\to\\moved folder", "\\to\\moved\\one.txt file 3 [one]",
                     "\\to\\moved\\sub folder", "\\to\\moved\\sub\\zwei Größe.txt file 4 [zwei]",
                     "\\to\\there.txt file 5 [there]"}));
}

TEST_F(WindowsMove, AReadOnlyFileGoesAndStaysReadOnly) {
    setAttributes(in("from\\one.txt"), FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(move(in("from\\one.txt"), in("to\\one.txt")));
    EXPECT_TRUE(isThere(in("to\\one.txt")));
    EXPECT_FALSE(isThere(in("from\\one.txt")));
    EXPECT_NE(GetFileAttributesW(byTheLetter(in("to\\one.txt")).c_str()) & FILE_ATTRIBUTE_READONLY,
              0u);
}

TEST_F(WindowsMove, NothingIsMovedOntoWhatIsThere) {
    EXPECT_EQ(refusal(in("from\\one.txt"), in("to\\there.txt")), existsAlready);
    EXPECT_EQ(refusal(in("from\\one.txt"), in("to\\THERE.txt")), existsAlready);
    EXPECT_EQ(refusal(in("from\\one.txt"), in("to")), existsAlready);
    EXPECT_EQ(refusal(in("from\\one.txt"), in("to\\")), existsAlready);
    EXPECT_EQ(refusal(in("from"), in("to")), existsAlready);
    EXPECT_EQ(refusal(in("from\\one.txt"), in("from\\one.txt")), existsAlready);
    EXPECT_EQ(refusal(in("from"), in("from")), existsAlready);
    EXPECT_EQ(refusal(in("from\\one.txt"), R"(C:\)"), existsAlready);
    EXPECT_EQ(refusal(in("from\\one.txt"), "C:\\."), existsAlready);
}

TEST_F(WindowsMove, WhatIsNotThereIsNotMoved) {
    EXPECT_EQ(refusal(in("from\\missing"), in("to\\new")), missingFile);
    EXPECT_NE(refusal(in("missing\\one.txt"), in("to\\new")), 0u);
    EXPECT_NE(refusal(R"(Q:\one.txt)", in("to\\new")), 0u);
    EXPECT_NE(refusal("", in("to\\new")), 0u);
}

TEST_F(WindowsMove, NothingIsMovedIntoAMissingFolder) {
    EXPECT_NE(refusal(in("from\\one.txt"), in("missing\\one.txt")), 0u);
    EXPECT_NE(refusal(in("from\\one.txt"), in("to\\there.txt\\one.txt")), 0u);
    EXPECT_EQ(refusal(in("from\\one.txt"), R"(Q:\one.txt)"), missingFolder);
    EXPECT_NE(refusal(in("from\\one.txt"), ""), 0u);
}

TEST_F(WindowsMove, AFolderDoesNotGoIntoItself) {
    EXPECT_NE(refusal(in("from"), in("from\\inner")), 0u);
    EXPECT_NE(refusal(in("from"), in("from\\sub\\inner")), 0u);
}

TEST_F(WindowsMove, AFileInUseStays) {
    const FileInUse use(in("from\\one.txt"), FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(refusal(in("from\\one.txt"), in("to\\new.txt")), 32u);
}

TEST_F(WindowsMove, NamesAreTakenByTheLetter) {
    EXPECT_EQ(refusal(in("from\\one.txt."), in("to\\new")), missingFile);
    EXPECT_NE(refusal(in("from\\*.txt"), in("to\\new")), 0u);
    EXPECT_NE(refusal(in("from\\one.txt:x"), in("to\\new")), 0u);
    EXPECT_NE(refusal(in("from\\one.txt"), in("to\\new:x")), 0u);
    EXPECT_NE(refusal(in("from\\one.txt") + std::string("\0x", 2), in("to\\new")), 0u);
    EXPECT_NE(refusal(in("from\\one.txt"), in("to\\new") + std::string("\0x", 2)), 0u);
    makeFile(in("from\\one.txt."), "with a dot");
    EXPECT_TRUE(move(in("from\\one.txt."), in("to\\new")));
    EXPECT_EQ(contentsOf(in("to\\new")), "with a dot");
    EXPECT_EQ(contentsOf(in("from\\one.txt")), "one");
}

TEST_F(WindowsMove, PathsBeyondTheSystemsOldLimitWork) {
    const std::string outer = in("to\\" + std::string(200, 'a'));
    makeFolder(outer);
    const std::string path = outer + '\\' + std::string(200, 'b');
    EXPECT_TRUE(move(in("from\\one.txt"), path));
    EXPECT_TRUE(move(path, in("from\\back.txt")));
    EXPECT_EQ(contentsOf(in("from\\back.txt")), "one");
}

TEST_F(WindowsMove, NoLinkIsFollowedToEitherPath) {
    const Link link(scratch_.path(), "link", "to");
    if (!link) GTEST_SKIP() << "no links";
    EXPECT_EQ(refusal(in("from\\one.txt"), in("link\\one.txt")), throughLink);
    EXPECT_EQ(refusal(in("link\\there.txt"), in("from\\there.txt")), throughLink);
}

TEST_F(WindowsMove, ALinkIsMovedAsTheLink) {
    const Link link(in("from"), "link", "..\\to");
    if (!link) GTEST_SKIP() << "no links";
    // Below Wine it is one of the host's, which would move what it points to.
    if (isUnderWine()) {
        EXPECT_EQ(refusal(link.path(), in("moved")), throughLink);
        return;
    }
    EXPECT_TRUE(move(link.path(), in("moved")));
    EXPECT_TRUE(isThere(in("to\\there.txt")));
    EXPECT_TRUE(move(in("moved"), link.path()));
}

class WindowsMoveToOtherDrive : public WindowsMove {
  protected:
    void SetUp() override {
        WindowsMove::SetUp();
        if (!other_) GTEST_SKIP() << "no other drive";
    }
    EntryFacts factsOf(const std::string& path) {
        EntryFacts facts;
        EXPECT_EQ(readFacts(byTheLetter(path), facts), 0u);
        return facts;
    }

    OtherDrive other_;
};

TEST_F(WindowsMoveToOtherDrive, AFileGoesThereWithItsTimes) {
    const FILETIME written{123'456'789, 29'000'000};
    {
        const HANDLE file = CreateFileW(byTheLetter(in("from\\one.txt")).c_str(), GENERIC_WRITE, 0,
                                        nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_TRUE(SetFileTime(file, nullptr, nullptr, &written));
        CloseHandle(file);
    }
    const EntryFacts before = factsOf(in("from\\one.txt"));
    EXPECT_TRUE(move(in("from\\one.txt"), other_ / "new Größe.txt"));
    EXPECT_EQ(other_.tree(), (Lines{"\\new Größe.txt file 3 [one]"}));
    EXPECT_FALSE(isThere(in("from\\one.txt")));
    EXPECT_EQ(factsOf(other_ / "new Größe.txt").written, before.written);
    EXPECT_EQ(tree(), (Lines{"\\from folder", "\\from\\sub folder",
                             "\\from\\sub\\zwei Größe.txt file 4 [zwei]", "\\to folder",
                             "\\to\\there.txt file 5 [there]"}));
}

TEST_F(WindowsMoveToOtherDrive, AReadOnlyFileGoesThereToo) {
    setAttributes(in("from\\one.txt"), FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(move(in("from\\one.txt"), other_ / "one.txt"));
    EXPECT_EQ(other_.tree(), (Lines{"\\one.txt file read-only 3 [one]"}));
    EXPECT_FALSE(isThere(in("from\\one.txt")));
    setAttributes(other_ / "one.txt", FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsMoveToOtherDrive, NothingIsReplacedThere) {
    makeFile(other_ / "one.txt", "theirs");
    EXPECT_EQ(refusal(in("from\\one.txt"), other_ / "one.txt"), existsAlready);
    EXPECT_EQ(other_.tree(), (Lines{"\\one.txt file 6 [theirs]"}));
}

TEST_F(WindowsMoveToOtherDrive, AFileThatCanNotBeRemovedHereLeavesNoCopyThere) {
    {
        const FileInUse use(in("from\\one.txt"), FILE_SHARE_READ | FILE_SHARE_WRITE);
        EXPECT_NE(refusal(in("from\\one.txt"), other_ / "one.txt"), 0u);
        EXPECT_EQ(other_.tree(), Lines{});
    }
    EXPECT_TRUE(move(in("from\\one.txt"), other_ / "one.txt"));
}

TEST_F(WindowsMoveToOtherDrive, AFileThatSomebodyStillWritesStays) {
    const HANDLE writer = CreateFileW(byTheLetter(in("from\\one.txt")).c_str(), GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(writer, INVALID_HANDLE_VALUE);
    EXPECT_NE(refusal(in("from\\one.txt"), other_ / "one.txt"), 0u);
    EXPECT_EQ(other_.tree(), Lines{});
    CloseHandle(writer);
}

TEST_F(WindowsMoveToOtherDrive, AFolderStays) {
    EXPECT_EQ(refusal(in("from"), other_ / "from"), otherDrive);
    EXPECT_EQ(other_.tree(), Lines{});
}

TEST_F(WindowsMoveToOtherDrive, AMissingFolderThereTakesNothing) {
    EXPECT_NE(refusal(in("from\\one.txt"), other_ / "missing\\one.txt"), 0u);
    EXPECT_EQ(other_.tree(), Lines{});
}

}  // namespace
}  // namespace velmora::windows
