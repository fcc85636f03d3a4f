// The watcher by notifications: its poll and its end.
#include <optional>

#include "inspect/wait_rig.h"

namespace velmora::tests {
namespace {

using Calls = std::vector<std::string>;

struct PolledWatcher : WaitRig {
    std::optional<cWatchForChanges> watcher{std::in_place, kernel32, user32};
    std::vector<std::int32_t> changes;

    PolledWatcher() {
        takeHandles(*watcher);
        watcher->ChangeDetected.connect([this](std::int32_t bits) { changes.push_back(bits); });
    }
    void expectNoHandles() const {
        EXPECT_EQ(watcher->hWnd, 0u);
        EXPECT_EQ(watcher->hName, 0u);
        EXPECT_EQ(watcher->hSize, 0u);
        EXPECT_EQ(watcher->hLastWrite, 0u);
        EXPECT_EQ(watcher->hDirName, 0u);
    }
    Calls callsOfStop() const {
        return {"KillTimer 9 " + std::to_string(reinterpret_cast<std::uintptr_t>(&*watcher)),
                "DestroyWindow 9",
                "FindCloseChangeNotification 11",
                "FindCloseChangeNotification 12",
                "FindCloseChangeNotification 13",
                "FindCloseChangeNotification 14"};
    }
};

TEST(WatchForChanges, BeginsWithoutHandlesAndNotSuspended) {
    WaitRig rig;
    cWatchForChanges watcher(rig.kernel32, rig.user32);
    EXPECT_EQ(watcher.hWnd + watcher.hName + watcher.hSize + watcher.hLastWrite + watcher.hDirName,
              0u);
    EXPECT_FALSE(watcher.SuspendWatch);
}

TEST(WatchForChanges, StartWatchReturnsFalseAndLeavesAllHandlesZero) {
    WaitRig rig;
    cWatchForChanges watcher(rig.kernel32, rig.user32);
    EXPECT_FALSE(watcher.StartWatch("C:\\data", true, 1000, true));
    EXPECT_EQ(watcher.hWnd, 0u);
    EXPECT_EQ(watcher.hName, 0u);
    EXPECT_EQ(watcher.hSize, 0u);
    EXPECT_EQ(watcher.hLastWrite, 0u);
    EXPECT_EQ(watcher.hDirName, 0u);
    EXPECT_FALSE(watcher.SuspendWatch);
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST(WatchForChanges, APollAsksTheFourHandlesWithoutWaiting) {
    PolledWatcher rig;
    rig.watcher->prcPollChanges();
    EXPECT_EQ(rig.machine.log.calls(),
              (Calls{"WaitForSingleObject 11 0", "WaitForSingleObject 12 0",
                     "WaitForSingleObject 13 0", "WaitForSingleObject 14 0"}));
    EXPECT_TRUE(rig.changes.empty());
}

TEST(WatchForChanges, EachSignalledHandleGivesItsBit) {
    const std::vector<std::pair<std::uint32_t, std::int32_t>> bitOf{
        {11, 1}, {12, 2}, {13, 4}, {14, 8}};
    for (const auto& [handle, bit] : bitOf) {
        PolledWatcher rig;
        rig.machine.notifications[handle] = 1;
        rig.watcher->prcPollChanges();
        EXPECT_EQ(rig.changes, std::vector<std::int32_t>{bit});
    }
}

TEST(WatchForChanges, AllThatChangedIsReportedAtOnce) {
    PolledWatcher rig;
    for (auto& [handle, signals] : rig.machine.notifications) signals = 1;
    rig.watcher->prcPollChanges();
    EXPECT_EQ(rig.changes, std::vector<std::int32_t>{15});
    rig.watcher->prcPollChanges();
    EXPECT_EQ(rig.changes.size(), 1u);
}

TEST(WatchForChanges, ASignalIsTakenAtOnceSoThatTheNextOneCanCome) {
    PolledWatcher rig;
    rig.machine.notifications[12] = 1;
    rig.watcher->prcPollChanges();
    EXPECT_EQ(rig.machine.log.calls(),
              (Calls{"WaitForSingleObject 11 0", "WaitForSingleObject 12 0",
                     "FindNextChangeNotification 12", "WaitForSingleObject 13 0",
                     "WaitForSingleObject 14 0"}));
    EXPECT_EQ(rig.machine.notifications[12], 0);
}

TEST(WatchForChanges, ThePollWithSuspendWatchSetDoesntConsumeAnyNotification) {
    PolledWatcher rig;
    rig.watcher->SuspendWatch = true;
    for (auto& [handle, signals] : rig.machine.notifications) signals = 2;
    rig.watcher->prcPollChanges();
    EXPECT_EQ(rig.machine.log.count(), 0);
    EXPECT_TRUE(rig.changes.empty());
    for (const auto& [handle, signals] : rig.machine.notifications) EXPECT_EQ(signals, 2);
    rig.watcher->SuspendWatch = false;
    rig.watcher->prcPollChanges();
    EXPECT_EQ(rig.changes, std::vector<std::int32_t>{15});
}

TEST(WatchForChanges, APollWithoutHandlesReportsNothing) {
    WaitRig rig;
    cWatchForChanges watcher(rig.kernel32, rig.user32);
    int reports = 0;
    watcher.ChangeDetected.connect([&](std::int32_t) { ++reports; });
    watcher.prcPollChanges();
    EXPECT_EQ(reports, 0);
}

TEST(WatchForChanges, TestingAHandlePassesItsTimeOutAndGivesTheBitOnASignalOnly) {
    PolledWatcher rig;
    EXPECT_EQ(rig.watcher->fTestHandle(13, 4, 250), 0);
    EXPECT_EQ(rig.machine.log.calls(), Calls{"WaitForSingleObject 13 250"});
    rig.machine.notifications[13] = 1;
    EXPECT_EQ(rig.watcher->fTestHandle(13, 4, 0), 4);
    EXPECT_EQ(rig.watcher->fTestHandle(99, 4, 0), 0);
}

TEST(WatchForChanges, StopGivesBackTimerWindowAndHandlesInThisOrder) {
    PolledWatcher rig;
    rig.watcher->SuspendWatch = true;
    rig.watcher->StopWatch();
    EXPECT_EQ(rig.machine.log.calls(), rig.callsOfStop());
    rig.expectNoHandles();
    EXPECT_FALSE(rig.watcher->SuspendWatch);
    EXPECT_TRUE(rig.machine.notifications.empty());
}

TEST(WatchForChanges, StopPassesOverWhatIsntThere) {
    PolledWatcher rig;
    rig.watcher->hWnd = 0;
    rig.watcher->hSize = 0;
    rig.watcher->hDirName = 0;
    rig.watcher->StopWatch();
    EXPECT_EQ(rig.machine.log.calls(),
              (Calls{"FindCloseChangeNotification 11", "FindCloseChangeNotification 13"}));
}

TEST(WatchForChanges, ASecondStopDoesNothingMore) {
    PolledWatcher rig;
    rig.watcher->StopWatch();
    rig.machine.log.clear();
    rig.watcher->StopWatch();
    EXPECT_EQ(rig.machine.log.count(), 0);
}

TEST(WatchForChanges, ItsEndStopsTheWatch) {
    PolledWatcher rig;
    const Calls expected = rig.callsOfStop();
    rig.watcher.reset();
    EXPECT_EQ(rig.machine.log.calls(), expected);
    EXPECT_TRUE(rig.machine.notifications.empty());
}

TEST(WatchForChanges, EveryCallOfAPollMayFail) {
    // Six calls: a wait for each handle, and the second and third are signalled.
    for (int n = 1; n <= 6; ++n) {
        SCOPED_TRACE(n);
        PolledWatcher rig;
        rig.machine.notifications[12] = rig.machine.notifications[13] = 1;
        rig.machine.log.failCall(n, 6);
        rig.watcher->prcPollChanges();
        // A handle that can't be asked has no change now, and keeps its signal for the next poll.
        const std::int32_t expected = n == 2 ? 4 : n == 4 ? 2 : 6;
        EXPECT_EQ(rig.changes, std::vector<std::int32_t>{expected});
        EXPECT_EQ(rig.machine.notifications[12], n == 2 || n == 3 ? 1 : 0);
        EXPECT_EQ(rig.machine.notifications[13], n == 4 || n == 5 ? 1 : 0);
    }
}

TEST(WatchForChanges, AFailureToCloseOneHandleLeavesNoneOpen) {
    for (int n = 3; n <= 6; ++n) {
        SCOPED_TRACE(n);
        PolledWatcher rig;
        rig.machine.log.failCall(n, 6);
        rig.watcher->StopWatch();
        EXPECT_EQ(rig.machine.log.calls(), rig.callsOfStop());
        rig.expectNoHandles();
        rig.machine.log.clear();
        rig.watcher.reset();
        EXPECT_EQ(rig.machine.log.count(), 0);
    }
}

}  // namespace
}  // namespace velmora::tests
