// Entries of a folder that are newer than the reference.
#include "inspect/wait_rig.h"

namespace velmora::tests {
namespace {

using Calls = std::vector<std::string>;

TEST(ChangedTimes, AFolderWithNothingNewerGivesAnEmptyText) {
    WaitRig rig;
    rig.addFolder(".");
    rig.addFolder("..");
    rig.add("old.txt", 5, 5);
    rig.add("same.txt", referenceTime, referenceTime);
    EXPECT_EQ(rig.changedTimes(), "");
}

TEST(ChangedTimes, AFolderThatCantBeReadGivesAnEmptyText) {
    WaitRig rig;
    EXPECT_EQ(rig.changedTimes("C:\\missing"), "");
    EXPECT_EQ(rig.changedTimes("D:\\"), "");
    EXPECT_EQ(rig.changedTimes(""), "");
    EXPECT_EQ(rig.machine.openListings, 0);
    EXPECT_EQ(rig.machine.log.countOf("FindNextFileA"), 0);
    EXPECT_EQ(rig.machine.log.countOf("FindClose"), 0);
}

TEST(ChangedTimes, AnEmptyFolderGivesAnEmptyText) {
    WaitRig rig;
    EXPECT_EQ(rig.changedTimes(), "");
    EXPECT_EQ(rig.machine.openListings, 0);
}

TEST(ChangedTimes, AnEntryWrittenLaterIsReportedAsLastWrite) {
    WaitRig rig;
    rig.add("new.txt", referenceTime + 1, 5);
    EXPECT_EQ(rig.changedTimes(), "Change Type: Last Write\r\n  C:\\data\\new.txt\r\n");
}

TEST(ChangedTimes, AnEntryWhoseCreationTimeAloneIsLaterIsReported) {
    WaitRig rig;
    rig.add("copied.txt", 5, referenceTime + 1);
    EXPECT_EQ(rig.changedTimes(), "Change Type: Last Write\r\n  C:\\data\\copied.txt\r\n");
}

TEST(ChangedTimes, AnEntryOfWhichBothTimesAreLaterIsReportedOnce) {
    WaitRig rig;
    rig.add("new.txt", referenceTime + 1, referenceTime + 1);
    EXPECT_EQ(rig.changedTimes(), "Change Type: Last Write\r\n  C:\\data\\new.txt\r\n");
}

TEST(ChangedTimes, TheTimeOfTheLastAccessDoesntCount) {
    WaitRig rig;
    rig.add("read.txt");
    ASSERT_GT(rig.entries[0].ftLastAccessTime, referenceTime);
    EXPECT_EQ(rig.changedTimes(), "");
}

TEST(ChangedTimes, TheFolderItselfAndItsParentAreReportedLikeAnyOther) {
    WaitRig rig;
    rig.addFolder(".", referenceTime + 1);
    rig.addFolder("..", referenceTime + 2);
    rig.addFolder("sub", referenceTime + 3);
    EXPECT_EQ(rig.changedTimes(),
              "Change Type: Last Write\r\n  C:\\data\\.\r\n"
              "Change Type: Last Write\r\n  C:\\data\\..\r\n"
              "Change Type: Last Write\r\n  C:\\data\\sub\r\n");
}

TEST(ChangedTimes, NothingBelowASubfolderIsLookedAt) {
    WaitRig rig;
    rig.addFolder("sub");
    rig.machine.folders.insert("c:\\data\\sub");
    rig.machine.listings["C:\\data\\sub"] = {{.ftLastWriteTime = 9999, .cFileName = "deep.txt"}};
    EXPECT_EQ(rig.changedTimes(), "");
    EXPECT_EQ(rig.machine.log.calls(),
              (Calls{"FindFirstFileA C:\\data\\*.*", "FindNextFileA", "FindClose"}));
}

TEST(ChangedTimes, ATrailingBackSlashIsntDoubled) {
    WaitRig rig;
    rig.add("new.txt", referenceTime + 1);
    EXPECT_EQ(rig.changedTimes("C:\\data\\"), "Change Type: Last Write\r\n  C:\\data\\new.txt\r\n");
    EXPECT_EQ(rig.machine.log.calls().front(), "FindFirstFileA C:\\data\\*.*");
}

TEST(ChangedTimes, TheRootOfADriveIsListedByItsOwnBackSlash) {
    WaitRig rig;
    rig.machine.listings["C:"] = {{.ftLastWriteTime = 9999, .cFileName = "boot.ini"}};
    EXPECT_EQ(rig.changedTimes("C:\\"), "Change Type: Last Write\r\n  C:\\boot.ini\r\n");
    EXPECT_EQ(rig.machine.log.calls().front(), "FindFirstFileA C:\\*.*");
}

TEST(ChangedTimes, TwoChangesBetweenTwoScansGiveTwoBlocksInTheOrderOfTheListing) {
    WaitRig rig;
    rig.add("z.txt", referenceTime + 9);
    rig.add("m.txt");
    rig.add("a.txt", referenceTime + 1);
    EXPECT_EQ(rig.changedTimes(),
              "Change Type: Last Write\r\n  C:\\data\\z.txt\r\n"
              "Change Type: Last Write\r\n  C:\\data\\a.txt\r\n");
}

TEST(ChangedTimes, ANameEndsAtItsFirstNul) {
    WaitRig rig;
    rig.add(std::string("new.txt\0left over\0", 18), referenceTime + 1);
    EXPECT_EQ(rig.changedTimes(), "Change Type: Last Write\r\n  C:\\data\\new.txt\r\n");
}

TEST(ChangedTimes, BlanksAroundANameStay) {
    WaitRig rig;
    rig.add(" new .txt", referenceTime + 1);
    EXPECT_EQ(rig.changedTimes(), "Change Type: Last Write\r\n  C:\\data\\ new .txt\r\n");
}

TEST(ChangedTimes, TheFirstAndTheLastEntryCountLikeThoseBetween) {
    WaitRig rig;
    for (const char* name : {"1", "2", "3"}) rig.add(name, referenceTime + 1);
    EXPECT_EQ(rig.changedTimes(),
              "Change Type: Last Write\r\n  C:\\data\\1\r\n"
              "Change Type: Last Write\r\n  C:\\data\\2\r\n"
              "Change Type: Last Write\r\n  C:\\data\\3\r\n");
}

TEST(ChangedTimes, TheCallersNewestTimeStaysAsItIs) {
    WaitRig rig;
    rig.add("new.txt", referenceTime + 1);
    for (const std::uint64_t before : {std::uint64_t{0}, std::uint64_t{5000}}) {
        std::uint64_t newest = before;
        EXPECT_NE(rig.waitTest.fFindChangedTimes("C:\\data", referenceTime, newest, 4), "");
        EXPECT_EQ(newest, before);
    }
}

TEST(ChangedTimes, TheScanLeavesTheReferenceAlone) {
    WaitRig rig;
    rig.add("new.txt", referenceTime + 1);
    rig.changedTimes();
    EXPECT_EQ(rig.forms.globals.lastFileTime, referenceTime);
}

TEST(ChangedTimes, TheKindOfChangeIsGivenByItsWords) {
    WaitRig rig;
    rig.add("new.txt", referenceTime + 1);
    std::uint64_t newest = 0;
    EXPECT_EQ(rig.waitTest.fFindChangedTimes("C:\\data", referenceTime, newest, 7),
              "Change Type: Name & Size & Last Write\r\n  C:\\data\\new.txt\r\n");
}

TEST(ChangedTimes, AnErrorThatIsntTheEndMakesTheScanTryAgain) {
    for (const int code : {5, 21, 1117}) {
        for (int n = 2; n <= 4; ++n) {
            SCOPED_TRACE(std::to_string(code) + " at call " + std::to_string(n));
            WaitRig rig;
            for (const char* name : {"1", "2", "3"}) rig.add(name, referenceTime + 1);
            rig.machine.log.failCall(n, code);
            EXPECT_EQ(rig.changedTimes(),
                      "Change Type: Last Write\r\n  C:\\data\\1\r\n"
                      "Change Type: Last Write\r\n  C:\\data\\2\r\n"
                      "Change Type: Last Write\r\n  C:\\data\\3\r\n");
            EXPECT_EQ(rig.machine.log.countOf("FindNextFileA"), 4);
            EXPECT_EQ(rig.machine.openListings, 0);
        }
    }
}

TEST(ChangedTimes, TheEndOfTheListIsErrorEighteen) {
    WaitRig rig;
    for (const char* name : {"1", "2", "3"}) rig.add(name, referenceTime + 1);
    rig.machine.log.failCall(3, 18);
    EXPECT_EQ(rig.changedTimes(),
              "Change Type: Last Write\r\n  C:\\data\\1\r\n"
              "Change Type: Last Write\r\n  C:\\data\\2\r\n");
    EXPECT_EQ(rig.machine.openListings, 0);
}

TEST(ChangedTimes, AFailedFirstCallGivesAnEmptyTextAndAsksNoMore) {
    WaitRig rig;
    rig.add("new.txt", referenceTime + 1);
    rig.machine.log.failCall(1, 5);
    EXPECT_EQ(rig.changedTimes(), "");
    EXPECT_EQ(rig.machine.log.count(), 1);
}

TEST(ChangedTimes, TheListingIsClosedWhenAScanBreaksOff) {
    WaitRig rig;
    for (const char* name : {"1", "2"}) rig.add(name, referenceTime + 1);
    rig.machine.onCall = [](const std::string& call) {
        if (call == "FindNextFileA") throw std::bad_alloc();
    };
    EXPECT_THROW(rig.changedTimes(), std::bad_alloc);
    EXPECT_EQ(rig.machine.openListings, 0);
}

TEST(ChangedTimes, AScanIsOnePass) {
    WaitRig rig;
    for (int i = 0; i < 250; ++i) rig.add(std::to_string(i));
    rig.changedTimes();
    EXPECT_EQ(rig.machine.log.countOf("FindFirstFileA"), 1);
    EXPECT_EQ(rig.machine.log.countOf("FindNextFileA"), 250);
    EXPECT_EQ(rig.machine.log.countOf("FindClose"), 1);
    EXPECT_EQ(rig.machine.log.count(), 252);
}

TEST(StripNulls, GivesTheTextUpToTheFirstNulOrAllOfIt) {
    EXPECT_EQ(StripNulls("name"), "name");
    EXPECT_EQ(StripNulls(std::string("name\0\0", 6)), "name");
    EXPECT_EQ(StripNulls(std::string("a\0b\0c", 5)), "a");
    EXPECT_EQ(StripNulls(std::string("\0name", 5)), "");
    EXPECT_EQ(StripNulls(""), "");
}

TEST(ChangedTimes, ALongListingTellsHowFarItIs) {
    WaitRig rig;
    for (std::size_t i = 0; i < 2 * entriesBetweenProgress + 1; ++i) rig.add("old.txt");
    EXPECT_EQ(rig.changedTimes(), "");
    EXPECT_EQ(rig.host.listings,
              (std::vector<std::string>{"C:\\data 1", "C:\\data 65", "C:\\data 129"}));
}

}  // namespace
}  // namespace velmora::tests
