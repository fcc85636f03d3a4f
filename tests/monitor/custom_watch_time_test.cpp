// The custom watch time: the watch started and paused at set times of the day.
#include "base/convert.h"
#include "monitor/check_rig.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* startedAlert = "Montoring Started by Custom Watch Time: ";
constexpr const char* pausedAlert = "Montoring Paused by Custom Watch Time: ";

DateTime today(int hour, int minute, int second = 0) {
    return {2026, 3, 14, hour, minute, second};
}

// One drive in the list, the custom watch time on from 10:00 to 18:30, and a paused watch.
struct CustomRig : CheckRig {
    CustomRig() {
        watch("C:\\", 5000);
        form1.chkSystray.setValue(0);
        form1.chkCustTime.setValue(1);
        setTimes({10, 0}, {18, 30});
        form1.Timer1.setEnabled(false);
        clearRecords();
    }
    void setTimes(std::pair<int, int> start, std::pair<int, int> end) {
        form1.DTTime1[0].setValue(today(start.first, start.second));
        form1.DTTime1[1].setValue(today(end.first, end.second));
    }
    void minute(const DateTime& now) {
        machine.now = now;
        form1.TimerCust.Tick();
    }
    bool watching() { return form1.cmdPause.Caption() == "Pause Watch"; }
};

TEST(CustomWatchTime, ItsTimesAreEnabledOnlyWhileItIsOn) {
    CheckRig rig;
    EXPECT_FALSE(rig.form1.DTTime1[0].Enabled());
    EXPECT_FALSE(rig.form1.DTTime1[1].Enabled());
    rig.form1.chkCustTime.userClick();
    EXPECT_TRUE(rig.form1.DTTime1[0].Enabled());
    EXPECT_TRUE(rig.form1.DTTime1[1].Enabled());
    rig.form1.chkCustTime.userClick();
    EXPECT_FALSE(rig.form1.DTTime1[0].Enabled());
    EXPECT_FALSE(rig.form1.DTTime1[1].Enabled());
}

TEST(CustomWatchTime, ItsBoxSaysWhatItDoes) {
    Rig rig;
    EXPECT_EQ(rig.form1.chkCustTime.Caption(), "Enable Custom Time");
    EXPECT_EQ(rig.form1.chkCustTime.ToolTipText(),
              "This options allows the program to perform watch within the period of time.");
}

TEST(CustomWatchTime, DoesNothingWhileItIsOff) {
    CustomRig rig;
    rig.form1.chkCustTime.setValue(0);
    rig.setTimes({10, 0}, {10, 0});
    rig.minute(today(10, 0));
    EXPECT_FALSE(rig.watching());
    EXPECT_FALSE(rig.form1.Timer1.Enabled());
    EXPECT_EQ(rig.form1.DTTime1[1].Minute(), 0);
    EXPECT_EQ(rig.alertCount(), 0);
    EXPECT_TRUE(rig.form1.txtAlert.empty());
}

TEST(CustomWatchTime, StartsInTheMinuteOfTheStartAtAnySecond) {
    for (const int second : {0, 26, 59}) {
        CustomRig rig;
        rig.minute(today(9, 59, 59));
        EXPECT_FALSE(rig.watching());
        rig.minute(today(10, 0, second));
        EXPECT_TRUE(rig.watching()) << second;
        EXPECT_TRUE(rig.form1.Timer1.Enabled()) << second;
    }
}

TEST(CustomWatchTime, AStartIsWrittenToJournalAlertsAndDialog) {
    CustomRig rig;
    rig.form1.txtAlert.setText("older");
    rig.forms.dlgAlert.Label1.setText("old");
    rig.minute(today(10, 0, 26));
    const std::string entry =
        "Velmora Started by Custom Watch Time: 3/14/2026 10:00:26 AM\r\n.\r\n";
    EXPECT_EQ(rig.form1.txtAlert.Text(), entry + "older");
    EXPECT_EQ(rig.forms.dlgAlert.Label1.Text(), entry + "old");
    ASSERT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.alert(1), std::string("Medium | 20260314 10:00 | ") + startedAlert);
    EXPECT_EQ(rig.calls, (Texts{"modifyIcon Form1", "alert dialog"}));
    EXPECT_FALSE(rig.forms.sysWorkSystray.tmrSystray.Enabled());
}

TEST(CustomWatchTime, AWatchThatRunsIsNotToggledAtTheStartButTheStartIsWritten) {
    CustomRig rig;
    rig.form1.cmdPause.Click();
    rig.clearRecords();
    rig.minute(today(10, 0));
    EXPECT_TRUE(rig.watching());
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
    EXPECT_EQ(rig.alertTexts(), Texts{startedAlert});
    EXPECT_EQ(rig.calls, Texts{"alert dialog"});
}

// The times differ by seconds alone: neither is moved on, and both lie in the present minute.
TEST(CustomWatchTime, AStartAndAnEndInOneMinuteStartTheWatchAndPauseIt) {
    for (const bool watchesBefore : {false, true}) {
        CustomRig rig;
        rig.form1.DTTime1[0].setValue(today(10, 0, 5));
        rig.form1.DTTime1[1].setValue(today(10, 0, 50));
        if (watchesBefore) rig.form1.cmdPause.Click();
        rig.minute(today(10, 0, 20));
        EXPECT_FALSE(rig.watching());
        EXPECT_FALSE(rig.form1.Timer1.Enabled());
        EXPECT_EQ(rig.alertTexts(), (Texts{pausedAlert, startedAlert}));
        const std::string& journal = rig.form1.txtAlert.Text();
        EXPECT_TRUE(journal.starts_with("Velmora Paused by Custom Watch Time: ")) << journal;
        EXPECT_NE(journal.find("Velmora Started by Custom Watch Time: "), std::string::npos);
        EXPECT_EQ(rig.form1.DTTime1[1].Value(), today(10, 0, 50));
    }
}

TEST(CustomWatchTime, ACaptionWithNeitherWordIsNotToggled) {
    CustomRig rig;
    rig.form1.cmdPause.setCaption("start");
    rig.minute(today(10, 0));
    EXPECT_EQ(rig.form1.cmdPause.Caption(), "start");
    EXPECT_EQ(rig.alertTexts(), Texts{startedAlert});
}

TEST(CustomWatchTime, PausesInTheMinuteOfTheEnd) {
    CustomRig rig;
    rig.form1.cmdPause.Click();
    rig.clearRecords();
    rig.minute(today(18, 29, 59));
    EXPECT_TRUE(rig.watching());
    rig.minute(today(18, 30, 41));
    EXPECT_FALSE(rig.watching());
    EXPECT_FALSE(rig.form1.Timer1.Enabled());
    const std::string entry = "Velmora Paused by Custom Watch Time: 3/14/2026 6:30:41 PM\r\n.\r\n";
    EXPECT_EQ(rig.form1.txtAlert.Text(), entry);
    EXPECT_EQ(rig.forms.dlgAlert.Label1.Text(), entry);
    ASSERT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.alert(1), std::string("Medium | 20260314 18:30 | ") + pausedAlert);
    EXPECT_EQ(rig.calls, (Texts{"modifyIcon Icon1", "modifyIcon Icon0", "alert dialog"}));
}

TEST(CustomWatchTime, APausedWatchHasNothingToPauseAtTheEnd) {
    CustomRig rig;
    rig.minute(today(18, 30));
    EXPECT_FALSE(rig.watching());
    EXPECT_EQ(rig.alertCount(), 0);
    EXPECT_TRUE(rig.calls.empty());
}

TEST(CustomWatchTime, TwelveHoursApartIsAnotherMinute) {
    CustomRig rig;
    rig.minute(today(22, 0));
    EXPECT_EQ(rig.alertCount(), 0);
    rig.setTimes({0, 5}, {18, 30});
    rig.minute(today(12, 5));
    EXPECT_EQ(rig.alertCount(), 0);
    rig.minute(today(0, 5));
    EXPECT_EQ(rig.alertTexts(), Texts{startedAlert});
}

TEST(CustomWatchTime, OnlyTheTimeOfDayCountsNotTheDay) {
    CustomRig rig;
    rig.form1.DTTime1[0].setValue({2001, 3, 1, 10, 0, 0});
    rig.minute(today(10, 0));
    EXPECT_TRUE(rig.watching());
}

TEST(CustomWatchTime, AlertsBelongToNoRowSoThatEachDayHasItsOwn) {
    CustomRig rig;
    for (int day = 14; day < 17; ++day) rig.minute({2026, 3, day, 10, 0, 0});
    EXPECT_EQ(rig.alertTexts(), (Texts{startedAlert, startedAlert, startedAlert}));
    EXPECT_EQ(ConstWatchRow(rig.list.ListItems(1)).firstAlert(), "");
}

TEST(CustomWatchTime, EqualTimesMoveTheEndOnByAMinute) {
    CustomRig rig;
    rig.setTimes({9, 0}, {9, 0});
    rig.minute(today(8, 0));
    EXPECT_EQ(Format(rig.form1.DTTime1[1].Value(), "hh:mm:ss"), "09:01:00");
    EXPECT_EQ(Format(rig.form1.DTTime1[0].Value(), "hh:mm:ss"), "09:00:00");
    rig.minute(today(8, 1));
    EXPECT_EQ(Format(rig.form1.DTTime1[1].Value(), "hh:mm:ss"), "09:01:00");
}

TEST(CustomWatchTime, EqualTimesAtTheLastMinuteMoveTheEndIntoTheNextHourOfTheSameDay) {
    CustomRig rig;
    rig.setTimes({9, 59}, {9, 59});
    rig.minute(today(8, 0));
    EXPECT_EQ(rig.form1.DTTime1[1].Value(), today(10, 0));
    rig.setTimes({23, 59}, {23, 59});
    rig.minute(today(8, 1));
    EXPECT_EQ(rig.form1.DTTime1[1].Value(), today(0, 0));
}

TEST(CustomWatchTime, TimesOfTwoDaysAreNotEqual) {
    CustomRig rig;
    rig.setTimes({9, 0}, {9, 0});
    const DateTime end{2026, 3, 15, 9, 0, 0};
    rig.form1.DTTime1[1].setValue(end);
    rig.minute(today(8, 0));
    EXPECT_EQ(rig.form1.DTTime1[1].Value(), end);
}

TEST(CustomWatchTime, EqualTimesStartAndPauseAMinuteLater) {
    CustomRig rig;
    rig.setTimes({10, 0}, {10, 0});
    rig.minute(today(10, 0));
    EXPECT_TRUE(rig.watching());
    rig.minute(today(10, 1));
    EXPECT_FALSE(rig.watching());
}

// Both bounds are the start time, so that only its very second switches the timer on.
TEST(CustomWatchTime, AStoppedTimerRunsAgainOnlyInTheSecondOfTheStart) {
    CustomRig rig;
    rig.list.Clear();  // the toggle can't start anything
    rig.minute(today(9, 59, 59));
    EXPECT_FALSE(rig.form1.Timer1.Enabled());
    rig.minute(today(10, 0, 1));
    EXPECT_FALSE(rig.form1.Timer1.Enabled());
    rig.minute(today(12, 0, 0));
    EXPECT_FALSE(rig.form1.Timer1.Enabled());
    rig.minute(today(10, 0, 0));
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
}

TEST(CustomWatchTime, ATimerThatRunsIsLeftAlone) {
    CustomRig rig;
    rig.form1.Timer1.setEnabled(true);
    rig.minute(today(12, 0));
    EXPECT_TRUE(rig.form1.Timer1.Enabled());
}

TEST(CustomWatchTime, AnEmptyListGivesTheMessageAndTheStartIsWrittenAllTheSame) {
    CustomRig rig;
    rig.list.Clear();
    rig.minute(today(10, 0, 30));
    ASSERT_EQ(rig.host.boxes.size(), 1u);
    EXPECT_EQ(rig.host.boxes[0].text, "No Drive/Path currently listed.");
    EXPECT_FALSE(rig.watching());
    EXPECT_EQ(rig.alertTexts(), Texts{startedAlert});
}

TEST(CustomWatchTime, InAWholeDayItStartsOnceAndPausesOnce) {
    CustomRig rig;
    rig.machine.now = today(0, 0, 26);
    int watchedMinutes = 0;
    for (int i = 0; i < 24 * 60; ++i) {
        rig.form1.TimerCust.Tick();
        const int minute = rig.machine.now.hour * 60 + rig.machine.now.minute;
        const bool within = minute >= 10 * 60 && minute < 18 * 60 + 30;
        ASSERT_EQ(rig.watching(), within) << minute;
        ASSERT_EQ(rig.form1.Timer1.Enabled(), within) << minute;
        watchedMinutes += within ? 1 : 0;
        rig.machine.advance(60'000);
    }
    EXPECT_EQ(watchedMinutes, 510);
    EXPECT_EQ(rig.alertTexts(), (Texts{pausedAlert, startedAlert}));
    EXPECT_EQ(rig.count("alert dialog"), 2);
}

TEST(CustomWatchTime, ATimeOverMidnightWatchesTheNight) {
    CustomRig rig;
    rig.setTimes({22, 0}, {6, 0});
    rig.machine.now = today(12, 0, 0);
    for (int i = 0; i < 24 * 60; ++i) {
        rig.form1.TimerCust.Tick();
        const int hour = rig.machine.now.hour;
        ASSERT_EQ(rig.watching(), hour >= 22 || hour < 6) << i;
        rig.machine.advance(60'000);
    }
    EXPECT_EQ(rig.alertTexts(), (Texts{pausedAlert, startedAlert}));
}

TEST(CustomWatchTime, AnErrorEndsTheMinuteWithAnAlert) {
    CustomRig rig;
    rig.form1.chkSystray.setValue(1);
    rig.tray.onToolTip = [] { throw RuntimeError(error::invalidCall); };
    rig.minute(today(10, 0));
    ASSERT_EQ(rig.alertCount(), 1);
    EXPECT_EQ(rig.alert(1),
              "Medium | 20260314 10:00 | RunTime TimerC Error: Invalid procedure call or argument");
    EXPECT_FALSE(rig.watching());
    EXPECT_TRUE(rig.form1.txtAlert.empty());
}

TEST(CustomWatchTime, AnErrorOfTheLogFileIsReportedAndTheNextMinuteRuns) {
    CustomRig rig;
    rig.form1.chkAutoSave.setValue(1);
    rig.machine.files[rig.form1.lblLog.Caption()] = "";
    rig.machine.diskFull = true;
    rig.minute(today(10, 0));
    EXPECT_EQ(rig.alertTexts(), (Texts{"RunTime TimerC Error: Disk full", startedAlert}));
    EXPECT_TRUE(rig.forms.dlgAlert.Label1.empty());
    rig.machine.diskFull = false;
    rig.minute(today(18, 30));
    EXPECT_EQ(rig.alertTexts().front(), pausedAlert);
}

}  // namespace
}  // namespace velmora::tests
