// The forms in which alerts are stamped.
#include "alerts/journal/alert_time.h"

#include <gtest/gtest.h>

namespace velmora::tests {
namespace {

constexpr DateTime morning{2027, 1, 2, 3, 4, 5};
constexpr DateTime evening{2026, 12, 31, 23, 59, 58};

TEST(AlertTime, MinutesAreDateAndTimeWithoutMarksInTheDate) {
    EXPECT_EQ(Format(morning, alert_time::minutes), "20270102 03:04");
    EXPECT_EQ(Format(evening, alert_time::minutes), "20261231 23:59");
}

TEST(AlertTime, SecondsAreTheSameWithSeconds) {
    EXPECT_EQ(Format(morning, alert_time::seconds), "20270102 03:04:05");
    EXPECT_EQ(Format(evening, alert_time::seconds), "20261231 23:59:58");
}

TEST(AlertTime, DateAndTimeAreJoinedByOneBlank) {
    EXPECT_EQ(alert_time::dateAndTime(morning), "01/02/27 03:04:05");
    EXPECT_EQ(alert_time::dateAndTime(evening), "12/31/26 23:59:58");
}

TEST(AlertTime, MidnightAndNoonAreOfATwentyFourHourClock) {
    EXPECT_EQ(alert_time::dateAndTime({2026, 3, 14, 0, 0, 0}), "03/14/26 00:00:00");
    EXPECT_EQ(alert_time::dateAndTime({2026, 3, 14, 12, 0, 0}), "03/14/26 12:00:00");
}

}  // namespace
}  // namespace velmora::tests
