// When a tick checks, and what it shows while it waits.
#include "monitor/check_rig.h"

namespace velmora::tests {
namespace {

// A tick with `rest` milliseconds left of a minute.
std::string wordsWithRest(int rest) {
    CheckRig rig;
    rig.check();
    rig.setInterval(0, 1, 0);
    rig.form1.Timer1.setInterval(60000 - rest);
    rig.tick();
    rig.tick();
    EXPECT_EQ(rig.timesChecked(), 1);
    return rig.panel(1);
}

TEST(CheckPacing, TheTimerBeginsWithFiveSecondsAndRuns) {
    Rig rig;
    EXPECT_EQ(rig.form1.Timer1.Interval(), 5000);
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
}

TEST(CheckPacing, TheTimerStepsTenSecondsAfterTheFirstCheck) {
    CheckRig rig;
    rig.tick();
    EXPECT_EQ(rig.form1.Timer1.Interval(), 5000);
    rig.check();
    EXPECT_EQ(rig.form1.Timer1.Interval(), 10000);
}

TEST(CheckPacing, EveryTickWritesTheIntervalInSeconds) {
    CheckRig rig;
    rig.setInterval(1, 2, 3);
    rig.tick();
    EXPECT_EQ(rig.form1.txtTime.Text(), "3723");
    rig.setInterval(23, 59, 59);
    rig.tick();
    EXPECT_EQ(rig.form1.txtTime.Text(), "86399");
}

TEST(CheckPacing, TheLongestIntervalCountsDownFromAllItsSeconds) {
    CheckRig rig;
    rig.check();
    rig.setInterval(23, 59, 59);
    rig.tick();
    EXPECT_EQ(rig.panel(1), "Ready. Check in: 86399 (sec.)");
}

TEST(CheckPacing, EveryWaitingTickAddsTheTimersStep) {
    CheckRig rig;
    rig.check();
    EXPECT_EQ(rig.checkCycle.lngElapsedMs(), 0);
    rig.setInterval(0, 1, 0);
    rig.form1.Timer1.setInterval(7000);
    rig.tick();
    EXPECT_EQ(rig.checkCycle.lngElapsedMs(), 7000);
    rig.tick();
    EXPECT_EQ(rig.checkCycle.lngElapsedMs(), 14000);
    EXPECT_EQ(rig.panel(1), "Ready. Check in: 53 (sec.)");
}

TEST(CheckPacing, AThousandMillisecondsStayMilliseconds) {
    EXPECT_EQ(wordsWithRest(1000), "Ready. Check in: 1000 (sec.)");
}

TEST(CheckPacing, LessThanASecondStaysMilliseconds) {
    EXPECT_EQ(wordsWithRest(999), "Ready. Check in: 999 (sec.)");
    EXPECT_EQ(wordsWithRest(1), "Ready. Check in: 1 (sec.)");
}

TEST(CheckPacing, AMillisecondMoreIsShownInSeconds) {
    EXPECT_EQ(wordsWithRest(1001), "Ready. Check in: 1 (sec.)");
}

TEST(CheckPacing, HalfSecondsRoundToTheEvenSecond) {
    EXPECT_EQ(wordsWithRest(1499), "Ready. Check in: 1 (sec.)");
    EXPECT_EQ(wordsWithRest(1500), "Ready. Check in: 2 (sec.)");
    EXPECT_EQ(wordsWithRest(2500), "Ready. Check in: 2 (sec.)");
    EXPECT_EQ(wordsWithRest(2501), "Ready. Check in: 3 (sec.)");
    EXPECT_EQ(wordsWithRest(3500), "Ready. Check in: 4 (sec.)");
}

TEST(CheckPacing, ARestOfZeroIsDue) {
    CheckRig rig;
    rig.check();
    rig.setInterval(0, 1, 0);
    rig.form1.Timer1.setInterval(60000);
    rig.tick();
    EXPECT_EQ(rig.timesChecked(), 1);
    rig.tick();
    EXPECT_EQ(rig.timesChecked(), 2);
}

TEST(CheckPacing, AnIntervalOfSixtyFiveSecondsIsCheckedOnTheTimersStep) {
    CheckRig rig;
    rig.check();
    rig.setInterval(0, 1, 5);
    // Ten, twenty, ... seventy seconds after the check.
    for (int rest = 65; rest > 0; rest -= 10) {
        rig.tick();
        EXPECT_EQ(rig.panel(1), "Ready. Check in: " + std::to_string(rest) + " (sec.)");
        EXPECT_EQ(rig.timesChecked(), 1);
    }
    rig.tick();
    EXPECT_EQ(rig.timesChecked(), 2);
    // The surplus of the count is dropped.
    EXPECT_EQ(rig.checkCycle.lngElapsedMs(), 0);
}

TEST(CheckPacing, AnIntervalOfZeroChecksAtEveryTick) {
    CheckRig rig;
    rig.setInterval(0, 0, 0);
    for (int i = 1; i <= 3; ++i) {
        rig.tick();
        EXPECT_EQ(rig.timesChecked(), i);
    }
}

TEST(CheckPacing, AShorterIntervalCountsFromTheNextTick) {
    CheckRig rig;
    rig.check();
    rig.setInterval(1, 0, 0);
    rig.tick();
    rig.setInterval(0, 0, 10);
    rig.tick();
    EXPECT_EQ(rig.timesChecked(), 2);
}

TEST(CheckPacing, TheCountIsBackAtZeroWhileTheCheckRuns) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    rig.tick();
    std::int32_t elapsed = -1;
    rig.host.onYield = [&](int) { elapsed = rig.checkCycle.lngElapsedMs(); };
    rig.check();
    EXPECT_EQ(elapsed, 0);
}

TEST(CheckPacing, TheTimerIsOffDuringATick) {
    CheckRig rig;
    rig.watch("C:\\", 5000);
    bool running = true;
    rig.host.onYield = [&](int n) {
        if (n == 1) running = rig.form1.Timer1.Enabled();
    };
    rig.check();
    EXPECT_FALSE(running);
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
}

TEST(CheckPacing, AWaitingTickStopsTheTimerAndStartsItAgain) {
    CheckRig rig;
    std::vector<bool> states;
    rig.form1.Timer1.Restarted.connect([&] { states.push_back(rig.form1.Timer1.Enabled()); });
    rig.tick();
    EXPECT_EQ(states, (std::vector<bool>{false, true}));
}

TEST(CheckPacing, AWaitingTickChangesNothingElse) {
    CheckRig rig;
    rig.forms.globals.bChecking = true;
    rig.list.setEnabled(false);
    rig.form1.Timer1.setEnabled(false);
    rig.forms.icon0.Show();
    rig.tick();
    rig.expectRest();
    EXPECT_EQ(rig.timesChecked(), 0);
}

TEST(CheckPacing, AWaitingTickAsksTheMachineNothing) {
    CheckRig rig;
    rig.watch("C:\\", 5);
    rig.tick();
    EXPECT_EQ(rig.machine.log.count(), 0);
    EXPECT_EQ(rig.calls, std::vector<std::string>{});
    EXPECT_EQ(rig.host.yields, 0);
}

TEST(CheckPacing, AHiddenWindowIsShownOnlyWhenTheOptionIsTicked) {
    CheckRig rig;
    rig.form1.Hide();
    rig.tick();
    EXPECT_FALSE(rig.form1.Visible());
    rig.form1.chkOnTopMonitor.setValue(1);
    rig.tick();
    EXPECT_TRUE(rig.form1.Visible());
}

}  // namespace
}  // namespace velmora::tests
