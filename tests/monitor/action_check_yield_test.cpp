// Other handlers run before each action. Even when they change the watch list, no action runs for a
// drive that isn't short of space.
#include <functional>

#include "monitor/action_check_rig.h"

namespace velmora::tests {
namespace {

// C: and F: have room, E: is short; a file is listed on each. `disturb` runs once, at the first
// yield after the shortage was reported.
struct DisturbedActions : ActionCheckRig {
    explicit DisturbedActions(int action) {
        drive("C:", 5000, 1'000'000);
        watch("E:\\", 5);
        for (const char* path : {"C:\\keep", "E:\\keep", "F:\\keep"}) listFile(path);
        tickAction(action);
    }
    void checkWith(const std::function<void()>& disturb) {
        bool disturbed = false;
        host.onYield = [&](int) {
            if (disturbed || alertCount() == 0) return;
            disturbed = true;
            disturb();
        };
        dueTick();
        host.onYield = nullptr;
        EXPECT_TRUE(disturbed);
    }
    void checkWithSort() {
        checkWith([this] { list.sortBy(0, 1); });
        EXPECT_EQ(list.ListItems(2).Text(), "C:\\");
    }
    void checkWithRemovedRow() {
        watch("F:\\", 5000);
        checkWith([this] { list.Remove(1); });
        EXPECT_EQ(list.ListItems(2).Text(), "F:\\");
    }
    void expectNothingDone() {
        expectEnded("Index out of bounds");
        EXPECT_EQ(alertCount(), 2);
        for (const char* path : {"C:\\keep", "E:\\keep", "F:\\keep"}) EXPECT_TRUE(exists(path));
        EXPECT_EQ(listed(), "C:\\keep E:\\keep F:\\keep");
        EXPECT_EQ(machine.log.countOf("MoveFileA"), 0);
        EXPECT_EQ(machine.log.countOf("ShellExecuteA"), 0);
    }
};

TEST(ActionCheckYield, ASortDuringTheYieldDeletesNoFileOfAnotherDrive) {
    DisturbedActions rig(act::remove);
    rig.checkWithSort();
    rig.expectNothingDone();
}

TEST(ActionCheckYield, ARowRemovedDuringTheYieldDeletesNoFileOfAnotherDrive) {
    DisturbedActions rig(act::remove);
    rig.checkWithRemovedRow();
    rig.expectNothingDone();
}

TEST(ActionCheckYield, ASortDuringTheYieldMovesNoFileOfAnotherDrive) {
    DisturbedActions rig(act::move);
    rig.checkWithSort();
    rig.expectNothingDone();
}

TEST(ActionCheckYield, ARowRemovedDuringTheYieldMovesNoFileOfAnotherDrive) {
    DisturbedActions rig(act::move);
    rig.checkWithRemovedRow();
    rig.expectNothingDone();
}

TEST(ActionCheckYield, ASortDuringTheYieldStartsNoCleanerForAnotherDrive) {
    DisturbedActions rig(act::cleaner);
    rig.checkWithSort();
    rig.expectNothingDone();
}

TEST(ActionCheckYield, ARowRemovedDuringTheYieldStartsNoCleanerForAnotherDrive) {
    DisturbedActions rig(act::cleaner);
    rig.checkWithRemovedRow();
    rig.expectNothingDone();
}

TEST(ActionCheckYield, TheRowInThePlaceOfTheShortOneShowsNoShortage) {
    DisturbedActions rig(act::sound);
    rig.checkWithSort();
    EXPECT_EQ(rig.machine.played.size(), 1u);
    EXPECT_EQ(rig.at(2).stateIcon(), "ok");
    EXPECT_EQ(rig.timesChecked(), 1);
}

TEST(ActionCheckYield, WithoutADisturbanceTheFileOfTheShortDriveIsDeleted) {
    DisturbedActions rig(act::remove);
    rig.checkWith([] {});
    EXPECT_EQ(rig.listed(), "C:\\keep F:\\keep");
    EXPECT_FALSE(rig.exists("E:\\keep"));
    EXPECT_EQ(rig.timesChecked(), 1);
}

}  // namespace
}  // namespace velmora::tests
