// Emptying the recycle bin and starting the disk cleaner.
#include "alerts/system_actions.h"

#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "fake/fake_machine.h"

namespace velmora::tests {
namespace {

struct Windows : User32 {
    std::string GetActiveWindow() override {
        if (fails) throw RuntimeError(error::invalidCall);
        return active;
    }
    std::string active;
    bool fails = false;
};

struct SystemActionsTest : testing::Test {
    fake::FakeMachine machine;
    Windows windows;
    Forms forms;
    SystemActions actions{forms, machine.platform(), windows};

    std::uint32_t flagsOf(std::int16_t noConfirmation, std::int16_t noProgress,
                          std::int16_t noSound) {
        actions.MakeRecycleBinEmpty("", noConfirmation, noProgress, noSound);
        return machine.emptied.back().flags;
    }
};

TEST_F(SystemActionsTest, AnEmptyDriveMeansTheBinsOfAllDrives) {
    actions.MakeRecycleBinEmpty("", 0, 0, 0);
    ASSERT_EQ(machine.emptied.size(), 1u);
    EXPECT_EQ(machine.emptied[0].root, "");
    EXPECT_EQ(machine.emptied[0].flags, 0u);
}

TEST_F(SystemActionsTest, ADriveIsTheFirstLetterOfItsText) {
    for (const auto& [drive, root] : std::initializer_list<std::pair<const char*, const char*>>{
             {"dat", "d:\\"}, {"C:\\", "C:\\"}, {"e", "e:\\"}}) {
        actions.MakeRecycleBinEmpty(drive, 0, 0, 0);
        EXPECT_EQ(machine.emptied.back().root, root);
    }
}

TEST_F(SystemActionsTest, EachSwitchCountsByItsOwnBit) {
    EXPECT_EQ(flagsOf(1, 0, 0), 1u);
    EXPECT_EQ(flagsOf(0, 2, 0), 2u);
    EXPECT_EQ(flagsOf(0, 0, 4), 4u);
    EXPECT_EQ(flagsOf(1, 2, 4), 7u);
    EXPECT_EQ(flagsOf(-1, -1, -1), 7u);
}

TEST_F(SystemActionsTest, ASwitchWithoutItsBitAsksForNothing) {
    EXPECT_EQ(flagsOf(0, 1, 0), 0u);
    EXPECT_EQ(flagsOf(1, 1, 1), 1u);
    EXPECT_EQ(flagsOf(6, 5, 3), 0u);
}

TEST_F(SystemActionsTest, TheWindowInFrontOwnsTheSystemsQuestion) {
    windows.active = "dlgAlert";
    actions.MakeRecycleBinEmpty("", 0, 0, 0);
    EXPECT_EQ(machine.emptied[0].owner, "dlgAlert");
}

TEST_F(SystemActionsTest, WithNoWindowInFrontItHasNoOwner) {
    actions.MakeRecycleBinEmpty("", 0, 0, 0);
    EXPECT_EQ(machine.emptied[0].owner, "");
}

TEST_F(SystemActionsTest, AnErrorOnTheWayIsPassedOverAndTheBinIsEmptiedAllTheSame) {
    windows.fails = true;
    EXPECT_NO_THROW(actions.MakeRecycleBinEmpty("D", 0, 0, 0));
    ASSERT_EQ(machine.emptied.size(), 1u);
    EXPECT_EQ(machine.emptied[0].owner, "");
}

TEST_F(SystemActionsTest, ARefusalOfTheSystemIsPassedOver) {
    machine.log.failCall(1, 15);
    EXPECT_NO_THROW(actions.MakeRecycleBinEmpty("D", 0, 0, 0));
    EXPECT_TRUE(machine.emptied.empty());
}

TEST_F(SystemActionsTest, TheCleanerIsStartedForTheMainWindowInANormalOne) {
    actions.prcCleanMan("", "");
    ASSERT_EQ(machine.executed.size(), 1u);
    EXPECT_EQ(machine.executed[0].owner, "Form1");
    EXPECT_EQ(machine.executed[0].verb, "open");
    EXPECT_EQ(machine.executed[0].file, "cleanmgr");
    EXPECT_EQ(machine.executed[0].directory, "");
    EXPECT_EQ(machine.executed[0].showCommand, 1);
}

TEST_F(SystemActionsTest, TheCleanersParametersAreTheDriveABlankAndTheSet) {
    const struct {
        const char* drive;
        const char* sage;
        const char* parameters;
    } cases[] = {{"C", "12", " /d C  /sagerun: 12"},
                 {"C:", "", " /d C: "},
                 {"", "12", "  /sagerun: 12"},
                 {"", "", " "}};
    for (const auto& each : cases) {
        actions.prcCleanMan(each.drive, each.sage);
        EXPECT_EQ(machine.executed.back().parameters, each.parameters);
    }
}

TEST_F(SystemActionsTest, ACleanerThatCantBeStartedIsNotLookedAt) {
    machine.executes = false;
    EXPECT_NO_THROW(actions.prcCleanMan("C", "12"));
}

}  // namespace
}  // namespace velmora::tests
