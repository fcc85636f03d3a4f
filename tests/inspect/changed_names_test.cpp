// The snapshot of a folder, and the entries that came and went since.
#include <chrono>

#include "inspect/wait_rig.h"

namespace velmora::tests {
namespace {

std::string line(const std::string& rest) {
    return "Change Type: Name\r\n  C:\\data\\" + rest + "\r\n";
}

TEST(FolderSnapshot, HoldsEveryEntryInTheOrderOfTheListing) {
    WaitRig rig;
    rig.addFolder(".");
    rig.add("z.txt", 7, 6);
    rig.add("a.txt");
    rig.snapshot();
    ASSERT_EQ(rig.waitTest.aFiles.size(), 3u);
    EXPECT_EQ(rig.waitTest.aFiles[0].cFileName, ".");
    EXPECT_EQ(rig.waitTest.aFiles[0].dwFileAttributes, 16u);
    const FindData& file = rig.waitTest.aFiles[1];
    EXPECT_EQ(file.cFileName, "z.txt");
    EXPECT_EQ(file.dwFileAttributes, 32u);
    EXPECT_EQ(file.ftLastWriteTime, 7u);
    EXPECT_EQ(file.ftCreationTime, 6u);
    EXPECT_EQ(file.ftLastAccessTime, referenceTime + 77);
    EXPECT_EQ(file.nFileSize, 5u);
    EXPECT_EQ(rig.waitTest.aFiles[2].cFileName, "a.txt");
}

TEST(FolderSnapshot, NamesAreCutAtTheirFirstNul) {
    WaitRig rig;
    rig.add(std::string("a.txt\0zzz", 9));
    rig.snapshot();
    EXPECT_EQ(rig.waitTest.aFiles[0].cFileName, "a.txt");
}

TEST(FolderSnapshot, OfAFolderThatCantBeReadIsOneEmptyEntry) {
    WaitRig rig;
    rig.waitTest.prcSnapshotDir("C:\\missing");
    ASSERT_EQ(rig.waitTest.aFiles.size(), 1u);
    EXPECT_EQ(rig.waitTest.aFiles[0].cFileName, "");
    EXPECT_EQ(rig.waitTest.aFiles[0].dwFileAttributes, 0u);
}

TEST(FolderSnapshot, TakesThePlaceOfTheOneBefore) {
    WaitRig rig;
    rig.add("a.txt");
    rig.add("b.txt");
    rig.snapshot();
    rig.entries.pop_back();
    rig.snapshot();
    ASSERT_EQ(rig.waitTest.aFiles.size(), 1u);
    rig.waitTest.prcSnapshotDir("C:\\missing");
    EXPECT_EQ(rig.waitTest.aFiles.size(), 1u);
    EXPECT_EQ(rig.waitTest.aFiles[0].cFileName, "");
}

TEST(FolderSnapshot, HoldsExactlyTheEntriesUsedAroundEveryStepOfItsGrowth) {
    for (const int count : {1, 100, 101, 102, 200, 201, 202, 301, 302, 1000}) {
        SCOPED_TRACE(count);
        WaitRig rig;
        for (int i = 0; i < count; ++i) rig.add("file " + std::to_string(i));
        rig.snapshot();
        ASSERT_EQ(rig.waitTest.aFiles.size(), static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            ASSERT_EQ(rig.waitTest.aFiles[static_cast<std::size_t>(i)].cFileName,
                      "file " + std::to_string(i));
        }
        EXPECT_EQ(rig.machine.openListings, 0);
    }
}

TEST(FolderSnapshot, ATrailingBackSlashIsntDoubled) {
    WaitRig rig;
    rig.add("a.txt");
    rig.waitTest.prcSnapshotDir("C:\\data\\");
    EXPECT_EQ(rig.machine.log.calls().front(), "FindFirstFileA C:\\data\\*.*");
    EXPECT_EQ(rig.waitTest.aFiles[0].cFileName, "a.txt");
}

TEST(FolderSnapshot, SurvivesEveryFailureOfTheListingsGoingOn) {
    for (int n = 2; n <= 5; ++n) {
        SCOPED_TRACE(n);
        WaitRig rig;
        for (const char* name : {"1", "2", "3"}) rig.add(name);
        rig.machine.log.failCall(n, 5);
        rig.waitTest.prcSnapshotDir("C:\\data");
        EXPECT_EQ(rig.waitTest.aFiles.size(), 3u);
        EXPECT_EQ(rig.machine.openListings, 0);
    }
}

TEST(FolderSnapshot, StaysWhenTakingANewOneBreaksOff) {
    WaitRig rig;
    rig.add("a.txt");
    rig.snapshot();
    rig.machine.onCall = [](const std::string& call) {
        if (call == "FindNextFileA") throw std::bad_alloc();
    };
    EXPECT_THROW(rig.waitTest.prcSnapshotDir("C:\\data"), std::bad_alloc);
    EXPECT_EQ(rig.waitTest.aFiles.size(), 1u);
    EXPECT_EQ(rig.waitTest.aFiles[0].cFileName, "a.txt");
    EXPECT_EQ(rig.machine.openListings, 0);
}

TEST(ChangedNames, NothingCameOrWentGivesAnEmptyText) {
    WaitRig rig;
    rig.add("a.txt");
    rig.addFolder("sub");
    rig.snapshot();
    rig.entries[0].ftLastWriteTime += 50;
    EXPECT_EQ(rig.changedNames(), "");
}

TEST(ChangedNames, AFolderThatCantBeReadGivesAnEmptyText) {
    WaitRig rig;
    rig.add("a.txt");
    rig.snapshot();
    EXPECT_EQ(rig.waitTest.fFindChangedNames("C:\\missing", 1), "");
    rig.machine.log.failCall(1, 5);
    EXPECT_EQ(rig.changedNames(), "");
    EXPECT_EQ(rig.machine.openListings, 0);
}

TEST(ChangedNames, ANewFileIsReported) {
    WaitRig rig;
    rig.add("a.txt");
    rig.snapshot();
    rig.add("b.txt");
    EXPECT_EQ(rig.changedNames(), line("b.txt"));
}

TEST(ChangedNames, ANewFolderIsMarked) {
    WaitRig rig;
    rig.add("a.txt");
    rig.snapshot();
    rig.addFolder("sub");
    EXPECT_EQ(rig.changedNames(), line("sub  [Dir]"));
}

TEST(ChangedNames, AnEntryThatWentIsReported) {
    WaitRig rig;
    rig.add("a.txt");
    rig.add("b.txt");
    rig.snapshot();
    rig.entries.pop_back();
    EXPECT_EQ(rig.changedNames(), line("b.txt  [Deleted]"));
}

TEST(ChangedNames, AFolderThatWentIsMarkedAsOne) {
    WaitRig rig;
    rig.add("a.txt");
    rig.addFolder("sub");
    rig.snapshot();
    rig.entries.pop_back();
    EXPECT_EQ(rig.changedNames(), line("sub  [Deleted] [Dir]"));
}

TEST(ChangedNames, OtherAttributesBesideThatOfAFolderDontMatter) {
    WaitRig rig;
    rig.add("a.txt");
    rig.snapshot();
    rig.add("hidden", 5, 5, 2 | 16 | 1024);
    rig.add("file", 5, 5, 2 | 32);
    EXPECT_EQ(rig.changedNames(), line("hidden  [Dir]") + line("file"));
}

TEST(ChangedNames, NewOnesComeFirstInTheListingsOrderAndGoneOnesInTheSnapshots) {
    WaitRig rig;
    for (const char* name : {"z", "keep", "a"}) rig.add(name);
    rig.snapshot();
    rig.entries.clear();
    for (const char* name : {"y", "keep", "b"}) rig.add(name);
    EXPECT_EQ(rig.changedNames(),
              line("y") + line("b") + line("z  [Deleted]") + line("a  [Deleted]"));
}

TEST(ChangedNames, ARenamedFileIsANewOneAndAGoneOne) {
    WaitRig rig;
    rig.add("before.txt");
    rig.snapshot();
    rig.entries[0].cFileName = "after.txt";
    EXPECT_EQ(rig.changedNames(), line("after.txt") + line("before.txt  [Deleted]"));
}

TEST(ChangedNames, NamesAreComparedExactlyWithTheirCase) {
    WaitRig rig;
    rig.add("Read.Me");
    rig.snapshot();
    rig.entries[0].cFileName = "read.me";
    EXPECT_EQ(rig.changedNames(), line("read.me") + line("Read.Me  [Deleted]"));
}

TEST(ChangedNames, WhatFollowsANulIsNoPartOfAName) {
    WaitRig rig;
    rig.add(std::string("a.txt\0one", 9));
    rig.snapshot();
    rig.entries[0].cFileName = std::string("a.txt\0two", 9);
    EXPECT_EQ(rig.changedNames(), "");
    rig.add(std::string("b.txt\0x", 7));
    EXPECT_EQ(rig.changedNames(), line("b.txt"));
}

TEST(ChangedNames, TheReportedNameIsTrimmedButNotTheComparedOne) {
    WaitRig rig;
    rig.add(" a ");
    rig.snapshot();
    EXPECT_EQ(rig.changedNames(), "");
    rig.entries[0].cFileName = "a";
    EXPECT_EQ(rig.changedNames(), line("a") + line("a  [Deleted]"));
    rig.entries[0].cFileName = " b ";
    EXPECT_EQ(rig.changedNames(), line("b") + line("a  [Deleted]"));
}

TEST(ChangedNames, OfEqualNamesInTheSnapshotOnlyTheFirstIsSeen) {
    WaitRig rig;
    rig.add("twin");
    rig.add("other");
    rig.addFolder("twin");
    rig.snapshot();
    rig.entries.pop_back();
    // The folder is the second of that name.
    EXPECT_EQ(rig.changedNames(), line("twin  [Deleted] [Dir]"));
    rig.add("twin");
    EXPECT_EQ(rig.changedNames(), line("twin  [Deleted] [Dir]"));
}

TEST(ChangedNames, WithoutASnapshotEveryEntryIsNew) {
    WaitRig rig;
    rig.addFolder(".");
    rig.add("a.txt");
    EXPECT_EQ(rig.changedNames(), line(".  [Dir]") + line("a.txt"));
}

TEST(ChangedNames, TheEmptyEntryOfAFailedSnapshotIsReportedAsGone) {
    WaitRig rig;
    rig.waitTest.prcSnapshotDir("C:\\missing");
    rig.add("a.txt");
    EXPECT_EQ(rig.changedNames(), line("a.txt") + line("  [Deleted]"));
}

TEST(ChangedNames, TheKindOfChangeIsGivenByItsWords) {
    WaitRig rig;
    rig.add("a.txt");
    EXPECT_EQ(rig.changedNames(change::name | change::dirName),
              "Change Type: Name & Dir Name\r\n  C:\\data\\a.txt\r\n");
}

TEST(ChangedNames, TheSnapshotItselfStays) {
    WaitRig rig;
    rig.add("a.txt");
    rig.snapshot();
    rig.add("b.txt");
    rig.changedNames();
    EXPECT_EQ(rig.waitTest.aFiles.size(), 1u);
}

TEST(ChangedNames, EveryCallOfTheListingMayFailAndNoListingStaysOpen) {
    const auto run = [](int n, int& calls) {
        WaitRig rig;
        for (const char* name : {"1", "2"}) rig.add(name);
        rig.snapshot();
        rig.entries.erase(rig.entries.begin());
        rig.add("3");
        if (n > 0) rig.machine.log.failCall(n, 5);
        const std::string report = rig.changedNames();
        calls = rig.machine.log.count();
        EXPECT_EQ(rig.machine.openListings, 0);
        return report;
    };
    int calls = 0;
    const std::string all = line("3") + line("1  [Deleted]");
    ASSERT_EQ(run(0, calls), all);
    const int questions = calls;
    ASSERT_EQ(questions, 4);
    for (int n = 1; n <= questions; ++n) {
        SCOPED_TRACE(n);
        EXPECT_EQ(run(n, calls), n == 1 ? "" : all);
    }
}

TEST(ChangedNames, ABigFolderIsComparedInTimeThatGrowsWithItAlone) {
    const auto seconds = [](int count) {
        WaitRig rig;
        for (int i = 0; i < count; ++i)
            rig.add("a rather long name of a file " + std::to_string(i));
        rig.snapshot();
        rig.entries.front().cFileName = "new";
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(rig.changedNames(),
                  line("new") + line("a rather long name of a file 0  [Deleted]"));
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    const double small = seconds(2000);
    // 32 times as many entries; comparing each with each would take 1024 times as long.
    EXPECT_LT(seconds(64000), 32 * small * 12);
}

TEST(ChangedNames, APathWithATrailingBackSlashIsNotDoubled) {
    WaitRig rig;
    rig.add("a.txt");
    rig.snapshot();
    rig.add("b.txt");
    rig.machine.log.clear();
    EXPECT_EQ(rig.waitTest.fFindChangedNames("C:\\data\\", 1), line("b.txt"));
    EXPECT_EQ(rig.machine.log.countOf("FindFirstFileA C:\\data\\*.*"), 1);
}

}  // namespace
}  // namespace velmora::tests
