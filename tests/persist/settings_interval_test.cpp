// The interval picker out of the seconds of the file.
#include <gtest/gtest.h>

#include "settings_rig.h"

namespace velmora::tests {
namespace {

/// Hour, minute and second; `kept` where the arithmetic gives what a picker can't hold.
constexpr int kept = -1;
struct IntervalCase {
    const char* seconds;
    int hour, minute, second;
};

// Hours: a quotient rounded to the nearest, ties to even, from 3600 on. Minutes: likewise from 60
// on, but the remainder by 3600 when the quotient is 60 or more. Seconds: nothing below 10, the
// number below 60, then the remainder.
constexpr IntervalCase cases[] = {
    {"0", 0, 0, 0},           {"5", 0, 0, 0},
    {"9", 0, 0, 0},           {"9.9", 0, 0, 0},
    {"10", 0, 0, 10},         {"59", 0, 0, 59},
    {"60", 0, 1, 0},          {"61", 0, 1, 1},
    {"65", 0, 1, 5},          {"89", 0, 1, 29},
    {"90", 0, 2, 30},         {"91", 0, 2, 31},
    {"149", 0, 2, 29},        {"150", 0, 2, 30},
    {"151", 0, 3, 31},        {"210", 0, 4, 30},
    {"3569", 0, 59, 29},      {"3570", 0, kept, 30},
    {"3599", 0, kept, 59},    {"3600", 1, 0, 0},
    {"3601", 1, 1, 1},        {"3659", 1, 59, 59},
    {"3660", 1, kept, 0},     {"5399", 1, kept, 59},
    {"5400", 2, kept, 0},     {"7199", 2, kept, 59},
    {"7200", 2, 0, 0},        {"9000", 2, kept, 0},
    {"12600", 4, kept, 0},    {"36000", 10, 0, 0},
    {"82800", 23, 0, 0},      {"84599", 23, kept, 59},
    {"84600", kept, kept, 0}, {"86399", kept, kept, 59},
    {"86400", kept, 0, 0},    {"2147483647", kept, kept, 7},
    {"-1", 0, 0, 0},          {"-3600", 0, 0, 0},
    {"-3E9", 0, 0, 0},        {"12.5", 0, 0, 12},
    {"13.5", 0, 0, 14},       {"59.4", 0, 0, 59},
    {"59.7", 0, 0, kept},     {"90.4", 0, 2, 30},
    {" 65 ", 0, 1, 5},
};

TEST(SettingsInterval, FollowsTheArithmeticAndKeepsThePartsThatDontFit) {
    for (const IntervalCase& c : cases) {
        SettingsRig rig;
        DatePicker& picker = rig.form1.DTPInterval;
        picker.setHour(21);
        picker.setMinute(42);
        picker.setSecond(33);
        EXPECT_EQ(rig.readBytes(fileOf({"txtTime=" + std::string(c.seconds) + "\r\n"})), 0);
        EXPECT_EQ(picker.Hour(), c.hour == kept ? 21 : c.hour) << c.seconds;
        EXPECT_EQ(picker.Minute(), c.minute == kept ? 42 : c.minute) << c.seconds;
        EXPECT_EQ(picker.Second(), c.second == kept ? 33 : c.second) << c.seconds;
    }
}

TEST(SettingsInterval, FailsByOverflowBeyond32Bits) {
    SettingsRig rig;
    EXPECT_EQ(rig.readBytes(fileOf({"txtTime=2147483648\r\n"})), error::overflow);
    EXPECT_EQ(rig.form1.txtTime.Text(), "2147483648\r\n") << "the text is set first";
}

TEST(SettingsInterval, FailsOnATextThatIsNoNumber) {
    for (const char* text : {"txtTime=", "txtTime=\r\n", "txtTime=1 h\r\n"}) {
        SettingsRig rig;
        EXPECT_EQ(rig.readBytes(fileOf({text})), error::typeMismatch) << text;
    }
}

TEST(SettingsInterval, IsTheOneOfTheLastLine) {
    SettingsRig rig;
    rig.readBytes(fileOf({"txtTime=3600", "txtTime=75"}));
    EXPECT_EQ(rig.form1.txtTime.Text(), "75");
    EXPECT_EQ(rig.form1.DTPInterval.Hour(), 0);
    EXPECT_EQ(rig.form1.DTPInterval.Minute(), 1);
    EXPECT_EQ(rig.form1.DTPInterval.Second(), 15);
}

TEST(SettingsInterval, IsNotReadFromThePickersOwnLine) {
    SettingsRig rig;
    EXPECT_EQ(rig.read({"custtimeDTPI=5:06:07 AM"}), 0);
    EXPECT_EQ(rig.form1.DTPInterval.Hour(), 0);
    EXPECT_EQ(rig.form1.DTPInterval.Minute(), 1);
    EXPECT_EQ(rig.form1.DTPInterval.Second(), 0);
}

TEST(SettingsInterval, IsReadInTheRegionalForm) {
    SettingsRig rig;
    rig.machine.platform().regional = {.digitGroup = ".", .decimalPoint = ","};
    EXPECT_EQ(rig.readBytes(fileOf({"txtTime=7.200,0\r\n"})), 0);
    EXPECT_EQ(rig.form1.DTPInterval.Hour(), 2);
}

TEST(SettingsInterval, OfZeroOrLessReadsBackAs5) {
    for (const char* text : {"0", "-1", "-0.5", "0.0", "-3000000000"}) {
        SettingsRig rig;
        EXPECT_EQ(rig.readBytes(fileOf({"txtTime=" + std::string(text) + "\r\n"})), 0) << text;
        EXPECT_EQ(rig.form1.txtTime.Text(), "5") << text;
    }
}

TEST(SettingsInterval, AboveZeroStaysHoweverSmall) {
    SettingsRig rig;
    EXPECT_EQ(rig.readBytes(fileOf({"txtTime=0.25\r\n"})), 0);
    EXPECT_EQ(rig.form1.txtTime.Text(), "0.25\r\n");
}

}  // namespace
}  // namespace velmora::tests
