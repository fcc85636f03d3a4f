#include <gtest/gtest.h>

#include "inspect/change_type.h"

namespace velmora::tests {
namespace {

TEST(ChangeType, EachBitHasItsWord) {
    EXPECT_EQ(fChangeTypeText(1), "Name");
    EXPECT_EQ(fChangeTypeText(2), "Size");
    EXPECT_EQ(fChangeTypeText(4), "Last Write");
    EXPECT_EQ(fChangeTypeText(8), "Dir Name");
}

TEST(ChangeType, WordsAreJoinedInTheOrderOfTheirBits) {
    EXPECT_EQ(fChangeTypeText(5), "Name & Last Write");
    EXPECT_EQ(fChangeTypeText(6), "Size & Last Write");
    EXPECT_EQ(fChangeTypeText(10), "Size & Dir Name");
    EXPECT_EQ(fChangeTypeText(12), "Last Write & Dir Name");
    EXPECT_EQ(fChangeTypeText(15), "Name & Size & Last Write & Dir Name");
}

TEST(ChangeType, NoKnownBitGivesAnEmptyText) {
    EXPECT_EQ(fChangeTypeText(0), "");
    EXPECT_EQ(fChangeTypeText(16), "");
    EXPECT_EQ(fChangeTypeText(16 + 1), "Name");
}

TEST(ChangeType, AllBitsSetAreTheFourWords) {
    EXPECT_EQ(fChangeTypeText(-1), "Name & Size & Last Write & Dir Name");
}

}  // namespace
}  // namespace velmora::tests
