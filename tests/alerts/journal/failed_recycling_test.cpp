// Why a file isn't in the recycle bin.
#include "alerts/journal/failed_recycling.h"

#include <gtest/gtest.h>

namespace velmora::tests {
namespace {

TEST(FailedRecycling, SaysThePathTheReasonAndTheCode) {
    EXPECT_EQ(whyNotRecycled("C:\\a", 0), "");
    EXPECT_EQ(whyNotRecycled("C:\\a", 2),
              "Not sent to the recycle bin: C:\\a: it is not there (2)");
    EXPECT_EQ(whyNotRecycled("C:\\a", 32),
              "Not sent to the recycle bin: C:\\a: a program has it open (32)");
    EXPECT_EQ(whyNotRecycled("C:\\a", 206),
              "Not sent to the recycle bin: C:\\a: its path is too long (206)");
    EXPECT_EQ(whyNotRecycled("C:\\a", 87),
              "Not sent to the recycle bin: C:\\a: the system refused it (87)");
}

}  // namespace
}  // namespace velmora::tests
