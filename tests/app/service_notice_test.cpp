// What a watch tells the service manager, by the clock of a machine in memory.
#include "app/service_notice.h"

#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "console_session.h"
#include "platform/work_steps.h"

namespace velmora::tests {
namespace {

using Messages = std::vector<std::string>;

struct ServiceNoticeTest : testing::Test {
    ServiceManager manager(std::int64_t watchdog) {
        return {.send = [this](const std::string& lines) { sent.push_back(lines); },
                .watchdog = watchdog};
    }
    void stepAfter(std::int64_t ms) {
        machine.advance(ms);
        noteWorkStep();
    }

    fake::FakeMachine machine;
    Messages sent;
    std::string state = "2 watched";
    ServiceNotice notice{manager(10'000), machine.platform().clock, [this] { return state; }};
};

TEST_F(ServiceNoticeTest, ItIsReadyWithItsStatus) {
    notice.ready();
    EXPECT_EQ(sent, Messages{"READY=1\nSTATUS=2 watched"});
}

TEST_F(ServiceNoticeTest, ASignOfLifeComesTwiceInTheTimeOfTheWatchdog) {
    notice.ready();
    sent.clear();
    stepAfter(4'999);
    EXPECT_EQ(sent, Messages{});
    stepAfter(1);
    EXPECT_EQ(sent, Messages{"WATCHDOG=1"});
    stepAfter(4'999);
    EXPECT_EQ(sent, Messages{"WATCHDOG=1"});
    stepAfter(1);
    EXPECT_EQ(sent, (Messages{"WATCHDOG=1", "WATCHDOG=1"}));
}

TEST_F(ServiceNoticeTest, WithoutAStepThereIsNone) {
    notice.ready();
    sent.clear();
    machine.advance(60'000);
    EXPECT_EQ(sent, Messages{});
}

TEST_F(ServiceNoticeTest, ALongStartAsksForMoreTime) {
    stepAfter(4'999);
    EXPECT_EQ(sent, Messages{});
    stepAfter(1);
    EXPECT_EQ(sent, (Messages{"EXTEND_TIMEOUT_USEC=300000000", "WATCHDOG=1"}));
    notice.ready();
    sent.clear();
    stepAfter(5'000);
    EXPECT_EQ(sent, Messages{"WATCHDOG=1"});
}

TEST_F(ServiceNoticeTest, AStartWithoutAWatchdogAsksOnceAMinute) {
    ServiceNotice unwatched(manager(0), machine.platform().clock, [this] { return state; });
    stepAfter(59'999);
    EXPECT_EQ(sent, Messages{});
    stepAfter(1);
    EXPECT_EQ(sent, Messages{"EXTEND_TIMEOUT_USEC=300000000"});
}

// A signal can come in the middle of a long move.
TEST_F(ServiceNoticeTest, AnEndThatIsAskedForIsToldDuringTheWork) {
    bool isRequested = false;
    ServiceNotice ending(
        manager(10'000), machine.platform().clock, [this] { return state; },
        [&] { return isRequested; });
    ending.ready();
    sent.clear();
    isRequested = true;
    stepAfter(1'000);
    EXPECT_EQ(sent, Messages{"STOPPING=1"});
    stepAfter(4'000);
    ending.stopping();
    EXPECT_EQ(sent, (Messages{"STOPPING=1", "EXTEND_TIMEOUT_USEC=300000000", "WATCHDOG=1"}));
}

TEST_F(ServiceNoticeTest, WithoutAWatchdogThereIsNone) {
    ServiceNotice unwatched(manager(0), machine.platform().clock, [this] { return state; });
    unwatched.ready();
    sent.clear();
    stepAfter(60'000);
    EXPECT_EQ(sent, Messages{});
}

TEST_F(ServiceNoticeTest, AChangedStatusIsToldWithinASecondAndOnce) {
    notice.ready();
    sent.clear();
    state = "1 of 2 short of space";
    stepAfter(999);
    EXPECT_EQ(sent, Messages{});
    stepAfter(1);
    EXPECT_EQ(sent, Messages{"STATUS=1 of 2 short of space"});
    stepAfter(1'000);
    EXPECT_EQ(sent.size(), 1u);
}

TEST_F(ServiceNoticeTest, AStatusIsOneLine) {
    state = "folder\nREADY=0\r\nend";
    notice.ready();
    EXPECT_EQ(sent, Messages{"READY=1\nSTATUS=folder READY=0  end"});
}

TEST_F(ServiceNoticeTest, AStatusThatCanNotBeHadEndsNoWork) {
    bool fails = false;
    ServiceNotice failing(manager(0), machine.platform().clock, [&]() -> std::string {
        if (fails) throw RuntimeError(error::typeMismatch);
        return "fine";
    });
    failing.ready();
    sent.clear();
    fails = true;
    EXPECT_NO_THROW(stepAfter(1'000));
    EXPECT_EQ(sent, Messages{});
}

TEST_F(ServiceNoticeTest, ItSaysWhenItHasSomethingToSayAgain) {
    notice.ready();
    EXPECT_EQ(notice.untilNext(), 5'000);
    // Work that may have changed the status, which was looked at less than a second ago.
    stepAfter(300);
    EXPECT_EQ(notice.untilNext(), 700);
    state = "Paused";
    sent.clear();
    stepAfter(700);
    EXPECT_EQ(sent, Messages{"STATUS=Paused"});
    EXPECT_EQ(notice.untilNext(), 4'000);
    stepAfter(4'000);
    EXPECT_EQ(notice.untilNext(), 5'000);
}

TEST_F(ServiceNoticeTest, TheEndIsToldAndSignsOfLifeGoOn) {
    notice.ready();
    sent.clear();
    notice.stopping();
    stepAfter(5'000);
    EXPECT_EQ(sent, (Messages{"STOPPING=1", "EXTEND_TIMEOUT_USEC=300000000", "WATCHDOG=1"}));
}

TEST(ServiceNotice, WithoutAManagerNothingIsAsked) {
    fake::FakeMachine machine;
    int asked = 0;
    ServiceNotice alone({}, machine.platform().clock, [&asked] {
        ++asked;
        return std::string();
    });
    alone.ready();
    machine.advance(60'000);
    noteWorkStep();
    EXPECT_EQ(alone.untilNext(), std::nullopt);
    alone.stopping();
    EXPECT_EQ(asked, 0);
}

// The whole console on a machine in memory.
struct ServiceWatch : testing::Test {
    ServiceWatch() {
        machine.drives["C:"] = {50e9, 100e9};
        machine.files["C:\\Program Files\\Velmora\\set.dat"] = prcEn("txtTime=60\r\n") + "\r\n";
    }
    /// Ends a watch after so many looks, at least one a second.
    void run(const std::string& input, int looks) {
        std::istringstream in(input);
        std::ostringstream out;
        const auto send = [this](const std::string& lines) { sent.push_back(lines); };
        runConsole(machine, {.input = in,
                             .output = out,
                             .sleep = [this](std::int64_t ms) { machine.advance(ms); },
                             .isEndRequested = [&] { return looks-- <= 0; },
                             .manager = {.send = send, .watchdog = 20'000}});
    }

    fake::FakeMachine machine;
    Messages sent;
};

TEST_F(ServiceWatch, ItBeginsAndEndsWithItsMessages) {
    machine.platform().app.Options.watch = true;
    run("", 62);
    ASSERT_GE(sent.size(), 3u);
    EXPECT_EQ(sent.front(), "READY=1\nSTATUS=Nothing is watched yet: tick a drive");
    EXPECT_EQ(countOf(sent, "WATCHDOG=1"), static_cast<int>(machine.tick / 10'000));
    EXPECT_GE(machine.tick, 20'000);
    EXPECT_EQ(sent.back(), "STOPPING=1");
}

TEST_F(ServiceWatch, CommandsAreNoWatch) {
    run("wait 60\n", 0);
    EXPECT_EQ(sent, Messages{});
}

}  // namespace
}  // namespace velmora::tests
