// The spinners beside the interval: seconds in txtTime, the time picker in steps of ten seconds.
#include "monitor/check_rig.h"

namespace velmora::tests {
namespace {

struct Seconds {
    const char* before;
    const char* down;
    const char* up;
};

TEST(SecondsSpinner, StepsDownByOneFromTwoOnAndUpByOneFromAnyNumber) {
    for (const Seconds& each : {
             Seconds{"3", "2", "4"},
             Seconds{"2", "1", "3"},
             Seconds{"1", "1", "2"},
             Seconds{"1.5", "1.5", "2.5"},
             Seconds{"2.5", "1.5", "3.5"},
             Seconds{"0", "0", "1"},
             Seconds{"-5", "-5", "-4"},
             Seconds{"60", "59", "61"},
             Seconds{"3599", "3598", "3600"},
             Seconds{"1,000", "999", "1001"},
             Seconds{" 10 ", "9", "11"},
         }) {
        for (const bool up : {false, true}) {
            Rig rig;
            rig.form1.txtTime.setText(each.before);
            up ? rig.form1.UpDown1.userUp() : rig.form1.UpDown1.userDown();
            EXPECT_EQ(rig.form1.txtTime.Text(), up ? each.up : each.down) << each.before;
        }
    }
}

TEST(SecondsSpinner, LeavesATextThatIsNoNumber) {
    for (const char* text : {"", "soon", "5 s"}) {
        Rig rig;
        rig.form1.txtTime.setText(text);
        rig.form1.UpDown1.userUp();
        EXPECT_EQ(rig.form1.txtTime.Text(), text);
        rig.form1.UpDown1.userDown();
        EXPECT_EQ(rig.form1.txtTime.Text(), text);
    }
}

TEST(SecondsSpinner, CanBeTurnedAnyNumberOfTimes) {
    Rig rig;
    rig.form1.txtTime.setText("5");
    for (int i = 0; i < 10; ++i) rig.form1.UpDown1.userDown();
    EXPECT_EQ(rig.form1.txtTime.Text(), "1");
    for (int i = 0; i < 100; ++i) rig.form1.UpDown1.userUp();
    EXPECT_EQ(rig.form1.txtTime.Text(), "101");
}

TEST(SecondsSpinner, LeavesTheTimePicker) {
    Rig rig;
    rig.form1.txtTime.setText("5");
    const DateTime before = rig.form1.DTPInterval.Value();
    rig.form1.UpDown1.userUp();
    rig.form1.UpDown1.userDown();
    EXPECT_EQ(rig.form1.DTPInterval.Value(), before);
}

struct Interval {
    int hour, minute, second;
};

std::string turned(const Interval& from, bool up) {
    Rig rig;
    rig.setInterval(from.hour, from.minute, from.second);
    up ? rig.form1.UpDown2.userUp() : rig.form1.UpDown2.userDown();
    return Format(rig.form1.DTPInterval.Value(), "hh:mm:ss");
}

TEST(IntervalSpinner, DownSubtractsTenSecondsFromTenOn) {
    EXPECT_EQ(turned({0, 0, 10}, false), "00:00:00");
    EXPECT_EQ(turned({0, 0, 11}, false), "00:00:01");
    EXPECT_EQ(turned({1, 2, 59}, false), "01:02:49");
    EXPECT_EQ(turned({1, 2, 50}, false), "01:02:40");
}

TEST(IntervalSpinner, DownBelowTenSecondsDoesNothing) {
    EXPECT_EQ(turned({0, 0, 9}, false), "00:00:09");
    EXPECT_EQ(turned({0, 1, 0}, false), "00:01:00");
    EXPECT_EQ(turned({5, 0, 0}, false), "05:00:00");
}

TEST(IntervalSpinner, UpAddsTenSecondsBelowFifty) {
    EXPECT_EQ(turned({0, 0, 0}, true), "00:00:10");
    EXPECT_EQ(turned({0, 0, 39}, true), "00:00:49");
    EXPECT_EQ(turned({0, 0, 40}, true), "00:00:50");
    EXPECT_EQ(turned({23, 59, 49}, true), "23:59:59");
}

TEST(IntervalSpinner, UpFromFiftySecondsOnBeginsTheNextMinute) {
    EXPECT_EQ(turned({0, 0, 50}, true), "00:01:00");
    EXPECT_EQ(turned({0, 0, 59}, true), "00:01:00");
    EXPECT_EQ(turned({0, 57, 55}, true), "00:58:00");
    EXPECT_EQ(turned({0, 58, 50}, true), "00:59:00");
}

TEST(IntervalSpinner, UpFromTheLastMinuteBeginsTheNextHour) {
    EXPECT_EQ(turned({0, 59, 50}, true), "01:00:00");
    EXPECT_EQ(turned({21, 59, 59}, true), "22:00:00");
    EXPECT_EQ(turned({22, 59, 50}, true), "23:00:00");
}

TEST(IntervalSpinner, UpFromTheLastHourWrapsToZero) {
    EXPECT_EQ(turned({23, 59, 50}, true), "00:00:00");
    EXPECT_EQ(turned({23, 59, 59}, true), "00:00:00");
    EXPECT_EQ(turned({23, 58, 59}, true), "23:59:00");
}

TEST(IntervalSpinner, WalksThroughAWholeDayAndComesBack) {
    Rig rig;
    rig.setInterval(0, 0, 0);
    for (int i = 0; i < 24 * 60 * 6; ++i) {
        ASSERT_EQ(rig.form1.DTPInterval.Hour() * 360 + rig.form1.DTPInterval.Minute() * 6 +
                      rig.form1.DTPInterval.Second() / 10,
                  i);
        rig.form1.UpDown2.userUp();
    }
    EXPECT_EQ(Format(rig.form1.DTPInterval.Value(), "hh:mm:ss"), "00:00:00");
}

TEST(IntervalSpinner, LeavesTheSecondsInTxtTime) {
    Rig rig;
    rig.form1.txtTime.setText("5");
    rig.form1.UpDown2.userUp();
    rig.form1.UpDown2.userDown();
    EXPECT_EQ(rig.form1.txtTime.Text(), "5");
}

}  // namespace
}  // namespace velmora::tests
