#include "machine_under_test.h"

namespace velmora::contract {
namespace {

class UserStateContract : public ContractTest {
  protected:
    UserState& state() { return platform().userState; }
};
INSTANTIATE_TEST_SUITE_P(Machines, UserStateContract, everyMachine(), nameOf);

TEST_P(UserStateContract, AtFirstNothingIsKept) {
    EXPECT_EQ(state().read("place"), std::nullopt);
}

TEST_P(UserStateContract, WhatWasWrittenIsReadByItsName) {
    EXPECT_TRUE(state().write("place", "1 2 3"));
    EXPECT_TRUE(state().write("notes-2.old_one", ""));
    EXPECT_EQ(state().read("place"), "1 2 3");
    EXPECT_EQ(state().read("notes-2.old_one"), "");
    EXPECT_EQ(state().read("notes"), std::nullopt);
}

TEST_P(UserStateContract, APlaceIsNamedByTheFile) {
    EXPECT_TRUE(state().placeOf("set-1.dat").ends_with("set-1.dat"));
}

TEST_P(UserStateContract, ANewContentTakesThePlaceOfTheOld) {
    for (const char* content : {"a long first content", "short", "", "again"}) {
        EXPECT_TRUE(state().write("place", content));
        EXPECT_EQ(state().read("place"), content);
    }
}

TEST_P(UserStateContract, WhatIsMovedTakesThePlaceOfTheOther) {
    EXPECT_TRUE(state().write("from", "new"));
    EXPECT_TRUE(state().write("to", "old"));
    EXPECT_TRUE(state().move("from", "to"));
    EXPECT_EQ(state().read("to"), "new");
    EXPECT_EQ(state().read("from"), std::nullopt);
    EXPECT_TRUE(state().move("to", "third"));
    EXPECT_EQ(state().read("third"), "new");
}

TEST_P(UserStateContract, AMoveThatFailsChangesNothing) {
    EXPECT_FALSE(state().move("from", "to"));
    EXPECT_TRUE(state().write("to", "old"));
    EXPECT_FALSE(state().move("from", "to"));
    EXPECT_FALSE(state().move("to", "../to"));
    EXPECT_FALSE(state().move("a/b", "to"));
    EXPECT_EQ(state().read("to"), "old");
}

TEST_P(UserStateContract, EveryByteIsKept) {
    std::string bytes;
    for (int round = 0; round < 9'000; ++round) {
        for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    }
    EXPECT_TRUE(state().write("bytes", bytes));
    EXPECT_TRUE(state().read("bytes") == bytes);
}

TEST_P(UserStateContract, AGreaterContentThanAllowedLeavesTheOld) {
    EXPECT_TRUE(state().write("place", "old"));
    EXPECT_FALSE(state().write("place", std::string(mostUserState + 1, 'x')));
    EXPECT_EQ(state().read("place"), "old");
}

TEST_P(UserStateContract, OnlyPlainNamesAreKept) {
    const std::string longest(64, 'n');
    EXPECT_TRUE(state().write(longest, "x"));
    EXPECT_EQ(state().read(longest), "x");
    const std::string refused[] = {"",
                                   ".",
                                   "..",
                                   ".hidden",
                                   "a.",
                                   "a/b",
                                   "a\\b",
                                   "../a",
                                   "a:b",
                                   "A",
                                   "a b",
                                   "\xc3\xa4",
                                   std::string("a\0b", 3),
                                   longest + 'n'};
    for (const std::string& name : refused) {
        EXPECT_FALSE(state().write(name, "x")) << name;
        EXPECT_EQ(state().read(name), std::nullopt) << name;
    }
}

}  // namespace
}  // namespace velmora::contract
