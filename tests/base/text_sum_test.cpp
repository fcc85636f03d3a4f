#include "base/text_sum.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

// The values that the makers of FNV-1a with 64 bits give. Names of kept files are made of them.
TEST(TextSum, IsTheOneThatIsKnown) {
    EXPECT_EQ(sumOfText(""), "cbf29ce484222325");
    EXPECT_EQ(sumOfText("a"), "af63dc4c8601ec8c");
    EXPECT_EQ(sumOfText("foobar"), "85944171f73967e8");
}

}  // namespace
}  // namespace velmora
