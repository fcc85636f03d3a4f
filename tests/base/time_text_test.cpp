#include "base/time_text.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(TimeText, IsMadeOnceForEachTime) {
    TimeText text;
    int made = 0;
    const auto make = [&](const DateTime& time) {
        ++made;
        return std::to_string(time.second);
    };
    EXPECT_EQ(text.of({2026, 3, 14, 15, 9, 26}, make), "26");
    EXPECT_EQ(text.of({2026, 3, 14, 15, 9, 26}, make), "26");
    EXPECT_EQ(made, 1);
    EXPECT_EQ(text.of({2026, 3, 14, 15, 9, 27}, make), "27");
    EXPECT_EQ(text.of({2026, 3, 14, 15, 10, 27}, make), "27");
    EXPECT_EQ(made, 3);
}

TEST(TimeText, TheFirstTimeIsMadeEvenIfItIsNone) {
    TimeText text;
    EXPECT_EQ(text.of({}, [](const DateTime&) { return "none"; }), "none");
}

}  // namespace
}  // namespace velmora
