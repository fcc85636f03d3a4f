#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <string>

#include "platform/linux/inventory/inventory_zone.h"
#include "platform/linux/inventory/syslog_line.h"

namespace velmora::linuxhost {
namespace {

constexpr std::int64_t noonOf22November2026 = 1795348800;  // UTC

class EventSyslogLine : public testing::Test {
  protected:
    static SyslogLine read(std::string_view line, std::int64_t now = noonOf22November2026) {
        return readSyslogLine(line, now);
    }
    static void expectMessageAlone(std::string_view line) {
        const SyslogLine read = readSyslogLine(line, noonOf22November2026);
        EXPECT_FALSE(read.time) << line;
        EXPECT_EQ(read.host, "") << line;
        EXPECT_EQ(read.tag, "") << line;
        EXPECT_EQ(read.message, line);
    }

    InventoryZone zone_{"UTC0"};
};

TEST_F(EventSyslogLine, TheTraditionalFormHasTimeHostTagAndMessage) {
    const SyslogLine line = read("Nov 22 05:29:47 box sshd[812]: Accepted key: for me");
    EXPECT_EQ(line.time, 1795325387'000000);
    EXPECT_EQ(line.host, "box");
    EXPECT_EQ(line.tag, "sshd");
    EXPECT_EQ(line.message, "Accepted key: for me");
}

TEST_F(EventSyslogLine, ATagNeedsNoProcess) {
    const SyslogLine line = read("Nov  2 05:29:47 box kernel: [ 1.5] up");
    EXPECT_EQ(line.time, (1795325387 - 20 * 86400) * std::int64_t{1'000'000});
    EXPECT_EQ(line.tag, "kernel");
    EXPECT_EQ(line.message, "[ 1.5] up");
    EXPECT_EQ(read("Nov 02 05:29:47 box kernel: up").time, line.time);
    EXPECT_EQ(read("Nov 22 05:29:47 box (sd-pam)[3]: x").tag, "(sd-pam)");
    EXPECT_EQ(read("Nov 22 05:29:47 box postfix/smtpd[3]: x").tag, "postfix/smtpd");
    EXPECT_EQ(read("Nov 22 05:29:47 box cron[3]:").tag, "cron");
}

TEST_F(EventSyslogLine, TheYearIsTheLatestThatIsNotLater) {
    EXPECT_EQ(read("Nov 22 12:00:00 box a: b").time, 1795348800'000000);
    EXPECT_EQ(read("Nov 22 12:00:01 box a: b").time, 1763812801'000000);
    EXPECT_EQ(read("Dec 31 23:59:59 box a: b").time, 1767225599'000000);
    constexpr std::int64_t newYear2026 = 1767225630;
    EXPECT_EQ(read("Dec 31 23:59:59 box a: b", newYear2026).time, 1767225599'000000);
}

TEST_F(EventSyslogLine, MonthsHaveTheirEnglishNames) {
    const char* const names[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    for (int month = 0; month < 12; ++month) {
        std::tm day{};
        day.tm_year = month < 11 ? 126 : 125;
        day.tm_mon = month;
        day.tm_mday = 15;
        day.tm_hour = 12;
        const std::string line = std::string(names[month]) + " 15 12:00:00 box a: b";
        EXPECT_EQ(read(line).time, std::int64_t{timegm(&day)} * 1'000'000) << line;
    }
    EXPECT_FALSE(read("Mai 15 12:00:00 box a: b").time);
}

TEST_F(EventSyslogLine, ALeapDayIsInALeapYear) {
    EXPECT_EQ(read("Feb 29 01:02:03 box a: b").time, 1709168523'000000);
}

TEST_F(EventSyslogLine, TheTimeIsLocal) {
    const InventoryZone west("TST5");
    EXPECT_EQ(read("Nov 22 00:29:47 box a: b").time, 1795325387'000000);
    // Seven o'clock there is noon in UTC.
    EXPECT_EQ(read("Nov 22 07:00:00 box a: b").time, 1795348800'000000);
    EXPECT_EQ(read("Nov 22 07:00:01 box a: b").time, (1795348801 - 365 * 86400) * 1'000'000LL);
}

// On 1 November 2026 the hour from 1 to 2 comes twice, from 5 and from 6 o'clock UTC.
TEST_F(EventSyslogLine, AnHourThatComesTwiceIsNotTakenForLastYears) {
    const InventoryZone newYork("EST5EDT,M3.2.0,M11.1.0");
    constexpr std::int64_t quarterToSix = 1793511900;
    EXPECT_EQ(read("Nov  1 01:30:00 box a: b", quarterToSix).time, 1793511000'000000);
}

TEST_F(EventSyslogLine, TheFullFormHasYearFractionAndOffset) {
    const SyslogLine line = read("2026-11-22T05:29:47.123456+00:00 box cron[7]: run");
    EXPECT_EQ(line.time, 1795325387'123456);
    EXPECT_EQ(line.host, "box");
    EXPECT_EQ(line.tag, "cron");
    EXPECT_EQ(line.message, "run");
    EXPECT_EQ(read("2026-11-22T05:29:47Z box a: b").time, 1795325387'000000);
    EXPECT_EQ(read("2026-11-22T05:29:47.5Z box a: b").time, 1795325387'500000);
    EXPECT_EQ(read("2026-11-22T05:29:47.1234567Z box a: b").time, 1795325387'123456);
    EXPECT_EQ(read("2026-11-22T07:59:47.000001+02:30 box a: b").time, 1795325387'000001);
    EXPECT_EQ(read("2026-11-22T00:29:47-05:00 box a: b").time, 1795325387'000000);
}

TEST_F(EventSyslogLine, AFullTimeMayBeLaterThanNow) {
    EXPECT_EQ(read("2027-01-01T00:00:00Z box a: b").time, 1798761600'000000);
}

TEST_F(EventSyslogLine, ALineOfNeitherFormIsAMessage) {
    for (const char* line : {"",
                             " ",
                             "just words",
                             "Nov 22 05:29:47",
                             "Nov 22 05:29:47 ",
                             "Nov 22 05:29:47 box",
                             "Nov 22 05:29:47 box no tag here",
                             "Nov 22 05:29:47  a: b",
                             "Nov 22 05:29:47 box : b",
                             "Nov 22 24:29:47 box a: b",
                             "Nov 22 05:60:47 box a: b",
                             "Nov 22 05:29:60 box a: b",
                             "Nov 31 05:29:47 box a: b",
                             "Nov  0 05:29:47 box a: b",
                             "Feb 30 05:29:47 box a: b",
                             "Foo 22 05:29:47 box a: b",
                             "nov 22 05:29:47 box a: b",
                             "Nov 22 05-29-47 box a: b",
                             "2026-11-22T05:29:47 box a: b",
                             "2026-11-22 05:29:47Z box a: b",
                             "2026-11-22T05:29:47.Z box a: b",
                             "2026-02-29T05:29:47Z box a: b",
                             "2026-13-22T05:29:47Z box a: b",
                             "2026-11-22T05:29:47+0000 box a: b",
                             "2026-11-22T05:29:47+24:00 box a: b",
                             "2026-11-22T05:29:47Zbox a: b",
                             "2026-11-22T05:29:47Z"})
        expectMessageAlone(line);
}

}  // namespace
}  // namespace velmora::linuxhost
