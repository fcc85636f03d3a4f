#include "persist/recovery/kept_files.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "fake/fake_user_state.h"

namespace velmora::tests {
namespace {

struct KeptFilesTest : testing::Test {
    void keep(std::initializer_list<const char*> contents) {
        for (const char* each : contents) files.keep(each);
    }
    /// The contents, the newest first.
    std::string all() {
        std::string contents;
        for (const auto& each : files.newestFirst()) contents += each.content;
        return contents;
    }
    fake::FakeUserState state;
    KeptFiles files{state, "kept"};
};

TEST_F(KeptFilesTest, TheNewestFiveAreKeptUnderTheirNumbers) {
    keep({"1", "2", "3", "4", "5", "6"});
    EXPECT_EQ(all(), "65432");
    EXPECT_EQ(state.read("kept-1.dat"), "6");
    EXPECT_EQ(state.read("kept-5.dat"), "2");
    EXPECT_EQ(state.kept.size(), 5u);
}

TEST_F(KeptFilesTest, ThePlaceOfWhatIsKeptIsGiven) {
    EXPECT_EQ(files.keep("a"), "the user's kept-1.dat");
    EXPECT_EQ(files.keep("a"), "the user's kept-1.dat");
    EXPECT_EQ(files.keep("b"), "the user's kept-1.dat");
    EXPECT_EQ(files.newestFirst()[1].place, "the user's kept-2.dat");
}

TEST_F(KeptFilesTest, WhatIsKeptAlreadyComesToTheFrontAndTakesNoOthersPlace) {
    keep({"1", "2", "3", "4", "5"});
    const int writes = state.writes;
    keep({"2"});
    EXPECT_EQ(all(), "25431");
    keep({"1"});
    EXPECT_EQ(all(), "12543");
    keep({"1", "2", "5", "4", "3"});
    EXPECT_EQ(all(), "34521");
    EXPECT_EQ(state.writes, writes) << "for which no room is needed";
    EXPECT_EQ(state.kept.size(), 5u);
}

TEST_F(KeptFilesTest, WithoutRoomAllStayAsTheyWere) {
    for (const char* before : {"", "1", "12345"}) {
        state.kept.clear();
        state.writesUntilFull.reset();
        for (const char* each = before; *each != '\0'; ++each) files.keep(std::string(1, *each));
        const auto kept = state.kept;
        state.writesUntilFull = state.writes;
        EXPECT_EQ(files.keep("new"), "");
        EXPECT_EQ(state.kept, kept) << before;
    }
}

TEST_F(KeptFilesTest, AnEndAfterAnyStepLosesNothingButTheOldest) {
    for (int steps = 0; steps <= 5; ++steps) {
        state.kept.clear();
        state.movesUntilStuck.reset();
        keep({"1", "2", "3", "4", "5"});
        state.movesUntilStuck = state.moves + steps;
        const std::string place = files.keep("6");
        EXPECT_EQ(all(), steps == 0 ? "654321" : "65432") << steps;
        EXPECT_EQ(place, steps == 5 ? "the user's kept-1.dat" : "the user's kept-0.dat");
        state.movesUntilStuck.reset();
        keep({"7"});
        EXPECT_EQ(all(), "76543") << steps;
        EXPECT_EQ(state.kept.size(), 5u);
    }
}

TEST_F(KeptFilesTest, OneThatIsOnItsWayIsFoundAsKept) {
    keep({"1", "2", "3"});
    for (int steps = 0; steps <= 3; ++steps) {
        state.movesUntilStuck = state.moves + steps;
        keep({"1"});
        EXPECT_EQ(all().size(), 3u) << steps;
        state.movesUntilStuck.reset();
        keep({"1"});
        EXPECT_EQ(all(), "132") << steps;
        keep({"2", "3"});
        keep({"2"});
        keep({"3"});
        EXPECT_EQ(all(), "321");
    }
}

TEST_F(KeptFilesTest, WhileOneCantComeToItsPlaceNoOtherIsKept) {
    keep({"1"});
    state.movesUntilStuck = state.moves;
    keep({"2"});
    EXPECT_EQ(all(), "21");
    EXPECT_EQ(files.keep("3"), "");
    EXPECT_EQ(all(), "21");
}

}  // namespace
}  // namespace velmora::tests
