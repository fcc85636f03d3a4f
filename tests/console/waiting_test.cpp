#include "console/waiting.h"

#include <gtest/gtest.h>

#include <optional>

#include "base/runtime_error.h"
#include "session.h"

namespace velmora::console {
namespace {

struct WaitingTest : testing::Test, tests::Session {
    WaitingTest() {
        form1.Timer1.setEnabled(false);
        timer.Tick.connect([this] { ++ticks; });
        timers.add(timer);
    }

    // Until the first time that it wakes.
    void sleepOnce() {
        waiting.setLongestNap(60'000);
        int looks = 0;
        waiting.endWith([&looks] { return ++looks == 2; });
        waiting.forever();
    }

    int ticks = 0;
    Timer timer{form1, "tmrTest", 2000, true};
};

TEST_F(WaitingTest, TakesTheGivenTime) {
    waiting.forSeconds(7.25);
    EXPECT_EQ(slept, 7250);
    waiting.forSeconds(1.001);
    EXPECT_EQ(slept, 8251);
    waiting.forSeconds(0);
    EXPECT_EQ(slept, 8251);
}

TEST_F(WaitingTest, TicksATimerOnceAnInterval) {
    waiting.forSeconds(10);
    EXPECT_EQ(ticks, 5);
    waiting.forSeconds(1.999);
    EXPECT_EQ(ticks, 5);
    waiting.forSeconds(0.001);
    EXPECT_EQ(ticks, 6);
}

TEST_F(WaitingTest, TicksEachTimerInItsOwnTime) {
    std::string order;
    Timer other{form1, "tmrOther", 3000, true};
    timers.add(other);
    timer.Tick.connect([&] { order += "2"; });
    other.Tick.connect([&] { order += "3"; });
    waiting.forSeconds(9);
    EXPECT_EQ(order, "2322323");  // at 2, 3, 4, 6, 6, 8 and 9 s
}

TEST_F(WaitingTest, TicksNoTimerOutsideAWait) {
    machine.advance(1'000'000);
    EXPECT_EQ(ticks, 0);
    waiting.forSeconds(0);
    EXPECT_EQ(ticks, 1);  // what it missed counts as one
}

TEST_F(WaitingTest, LeavesATimerThatIsOffAlone) {
    timer.setEnabled(false);
    waiting.forSeconds(10);
    EXPECT_EQ(ticks, 0);
    EXPECT_EQ(slept, 10000);
}

TEST_F(WaitingTest, FollowsATimerThatAHandlerSwitches) {
    timer.Tick.connect([this] { timer.setInterval(ticks == 1 ? 5000 : 1000); });
    waiting.forSeconds(9);  // at 2, 7, 8 and 9 s
    EXPECT_EQ(ticks, 4);
}

TEST_F(WaitingTest, ForSomethingEndsWhenItIsSeen) {
    timer.Tick.connect([this] { waiting.seen("Times Checked: " + std::to_string(ticks)); });
    EXPECT_TRUE(waiting.until("Checked: 3"));
    EXPECT_EQ(slept, 6000);
}

TEST_F(WaitingTest, ForSomethingSeenOnlyBeforeGoesOn) {
    waiting.seen("early");
    EXPECT_FALSE(waiting.until("early"));
}

TEST_F(WaitingTest, ForSomethingGivesUpAfterTenMinutes) {
    EXPECT_FALSE(waiting.until("never"));
    EXPECT_EQ(slept, 600'000);
    EXPECT_EQ(ticks, 300);
}

TEST_F(WaitingTest, ForSomethingSeenInTheVeryLastMomentEndsWell) {
    timer.Tick.connect([this] {
        if (ticks == 300) waiting.seen("late");
    });
    EXPECT_TRUE(waiting.until("late"));
}

TEST_F(WaitingTest, LooksForTheCharactersAsTheyAre) {
    timer.Tick.connect([this] { waiting.seen("größe"); });
    EXPECT_FALSE(waiting.until("GRÖSSE"));
    EXPECT_TRUE(waiting.until("öß"));
}

TEST_F(WaitingTest, ForeverEndsWithTheProgramOnly) {
    timer.Tick.connect([this] {
        if (ticks == 1000) throw ProgramEnd{0};
    });
    EXPECT_THROW(waiting.forever(), ProgramEnd);
    EXPECT_EQ(slept, 2'000'000);
}

TEST_F(WaitingTest, TimersWithinATickOfTheClockWakeItOnce) {
    Timer other{form1, "tmrOther", 2016, true};
    timers.add(other);
    std::int64_t otherTicked = 0;
    other.Tick.connect([&] { otherTicked = machine.tick; });
    sleepOnce();
    EXPECT_EQ(slept, 2016);
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(otherTicked, machine.tick);
}

TEST_F(WaitingTest, TimersFurtherApartWakeItEachInItsTime) {
    Timer other{form1, "tmrOther", 2017, true};
    timers.add(other);
    sleepOnce();
    EXPECT_EQ(slept, 2000);
    EXPECT_EQ(ticks, 1);
}

TEST_F(WaitingTest, SleepsASecondAtMostUnlessItIsToldLonger) {
    for (Form* form : forms.all()) {
        for (Control* control : form->controls()) {
            if (dynamic_cast<Timer*>(control) != nullptr) control->setEnabled(false);
        }
    }
    int looks = 0;
    waiting.endWith([&] { return ++looks > 3; });
    waiting.forever();
    EXPECT_EQ(slept, 3000);
    slept = looks = 0;
    waiting.setLongestNap(60'000);
    waiting.forever();
    EXPECT_EQ(slept, 180'000);
    slept = looks = 0;
    waiting.wakeFor([] { return 250; });
    waiting.forever();
    EXPECT_EQ(slept, 750);
}

TEST_F(WaitingTest, EndsOnceTheEndIsAskedFor) {
    waiting.endWith([this] { return ticks >= 3; });
    waiting.forever();
    EXPECT_EQ(ticks, 3);
    waiting.forSeconds(1000);
    EXPECT_FALSE(waiting.until("never"));
    EXPECT_LE(ticks, 5);
}

TEST_F(WaitingTest, AWaitWithinAnotherHasATextOfItsOwn) {
    std::optional<bool> inner;
    Timer other{form1, "tmrOther", 3000, true};
    timers.add(other);
    other.Tick.connect([&] {
        if (!inner) inner = waiting.until("inner");
    });
    timer.Tick.connect([&] {
        if (ticks == 2) waiting.seen("inner");
        if (ticks == 4) waiting.seen("outer");
    });
    EXPECT_TRUE(waiting.until("outer"));
    EXPECT_EQ(inner, true);
    EXPECT_EQ(ticks, 4);
}

TEST_F(WaitingTest, AWaitWithinAnotherThatFindsNothingLeavesTheOuterOne) {
    timer.Tick.connect([&] {
        if (ticks != 1) return;
        EXPECT_FALSE(waiting.untilAlert("inner"));
    });
    EXPECT_FALSE(waiting.untilAlert("outer"));
}

TEST_F(WaitingTest, EndsTheProgramByATimersRunTimeError) {
    timer.Tick.connect([] { throw RuntimeError(error::fileNotFound); });
    EXPECT_THROW(waiting.forSeconds(10), ProgramEnd);
    EXPECT_NE(printed().find("Run-time error '53':"), std::string::npos);
}

TEST_F(WaitingTest, EndsTheProgramWhenTheReaderIsGone) {
    timer.Tick.connect([this] {
        output.ok();
        if (ticks == 3) stream.setstate(std::ios::badbit);
    });
    EXPECT_THROW(waiting.forever(), ProgramEnd);
    EXPECT_EQ(ticks, 3);
}

}  // namespace
}  // namespace velmora::console
