#include "persist/recovery/good_copies.h"

#include <gtest/gtest.h>

#include "fake/fake_user_state.h"

namespace velmora::tests {
namespace {

constexpr const char* here = "C:\\Velmora\\set.dat";

struct GoodCopiesTest : testing::Test {
    std::string newest(const std::optional<std::string>& present = std::nullopt,
                       const char* of = here) {
        const auto copy = copies.newestOtherThan(of, present);
        return copy ? copy->content : "none";
    }
    fake::FakeUserState state;
    GoodCopies copies{state};
};

TEST_F(GoodCopiesTest, ThereIsNoneAtFirst) {
    EXPECT_EQ(newest(), "none");
}

TEST_F(GoodCopiesTest, TheNewestIsFoundAndAnOlderOneWhenTheFileHoldsTheNewest) {
    for (const char* each : {"a", "b", "c"}) copies.keep(here, each);
    EXPECT_EQ(newest(), "c");
    EXPECT_EQ(newest("broken"), "c");
    EXPECT_EQ(newest("c"), "b");
    EXPECT_EQ(newest("b"), "c");
}

TEST_F(GoodCopiesTest, FiveAreKept) {
    for (const char* each : {"1", "2", "3", "4", "5", "6", "7"}) copies.keep(here, each);
    EXPECT_EQ(state.kept.size(), 5u);
    std::string all;
    for (const auto& [name, content] : state.kept) all += content;
    EXPECT_EQ(all, "76543") << "in the order of their names, the newest first";
}

TEST_F(GoodCopiesTest, TheSameOnceMoreKeepsNothing) {
    copies.keep(here, "a");
    copies.keep(here, "b");
    const int writes = state.writes;
    copies.keep(here, "b");
    EXPECT_EQ(state.writes, writes);
    EXPECT_EQ(newest("b"), "a");
}

TEST_F(GoodCopiesTest, EachFileHasItsOwnInAnySpellingOfItsPath) {
    copies.keep(here, "a");
    copies.keep("D:\\set.dat", "b");
    EXPECT_EQ(newest(), "a");
    EXPECT_EQ(newest(std::nullopt, "D:\\set.dat"), "b");
    EXPECT_EQ(newest(std::nullopt, "c:\\VELMORA\\SET.DAT"), "a");
    EXPECT_EQ(newest(std::nullopt, "E:\\set.dat"), "none");
}

TEST_F(GoodCopiesTest, ACopyTellsWhereItLies) {
    copies.keep(here, "a");
    EXPECT_EQ(copies.newestOtherThan(here, std::nullopt)->place,
              "the user's " + state.kept.begin()->first);
}

TEST_F(GoodCopiesTest, WhatIsReplacedIsNoCopy) {
    EXPECT_TRUE(copies.keepReplaced(here, "broken").ends_with("-replaced.dat"));
    EXPECT_EQ(newest(), "none");
}

TEST_F(GoodCopiesTest, WithoutAFolderNothingIsKeptAndNothingFails) {
    state.hasFolder = false;
    copies.keep(here, "a");
    EXPECT_EQ(newest(), "none");
    EXPECT_EQ(copies.keepReplaced(here, "broken"), "");
}

}  // namespace
}  // namespace velmora::tests
