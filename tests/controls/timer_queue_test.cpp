#include "controls/timer_queue.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "controls/control_properties.h"
#include "controls/form.h"

namespace velmora::tests {
namespace {

struct TimerQueueTest : testing::Test {
    TimerQueueTest() {
        queue.add(slow);
        queue.add(quick);
        slow.Tick.connect([this] { order += "s"; });
        quick.Tick.connect([this] { order += "q"; });
    }
    int at(std::int64_t time) {
        now = time;
        return queue.fireDue();
    }

    std::int64_t now = 1000;
    Form form{"Form1"};
    Timer slow{form, "Timer1", 5000, true};
    Timer quick{form, "Timer2", 2000, true};
    TimerQueue queue{[this] { return now; }};
    std::string order;
};

TEST_F(TimerQueueTest, FiresATimerWhenItsIntervalIsOverAndNotBefore) {
    EXPECT_EQ(at(2999), 0);
    EXPECT_EQ(at(3000), 1);
    EXPECT_EQ(at(4999), 0);
    EXPECT_EQ(at(5000), 1);
    EXPECT_EQ(order, "qq");
}

TEST_F(TimerQueueTest, FiresThoseThatAreDueInTheOrderOfTheirTimes) {
    EXPECT_EQ(at(7000), 2);
    EXPECT_EQ(order, "qs");
}

TEST_F(TimerQueueTest, AtTheSameTimeTheOneAddedFirstIsFirst) {
    quick.setInterval(5000);
    EXPECT_EQ(at(6000), 2);
    EXPECT_EQ(order, "sq");
}

TEST_F(TimerQueueTest, MissedIntervalsFireOnceAndTheCountGoesOnFromNow) {
    EXPECT_EQ(at(100000), 2);
    EXPECT_EQ(at(101999), 0);
    EXPECT_EQ(at(102000), 1);
}

TEST_F(TimerQueueTest, ADisabledTimerNeverFires) {
    quick.setEnabled(false);
    EXPECT_EQ(at(3000), 0);
    quick.setEnabled(true);
    EXPECT_EQ(at(4999), 0);
    EXPECT_EQ(at(5000), 1);
}

TEST_F(TimerQueueTest, AnIntervalOfZeroNeverFires) {
    quick.setInterval(0);
    slow.setEnabled(false);
    EXPECT_EQ(at(1000000), 0);
    EXPECT_EQ(queue.untilNext(), std::nullopt);
}

TEST_F(TimerQueueTest, ANewIntervalRestartsTheCount) {
    now = 2500;
    quick.setInterval(2000);
    EXPECT_EQ(at(4499), 0);
    EXPECT_EQ(at(4500), 1);
}

TEST_F(TimerQueueTest, GivesTheTimeUntilTheNext) {
    EXPECT_EQ(queue.untilNext(), 2000);
    now = 2500;
    EXPECT_EQ(queue.untilNext(), 500);
    now = 9000;
    EXPECT_EQ(queue.untilNext(), 0);
    quick.setEnabled(false);
    now = 5999;
    EXPECT_EQ(queue.untilNext(), 1);
}

TEST_F(TimerQueueTest, ATimerWhoseHandlerYieldsDoesNotFireMeanwhile) {
    quick.Tick.connect([this] {
        now += 10000;
        EXPECT_EQ(queue.fireDue(), 1);  // the slow one
        EXPECT_EQ(order, "qs");
        EXPECT_NE(queue.untilNext(), 0);
    });
    EXPECT_EQ(at(3000), 1);
}

TEST_F(TimerQueueTest, AHandlerMaySwitchOffAnotherThatIsDue) {
    quick.Tick.connect([this] { slow.setEnabled(false); });
    EXPECT_EQ(at(7000), 1);
    EXPECT_EQ(order, "q");
}

TEST_F(TimerQueueTest, AHandlerMayRestartAnother) {
    quick.Tick.connect([this] { slow.setInterval(5000); });
    EXPECT_EQ(at(7000), 1);
    EXPECT_EQ(order, "q");
}

TEST_F(TimerQueueTest, AHandlerMayAddTimers) {
    std::vector<std::unique_ptr<Timer>> more;
    quick.Tick.connect([&] {
        for (int i = 0; i < 100; ++i) {
            more.push_back(std::make_unique<Timer>(form, "more", 1, true));
            queue.add(*more.back());
        }
    });
    EXPECT_EQ(at(3000), 1);
    EXPECT_EQ(at(3001), 100);
}

TEST_F(TimerQueueTest, AQueueDisconnectsFromItsTimersAtItsEnd) {
    Timer timer{form, "timer", 1000, true};
    {
        TimerQueue shortLived{[this] { return now; }};
        shortLived.add(timer);
        EXPECT_TRUE(timer.Restarted.connected());
    }
    EXPECT_FALSE(timer.Restarted.connected());
    timer.setInterval(5);
}

TEST_F(TimerQueueTest, AnErrorOfAHandlerLeavesTheTimerRunning) {
    bool fails = true;
    quick.Tick.connect([&] {
        if (fails) throw RuntimeError(error::typeMismatch);
    });
    EXPECT_EQ(errorOf([&] { at(3000); }), error::typeMismatch);
    fails = false;
    EXPECT_EQ(at(5000), 1);
}

TEST_F(TimerQueueTest, AfterAQuietLookEachWayToRestartATimerIsSeen) {
    EXPECT_EQ(at(1001), 0);
    quick.setInterval(10);
    EXPECT_EQ(at(1010), 0);
    EXPECT_EQ(at(1011), 1);
    quick.setEnabled(false);
    EXPECT_EQ(at(1020), 0);
    quick.setEnabled(true);
    EXPECT_EQ(at(1029), 0);
    EXPECT_EQ(at(1030), 1);
    EXPECT_EQ(at(1031), 0);
    Timer added{form, "Timer3", 5, true};
    queue.add(added);
    EXPECT_EQ(at(1036), 1);
}

TEST_F(TimerQueueTest, AQuietLookWithinAHandlerHidesNoTimer) {
    // Nothing else runs, and the one that does isn't due within its own handler.
    slow.setEnabled(false);
    quick.Tick.connect([this] { queue.fireDue(); });
    EXPECT_EQ(at(3000), 1);
    EXPECT_EQ(at(5000), 1);
}

TEST_F(TimerQueueTest, JoinsTimersThatAreDueCloseTogether) {
    slow.setInterval(2010);
    EXPECT_EQ(queue.untilNext(), 2000);
    EXPECT_EQ(queue.untilNext(9), 2000);
    EXPECT_EQ(queue.untilNext(10), 2010);
    // What is due isn't kept waiting.
    now = 3000;
    EXPECT_EQ(queue.untilNext(16), 0);
    slow.setEnabled(false);
    now = 2000;
    EXPECT_EQ(queue.untilNext(16), 1000);
}

}  // namespace
}  // namespace velmora::tests
