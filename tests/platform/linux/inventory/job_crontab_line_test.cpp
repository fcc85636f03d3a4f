#include <gtest/gtest.h>

#include "platform/linux/inventory/crontab_field.h"
#include "platform/linux/inventory/crontab_line.h"

namespace velmora::linuxhost {
namespace {

std::optional<CronJob> ofSystem(std::string_view line) {
    return readCrontabLine(line, CrontabKind::system);
}

std::optional<CronJob> ofUser(std::string_view line) {
    return readCrontabLine(line, CrontabKind::user);
}

// Bits with these numbers.
std::uint32_t bits(std::initializer_list<int> numbers) {
    std::uint32_t result = 0;
    for (const int number : numbers) result |= std::uint32_t{1} << number;
    return result;
}

std::optional<std::uint32_t> daysOfMonth(const std::string& field) {
    const auto job = ofUser("1 2 " + field + " * * run");
    return job ? job->daysOfMonth : 0;
}

std::optional<std::uint32_t> daysOfWeek(const std::string& field) {
    const auto job = ofUser("1 2 * * " + field + " run");
    return job ? job->daysOfWeek : 0;
}

TEST(JobCrontabLine, OfTheSystemHasAUserInFrontOfTheCommand) {
    const auto job = ofSystem("17 *\t* * *  root    cd / && run-parts  /etc/cron.hourly");
    ASSERT_TRUE(job);
    EXPECT_EQ(job->schedule, "17 *\t* * *");
    EXPECT_EQ(job->user, "root");
    EXPECT_EQ(job->command, "cd / && run-parts  /etc/cron.hourly");
    EXPECT_FALSE(job->time);
    EXPECT_FALSE(job->daysOfMonth);
    EXPECT_FALSE(job->daysOfWeek);
}

TEST(JobCrontabLine, OfAUserHasTheCommandAtOnce) {
    const auto job = ofUser("  5 4 * * * root things");
    ASSERT_TRUE(job);
    EXPECT_EQ(job->schedule, "5 4 * * *");
    EXPECT_EQ(job->user, "");
    EXPECT_EQ(job->command, "root things");
}

TEST(JobCrontabLine, ANameMayStandForTheFields) {
    for (const std::string name : {"@reboot", "@yearly", "@annually", "@monthly", "@weekly",
                                   "@daily", "@midnight", "@hourly"}) {
        const auto job = ofSystem(name + "\troot  backup --all");
        ASSERT_TRUE(job) << name;
        EXPECT_EQ(job->schedule, name);
        EXPECT_EQ(job->user, "root");
        EXPECT_EQ(job->command, "backup --all");
        EXPECT_FALSE(job->time || job->daysOfMonth || job->daysOfWeek);
    }
    EXPECT_FALSE(ofSystem("@never root x"));
    EXPECT_FALSE(ofSystem("@daily"));
    EXPECT_FALSE(ofSystem("@daily root"));
}

TEST(JobCrontabLine, TheTimeIsKnownWhenHourAndMinuteAreSingleNumbers) {
    const auto job = ofUser("05 23 1 1 0 x");
    ASSERT_TRUE(job && job->time);
    EXPECT_EQ(job->time->hour, 23);
    EXPECT_EQ(job->time->minute, 5);
    for (const char* line :
         {"* 23 * * * x", "5 * * * * x", "5,6 23 * * * x", "5 22-23 * * * x", "*/5 23 * * * x"}) {
        const auto other = ofUser(line);
        ASSERT_TRUE(other) << line;
        EXPECT_FALSE(other->time) << line;
    }
}

TEST(JobCrontabLine, DaysOfTheMonthBeginAtBit0) {
    EXPECT_EQ(daysOfMonth("*"), std::nullopt);
    EXPECT_EQ(daysOfMonth("1"), bits({0}));
    EXPECT_EQ(daysOfMonth("31"), bits({30}));
    EXPECT_EQ(daysOfMonth("1,15"), bits({0, 14}));
    EXPECT_EQ(daysOfMonth("3-5,20"), bits({2, 3, 4, 19}));
    EXPECT_EQ(daysOfMonth("*/10"), bits({0, 10, 20, 30}));
    EXPECT_EQ(daysOfMonth("2-8/3"), bits({1, 4, 7}));
    EXPECT_EQ(daysOfMonth("1-31"), 0x7FFFFFFFu);
    EXPECT_EQ(daysOfMonth("5-31/99"), bits({4}));
}

TEST(JobCrontabLine, DaysOfTheWeekBeginWithMonday) {
    EXPECT_EQ(daysOfWeek("*"), std::nullopt);
    EXPECT_EQ(daysOfWeek("1"), bits({0}));
    EXPECT_EQ(daysOfWeek("6"), bits({5}));
    EXPECT_EQ(daysOfWeek("0"), bits({6}));
    EXPECT_EQ(daysOfWeek("7"), bits({6}));
    EXPECT_EQ(daysOfWeek("1-5"), bits({0, 1, 2, 3, 4}));
    EXPECT_EQ(daysOfWeek("0-7"), 0x7Fu);
    EXPECT_EQ(daysOfWeek("5-7"), bits({4, 5, 6}));
    EXPECT_EQ(daysOfWeek("*/2"), bits({6, 1, 3, 5}));
    EXPECT_EQ(daysOfWeek("mon"), bits({0}));
    EXPECT_EQ(daysOfWeek("SUN,Wed"), bits({6, 2}));
    EXPECT_EQ(daysOfWeek("tue-thu"), bits({1, 2, 3}));
    EXPECT_EQ(daysOfWeek("fri-sun"), bits({4, 5, 6}));
    EXPECT_EQ(daysOfWeek("sun-tue"), bits({6, 0, 1}));
}

TEST(JobCrontabLine, MonthsHaveNames) {
    EXPECT_EQ(cronValues("jan,Mar-may,12", CronField::month), 0b1'0000'0011'1010u);
    EXPECT_TRUE(ofUser("1 2 3 dec * x"));
}

TEST(JobCrontabLine, ACommandEndsAtAPercentSign) {
    const auto commandOf = [](const std::string& command) {
        const auto job = ofUser("* * * * * " + command);
        return job ? job->command : "(none)";
    };
    EXPECT_EQ(commandOf("mail me%Hello%there"), "mail me");
    EXPECT_EQ(commandOf("date +\\%H:\\%M%input"), "date +%H:%M");
    EXPECT_EQ(commandOf("echo \\\\ \\n"), "echo \\\\ \\n");
    EXPECT_EQ(commandOf("%input"), "(none)");
    const auto system = ofSystem("* * * * * me date +\\%H%x");
    ASSERT_TRUE(system);
    EXPECT_EQ(system->command, "date +%H");
}

TEST(JobCrontabLine, OtherLinesArePassedOver) {
    for (const char* line : {"",
                             "   ",
                             "# 1 2 3 4 5 root x",
                             "  # note",
                             "SHELL=/bin/sh",
                             "MAILTO = me",
                             "A=",
                             "\"A B\" = c",
                             "'PATH'=/bin",
                             "  X=1 2 3 4 5 6 7",
                             "1 2 3 4 5",
                             "1 2 3 4 5 root",
                             "words",
                             "1 2 3 4",
                             "60 2 3 4 5 root x",
                             "1 24 3 4 5 root x",
                             "1 2 0 4 5 root x",
                             "1 2 32 4 5 root x",
                             "1 2 3 13 5 root x",
                             "1 2 3 0 5 root x",
                             "1 2 3 4 8 root x",
                             "1 2 3 4 foo root x",
                             "-1 2 3 4 5 root x",
                             "1,, 2 3 4 5 root x",
                             "*/0 2 3 4 5 root x",
                             "*/ 2 3 4 5 root x",
                             "5-1 2 3 4 5 root x",
                             "1- 2 3 4 5 root x",
                             "jan 2 3 4 5 root x",
                             "*- 2 3 4 5 root x",
                             "1-2-3 2 3 4 5 root x",
                             "99999999999999 2 3 4 5 root x"})
        EXPECT_FALSE(ofSystem(line)) << line;
    EXPECT_TRUE(ofSystem("1 2 3 4 5 root X=1 program"));
}

}  // namespace
}  // namespace velmora::linuxhost
