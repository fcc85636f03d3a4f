// The schedule of the mail. That it is due shows in the question for the memory, which is part of
// the composed text.
#include "notify/notify_rig.h"

namespace velmora::tests {
namespace {

struct MailScheduleTest : testing::Test, NotifyRig {
    MailSchedule schedule{form, platform.clock, content};

    MailScheduleTest() {
        select({5});
        machine.now = {2026, 3, 14, 15, 9, 1};
        setDaily(9, 30);
    }

    void setDaily(int hour, int minute) {
        form.DTPicker1.setHour(hour);
        form.DTPicker1.setMinute(minute);
    }
    void choose(std::initializer_list<int> entries) {
        for (const int entry : entries) form.lstNotTime.setSelected(entry, true);
    }
    void tick(int times = 1) {
        for (int i = 0; i < times; ++i) form.tmrEmail.Tick();
    }
    int composed() const { return machine.log.countOf("GlobalMemoryStatus"); }
};

TEST_F(MailScheduleTest, ItsTimerRunsEachMinuteFromTheStart) {
    EXPECT_EQ(form.tmrEmail.Interval(), 60000);
    EXPECT_TRUE(form.tmrEmail.Enabled());
    EXPECT_EQ(schedule.lngHourCount, 0);
    EXPECT_EQ(schedule.lngIntervalCount, 0);
}

TEST_F(MailScheduleTest, WithNothingChosenTicksOnlyCount) {
    tick(3);
    EXPECT_EQ(schedule.lngHourCount, 3);
    EXPECT_EQ(schedule.lngIntervalCount, 0);
    EXPECT_EQ(composed(), 0);
}

TEST_F(MailScheduleTest, TheTicksOfAnHourAreCounted) {
    tick(59);
    EXPECT_EQ(schedule.lngHourCount, 59);
    tick();
    EXPECT_EQ(schedule.lngHourCount, 0);
    tick();
    EXPECT_EQ(schedule.lngHourCount, 1);
}

TEST_F(MailScheduleTest, HourlyIsNeverDue) {
    choose({0});
    tick(121);
    EXPECT_EQ(composed(), 0);
    EXPECT_EQ(schedule.lngHourCount, 1);
}

TEST_F(MailScheduleTest, TheIntervalIsDueAtEachTickWhateverTheUserSets) {
    choose({2});
    form.DTPicker2.setHour(5);
    form.DTPicker2.setMinute(45);
    tick(3);
    EXPECT_EQ(composed(), 3);
    EXPECT_EQ(schedule.lngIntervalCount, 0);
    form.DTPicker2.setHour(0);
    form.DTPicker2.setMinute(0);
    tick();
    EXPECT_EQ(composed(), 4);
}

TEST_F(MailScheduleTest, TheIntervalIsComparedWithNone) {
    choose({2});
    schedule.lngIntervalCount = -3;
    tick(2);
    EXPECT_EQ(composed(), 0);
    EXPECT_EQ(schedule.lngIntervalCount, -1);
    tick();
    EXPECT_EQ(composed(), 1);
    EXPECT_EQ(schedule.lngIntervalCount, 0);
}

TEST_F(MailScheduleTest, HourlyAddsNothingToTheInterval) {
    choose({0, 2});
    tick(4);
    EXPECT_EQ(composed(), 4);
    EXPECT_TRUE(machine.winsock.calls.empty());
    EXPECT_TRUE(machine.smtpClient.messages.empty());
    EXPECT_EQ(form1.LVAlert.Count(), 0);
    EXPECT_EQ(form.StatusTxt.Text(), "");
}

TEST_F(MailScheduleTest, DailyIsDueInTheChosenMinute) {
    choose({1});
    setDaily(15, 10);
    tick();
    EXPECT_EQ(composed(), 0);
    machine.advance(60'000);  // 15:10:01
    tick();
    EXPECT_EQ(composed(), 1);
    machine.advance(60'000);
    tick();
    EXPECT_EQ(composed(), 1);
}

TEST_F(MailScheduleTest, TwoTicksInTheChosenMinuteAreTwoTimesDue) {
    choose({1});
    setDaily(15, 9);
    tick();
    machine.advance(58'000);  // 15:09:59
    tick();
    EXPECT_EQ(composed(), 2);
}

TEST_F(MailScheduleTest, DailyLooksAtHourAndMinuteAlone) {
    choose({1});
    form.DTPicker1.setValue({2001, 1, 1, 15, 9, 40});
    tick();
    EXPECT_EQ(composed(), 1);
    form.DTPicker1.setValue({2026, 3, 14, 3, 9, 1});
    tick();
    EXPECT_EQ(composed(), 1);
}

TEST_F(MailScheduleTest, TheTimesOfADayAreDueOnEachDay) {
    choose({1});
    setDaily(15, 9);
    tick();
    machine.advance(24LL * 60 * 60 * 1000);
    tick();
    EXPECT_EQ(composed(), 2);
}

TEST_F(MailScheduleTest, EntriesBehindTheOneThatIsDueAreNotLookedAt) {
    choose({1, 2});
    setDaily(15, 9);
    schedule.lngIntervalCount = -5;
    tick();
    EXPECT_EQ(composed(), 1);
    EXPECT_EQ(schedule.lngIntervalCount, -5);
}

TEST_F(MailScheduleTest, TheEntriesOnAlertsAreReadByNothing) {
    choose({3, 4});
    form.lstNotTime.AddItem("another");
    choose({5});
    tick(61);
    EXPECT_EQ(composed(), 0);
    EXPECT_EQ(schedule.lngIntervalCount, 0);
}

TEST_F(MailScheduleTest, TheTimerIsOffWhileItWorks) {
    choose({2});
    select({2});
    form1.LVFile.Add("a.txt");
    bool wasOn = true;
    host.onYield = [&](int) { wasOn = form.tmrEmail.Enabled(); };
    tick();
    EXPECT_EQ(host.yields, 1);
    EXPECT_FALSE(wasOn);
    EXPECT_TRUE(form.tmrEmail.Enabled());
}

TEST_F(MailScheduleTest, ATickSwitchesItsTimerOn) {
    form.tmrEmail.setEnabled(false);
    tick();
    EXPECT_TRUE(form.tmrEmail.Enabled());
}

TEST_F(MailScheduleTest, ANumberOfEventsBeyond16BitsIsAnErrorThatNobodyTakes) {
    choose({2});
    select({9});
    form.txtCustMsg.setText("40000");
    EXPECT_EQ(errorOf([this] { tick(); }), error::overflow);
}

}  // namespace
}  // namespace velmora::tests
