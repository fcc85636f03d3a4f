#include "controls/property.h"

#include <gtest/gtest.h>

#include <limits>

#include "controls/control_properties.h"

namespace velmora::tests {
namespace {

TEST(ReadSwitch, TakesWordsAndDigitsInAnyCaseWithBlanksAround) {
    for (const char* text : {"on", "ON", "true", "True", "1", "-1", " on "}) {
        EXPECT_TRUE(readSwitch(text)) << text;
    }
    for (const char* text : {"off", "Off", "false", "FALSE", "0", " 0 "}) {
        EXPECT_FALSE(readSwitch(text)) << text;
    }
}

TEST(ReadSwitch, RefusesOtherTexts) {
    for (const char* text : {"", " ", "2", "yes", "onn", "01", "o n", "\u00F6n"}) {
        EXPECT_EQ(refusalOf([&] { readSwitch(text); }),
                  std::string("not a switch (on or off): ") + text);
    }
}

TEST(ReadWhole, TakesWholeNumbersWithinTheRange) {
    EXPECT_EQ(readWhole("5", 5, 10), 5);
    EXPECT_EQ(readWhole(" 10 ", 5, 10), 10);
    EXPECT_EQ(readWhole("-3", -3, 0), -3);
    EXPECT_EQ(readWhole("007", 0, 10), 7);
    const auto most = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(readWhole("9223372036854775807", 0, most), most);
}

TEST(ReadWhole, RefusesNumbersOutsideTheRange) {
    EXPECT_EQ(refusalOf([] { readWhole("4", 5, 10); }), "not from 5 to 10: 4");
    EXPECT_EQ(refusalOf([] { readWhole("11", 5, 10); }), "not from 5 to 10: 11");
}

TEST(ReadWhole, RefusesWhatIsNoWholeNumber) {
    for (const char* text :
         {"", " ", "x", "1.5", "1,000", "+1", "1 2", "0x1", "1e3", "9223372036854775808"}) {
        EXPECT_EQ(refusalOf([&] { readWhole(text, 0, 10); }),
                  std::string("not a whole number: ") + text);
    }
}

}  // namespace
}  // namespace velmora::tests
