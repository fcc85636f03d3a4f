// Which folder holds what the program saves.
#include "platform/data_folder.h"

#include <gtest/gtest.h>

namespace velmora::tests {
namespace {

TEST(DataFolder, IsTheProgramsOwnUnlessItWasInstalledForAllUsers) {
    EXPECT_EQ(chooseDataFolder({.program = "/p", .ofUser = "/u"}), "/p");
    EXPECT_EQ(chooseDataFolder({.program = "/p", .ofUser = "/u", .isInstalled = true}), "/u");
}

TEST(DataFolder, TheChosenOneComesFirst) {
    EXPECT_EQ(chooseDataFolder({.program = "/p", .chosen = "/c", .ofUser = "/u"}), "/c");
    EXPECT_EQ(
        chooseDataFolder({.program = "/p", .chosen = "/c", .ofUser = "/u", .isInstalled = true}),
        "/c");
}

// Otherwise one user's settings would be the first ones of all others.
TEST(DataFolder, AUserWithoutOneHasNotTheProgramsOwn) {
    EXPECT_EQ(chooseDataFolder({.program = "/p", .isInstalled = true}), "");
}

}  // namespace
}  // namespace velmora::tests
