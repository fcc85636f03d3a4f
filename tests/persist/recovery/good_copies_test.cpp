#include "persist/recovery/good_copies.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <optional>
#include <string>

#include "base/text_sum.h"
#include "fake/fake_user_state.h"

namespace velmora::tests {
namespace {

constexpr const char* here = "/opt/velmora/";

struct GoodCopiesTest : testing::Test {
    using Present = std::optional<std::string>;
    std::string next(const Present& present = std::nullopt) {
        const auto copy = copies.next(present);
        return copy ? copy->content : "none";
    }
    /// Puts the next copy in place of what is there; its content.
    std::string putBack(const Present& present) {
        const std::string content = next(present);
        if (content != "none") copies.wasPutBack(content, present);
        return content;
    }
    void startWith(std::initializer_list<const char*> contents) {
        for (const char* each : contents) copies.keep(each);
    }
    fake::FakeUserState state;
    GoodCopies copies{state, here};
};

TEST_F(GoodCopiesTest, ThereIsNoneAtFirst) {
    EXPECT_EQ(next(), "none");
}

TEST_F(GoodCopiesTest, TheNewestIsFoundAndAnOlderOneWhenTheFileHoldsTheNewest) {
    startWith({"a", "b", "c"});
    EXPECT_EQ(next(), "c");
    EXPECT_EQ(next("broken"), "c");
    EXPECT_EQ(next("c"), "b");
    EXPECT_EQ(next("b"), "c");
}

TEST_F(GoodCopiesTest, FiveAreKept) {
    startWith({"1", "2", "3", "4", "5", "6", "7"});
    EXPECT_EQ(state.kept.size(), 5u);
    std::string all;
    for (const auto& [name, content] : state.kept) all += content;
    EXPECT_EQ(all, "76543") << "in the order of their names, the newest first";
}

TEST_F(GoodCopiesTest, TheSameOnceMoreKeepsNothing) {
    startWith({"a", "b"});
    const int writes = state.writes;
    copies.keep("b");
    EXPECT_EQ(state.writes, writes);
    EXPECT_EQ(next("b"), "a");
}

// A later version reads what this one has written.
TEST_F(GoodCopiesTest, WhatBecameOfThemIsAFileOfLines) {
    startWith({"a", "b"});
    copies.endedStart("b");
    EXPECT_EQ(putBack(std::nullopt), "a");
    EXPECT_EQ(state.kept["set-" + sumOfText(here) + "-turns.txt"],
              "passed " + sumOfText("a") + "\nended " + sumOfText("b") + "\n");
}

TEST_F(GoodCopiesTest, EachFolderHasItsOwn) {
    GoodCopies other(state, "/opt/Velmora/");
    copies.keep("a");
    other.keep("b");
    EXPECT_EQ(next(), "a");
    EXPECT_EQ(other.next(std::nullopt)->content, "b");
    EXPECT_EQ(GoodCopies(state, here).next(std::nullopt)->content, "a");
    EXPECT_FALSE(GoodCopies(state, "/srv/").next(std::nullopt));
}

TEST_F(GoodCopiesTest, ACopyTellsWhereItLies) {
    copies.keep("a");
    EXPECT_EQ(copies.next(std::nullopt)->place, "the user's " + state.kept.begin()->first);
}

TEST_F(GoodCopiesTest, GoingBackComesToOlderOnesAndNotForwardAgain) {
    startWith({"a", "b", "c", "d"});
    EXPECT_EQ(putBack("broken"), "d");
    EXPECT_EQ(putBack("d"), "c");
    EXPECT_EQ(putBack("c"), "b");
    EXPECT_EQ(putBack("b"), "a");
}

TEST_F(GoodCopiesTest, AStartWithWhatWasPutBackDoesNotEndTheWayBack) {
    startWith({"a", "b", "c"});
    EXPECT_EQ(putBack("broken"), "c");
    copies.keep("c");
    EXPECT_EQ(putBack("c"), "b");
    copies.keep("b");
    EXPECT_EQ(putBack("b"), "a");
    copies.keep("a");
}

TEST_F(GoodCopiesTest, NeitherDoesASaveInBetween) {
    startWith({"a", "b", "c"});
    EXPECT_EQ(putBack("broken"), "c");
    copies.keep("c");
    EXPECT_EQ(putBack("c, saved once more"), "b");
}

TEST_F(GoodCopiesTest, TheOneThatTheFileHeldHasHadItsTurnToo) {
    startWith({"a", "b", "c"});
    EXPECT_EQ(putBack("c"), "b");
    EXPECT_EQ(putBack("b"), "a");
}

TEST_F(GoodCopiesTest, BehindTheOldestItBeginsAnew) {
    startWith({"a", "b", "c"});
    for (const char* present : {"broken", "c", "b"}) putBack(present);
    EXPECT_EQ(putBack("a"), "c");
    EXPECT_EQ(putBack("c"), "b") << "a had its turn before it began anew";
}

TEST_F(GoodCopiesTest, AStartWithOtherSettingsEndsTheWayBack) {
    startWith({"a", "b", "c"});
    EXPECT_EQ(putBack("broken"), "c");
    EXPECT_EQ(putBack("c"), "b");
    copies.keep("b");
    copies.keep("new");
    EXPECT_EQ(next("broken"), "new");
    EXPECT_EQ(putBack("new"), "b") << "with which the program has started last";
}

TEST_F(GoodCopiesTest, AFailedStartWithOtherSettingsEndsItToo) {
    startWith({"a", "b", "c"});
    EXPECT_EQ(putBack("c"), "b");
    copies.keep("b");
    copies.endedStart("saved and broken");
    EXPECT_EQ(next("saved and broken"), "b");
}

TEST_F(GoodCopiesTest, ACopyThatEndedAStartIsNotOfferedAgain) {
    startWith({"a", "b", "c"});
    EXPECT_EQ(putBack("broken"), "c");
    copies.endedStart("c");
    EXPECT_EQ(putBack("c"), "b");
    copies.keep("b");
    EXPECT_EQ(putBack("b"), "a");
    EXPECT_EQ(next("a"), "b") << "all that is left";
    copies.keep("new");
    EXPECT_EQ(next("new"), "b");
    for (const char* present : {"new", "b", "a", "b"}) EXPECT_NE(putBack(present), "c");
}

TEST_F(GoodCopiesTest, WhenAllEndedAStartThereIsNone) {
    copies.keep("a");
    copies.endedStart("a");
    EXPECT_EQ(next("broken"), "none");
    EXPECT_EQ(next(), "none");
}

TEST_F(GoodCopiesTest, AStartThatSucceedsWithItAfterAllMakesItGoodAgain) {
    startWith({"a", "b"});
    copies.endedStart("b");
    EXPECT_EQ(next("x"), "a");
    copies.keep("b");
    EXPECT_EQ(next("x"), "b");
}

TEST_F(GoodCopiesTest, WhatIsNoCopyHasNoMark) {
    copies.keep("a");
    for (int i = 0; i < 100; ++i) copies.endedStart("broken " + std::to_string(i));
    EXPECT_EQ(state.kept.size(), 1u);
}

TEST_F(GoodCopiesTest, EachFolderHasItsOwnMarks) {
    GoodCopies other(state, "/srv/");
    copies.keep("a");
    other.keep("a");
    copies.endedStart("a");
    EXPECT_EQ(next(), "none");
    EXPECT_TRUE(other.next(std::nullopt));
}

TEST_F(GoodCopiesTest, WhatIsReplacedIsNoCopy) {
    EXPECT_TRUE(copies.keepReplaced("broken").ends_with("-replaced-1.dat"));
    EXPECT_EQ(next(), "none");
}

TEST_F(GoodCopiesTest, TheLastFiveThatWereReplacedAreKept) {
    for (const char* each : {"1", "2", "3", "4", "5", "6", "7"}) copies.keepReplaced(each);
    std::string all;
    for (const auto& [name, content] : state.kept) {
        EXPECT_TRUE(name.find("-replaced-") != name.npos) << name;
        all += content;
    }
    EXPECT_EQ(all, "76543");
}

TEST_F(GoodCopiesTest, ACopyThatIsReplacedIsKeptAlready) {
    startWith({"a", "b"});
    EXPECT_TRUE(copies.keepReplaced("a").ends_with("-2.dat"));
    EXPECT_EQ(state.kept.size(), 2u);
}

TEST_F(GoodCopiesTest, WithoutAFolderNothingIsKeptAndNothingFails) {
    state.hasFolder = false;
    copies.keep("a");
    copies.endedStart("a");
    EXPECT_EQ(next(), "none");
    EXPECT_EQ(copies.keepReplaced("broken"), "");
}

}  // namespace
}  // namespace velmora::tests
