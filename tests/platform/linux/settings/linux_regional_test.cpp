#include "platform/linux/settings/linux_regional.h"

#include <gtest/gtest.h>
#include <locale.h>
#include <stdlib.h>

namespace velmora::linuxhost {
namespace {

TEST(LinuxRegional, OrderAndSeparatorsComeOutOfThePatterns) {
    const Regional german =
        regionalOf({.radix = ",", .group = ".", .date = "%d.%m.%Y", .time = "%H:%M:%S"});
    EXPECT_EQ(german.decimalPoint, ",");
    EXPECT_EQ(german.digitGroup, ".");
    EXPECT_EQ(german.dateOrder, DateOrder::dayMonthYear);
    EXPECT_EQ(german.dateSeparator, ".");
    EXPECT_EQ(german.timeSeparator, ":");
    EXPECT_FALSE(german.twelveHourClock);
}

TEST(LinuxRegional, AClockOf12HoursIsRecognizedByItsConversions) {
    for (const char* time : {"%r", "%I:%M:%S %p", "%l:%M:%S %P"})
        EXPECT_TRUE(regionalOf({.radix = ".", .group = ",", .date = "%m/%d/%Y", .time = time})
                        .twelveHourClock)
            << time;
    for (const char* time : {"%T", "%H:%M:%S", "%k.%M.%S", "%R"})
        EXPECT_FALSE(regionalOf({.radix = ".", .group = ",", .date = "%m/%d/%Y", .time = time})
                         .twelveHourClock)
            << time;
}

struct DateForm {
    const char* pattern;
    DateOrder order;
    const char* separator;
};

TEST(LinuxRegional, DatesOfManyFormsAreUnderstood) {
    const DateForm forms[] = {
        {"%m/%d/%Y", DateOrder::monthDayYear, "/"},
        {"%D", DateOrder::monthDayYear, "/"},
        {"%F", DateOrder::yearMonthDay, "-"},
        {"%Y-%m-%d", DateOrder::yearMonthDay, "-"},
        {"%-d.%-m.%Y", DateOrder::dayMonthYear, "."},
        {"%d/%m/%y", DateOrder::dayMonthYear, "/"},
        {"%d-%m/%Y", DateOrder::dayMonthYear, "-"},
        {"%Y. %m. %d.", DateOrder::yearMonthDay, "."},
        {"%d %b %Y", DateOrder::dayMonthYear, "/"},
        {"%b %d, %Y", DateOrder::monthDayYear, "/"},
        {"%B %d, %Y", DateOrder::monthDayYear, "/"},
        {"%h %e, %Y", DateOrder::monthDayYear, "/"},
        {"%Y年%m月%d日", DateOrder::yearMonthDay, "/"},
        {"%Od-%Om-%Ey", DateOrder::dayMonthYear, "-"},
    };
    for (const DateForm& form : forms) {
        const Regional regional =
            regionalOf({.radix = ".", .group = "", .date = form.pattern, .time = "%T"});
        EXPECT_EQ(regional.dateOrder, form.order) << form.pattern;
        EXPECT_EQ(regional.dateSeparator, form.separator) << form.pattern;
    }
}

TEST(LinuxRegional, TimesWithPointsKeepThem) {
    const Regional finnish =
        regionalOf({.radix = ",", .group = "\u00a0", .date = "%-d.%-m.%Y", .time = "%H.%M.%S"});
    EXPECT_EQ(finnish.timeSeparator, ".");
    EXPECT_EQ(finnish.digitGroup, "\u00a0");
}

TEST(LinuxRegional, SignsOfOtherCodesBecomeUtf8) {
    const Regional french = regionalOf(
        {.radix = ",", .group = "\xa0", .date = "%d/%m/%Y", .time = "%T", .codeset = "ISO-8859-1"});
    EXPECT_EQ(french.digitGroup, "\u00a0");
    EXPECT_EQ(regionalOf({.radix = "\xa0", .group = "\xa0", .date = "", .time = "", .codeset = "?"})
                  .decimalPoint,
              ".");
}

TEST(LinuxRegional, BrokenPatternsAreTakenAsFarAsTheyGo) {
    const Regional regional = regionalOf({.radix = "", .group = "", .date = "%", .time = "%-"});
    EXPECT_EQ(regional.decimalPoint, ".");
    EXPECT_EQ(regional.dateSeparator, "/");
    EXPECT_EQ(regional.timeSeparator, ":");
}

TEST(LinuxRegional, TheProgramsOwnLocaleStaysAlone) {
    const std::string before = setlocale(LC_ALL, nullptr);
    userRegional();
    EXPECT_EQ(setlocale(LC_ALL, nullptr), before);
}

TEST(LinuxRegional, NoRegionIsTheDefaultOne) {
    setenv("LC_ALL", "C", 1);
    const Regional regional = userRegional();
    unsetenv("LC_ALL");
    EXPECT_EQ(regional.digitGroup, ",");
    EXPECT_EQ(regional.decimalPoint, ".");
    EXPECT_EQ(regional.dateOrder, DateOrder::monthDayYear);
    EXPECT_TRUE(regional.twelveHourClock);
}

}  // namespace
}  // namespace velmora::linuxhost
