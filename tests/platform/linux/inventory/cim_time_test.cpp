#include "platform/linux/inventory/cim_time.h"

#include <gtest/gtest.h>

#include <ctime>
#include <limits>

#include "platform/linux/support/environment.h"

namespace velmora::linuxhost {
namespace {

class CimZone {
  public:
    explicit CimZone(const char* name) : variable_("TZ", name) { tzset(); }

  private:
    Environment variable_;
};

std::string cimTimeIn(const char* zone, std::int64_t microseconds) {
    const CimZone place(zone);
    return cimTime(microseconds);
}

TEST(CimTime, IsLocalWithTheMinutesAheadOfUtc) {
    // 2009-02-13 23:31:30 UTC.
    constexpr std::int64_t moment = 1'234'567'890'123'456;
    EXPECT_EQ(cimTimeIn("UTC0", moment), "20090213233130.123456+000");
    EXPECT_EQ(cimTimeIn("IST-5:30", moment), "20090214050130.123456+330");
    EXPECT_EQ(cimTimeIn("EST5", moment), "20090213183130.123456-300");
    EXPECT_EQ(cimTimeIn("XXX-1", moment), "20090214003130.123456+060");
    EXPECT_EQ(cimTimeIn("XXX1", moment), "20090213223130.123456-060");
    tzset();
}

TEST(CimTime, FollowsSummerTime) {
    // 2024-07-01 12:00 UTC.
    EXPECT_EQ(cimTimeIn("CET-1CEST,M3.5.0,M10.5.0/3", 1'719'835'200'000'000),
              "20240701140000.000000+120");
    tzset();
}

TEST(CimTime, MicrosecondsCountOnWithinASecondBefore1970) {
    EXPECT_EQ(cimTimeIn("UTC0", 0), "19700101000000.000000+000");
    EXPECT_EQ(cimTimeIn("UTC0", -1), "19691231235959.999999+000");
    EXPECT_EQ(cimTimeIn("UTC0", -1'000'000), "19691231235959.000000+000");
    tzset();
}

TEST(CimTime, IsEmptyWhereTheYearHasNotFourDigits) {
    EXPECT_EQ(cimTimeIn("UTC0", 253'402'300'799'999'999), "99991231235959.999999+000");
    EXPECT_EQ(cimTimeIn("UTC0", 253'402'300'800'000'000), "");
    EXPECT_EQ(cimTimeIn("UTC0", std::numeric_limits<std::int64_t>::max()), "");
    EXPECT_EQ(cimTimeIn("UTC0", std::numeric_limits<std::int64_t>::min()), "");
    tzset();
}

}  // namespace
}  // namespace velmora::linuxhost
