#include "platform/linux/system/system_errors.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace velmora::linuxhost {
namespace {

TEST(SystemErrors, EachHasItsCode) {
    EXPECT_EQ(codeOf(0), 0u);
    EXPECT_EQ(codeOf(ENOENT), 3u);
    EXPECT_EQ(codeOf(EPERM), 5u);
    EXPECT_EQ(codeOf(EXDEV), 17u);
    EXPECT_EQ(codeOf(EBUSY), 32u);
    EXPECT_EQ(codeOf(EDQUOT), 112u);
    EXPECT_EQ(codeOf(EEXIST), 183u);
    EXPECT_EQ(codeOf(EIO), 31u);
}

TEST(SystemErrors, ALoopOfLinksIsAGeneralFailureWhereItHasNoCodeOfItsOwn) {
    EXPECT_EQ(codeOf(ELOOP), code::accessDenied);
    EXPECT_EQ(codeWithoutLoops(ELOOP), code::generalFailure);
    EXPECT_EQ(codeWithoutLoops(EACCES), code::accessDenied);
    EXPECT_EQ(codeWithoutLoops(0), code::success);
}

TEST(SystemErrors, EachHasItsRunTimeError) {
    EXPECT_EQ(runtimeErrorOf(ENOTDIR), 76);
    EXPECT_EQ(runtimeErrorOf(EACCES), 70);
    EXPECT_EQ(runtimeErrorOf(ETXTBSY), 70);
    EXPECT_EQ(runtimeErrorOf(EROFS), 75);
    EXPECT_EQ(runtimeErrorOf(EISDIR), 75);
    EXPECT_EQ(runtimeErrorOf(ENOSPC), 61);
    EXPECT_EQ(runtimeErrorOf(EIO), 57);
}

TEST(SystemErrors, SomeCallsHaveFewerNumbers) {
    EXPECT_EQ(errorOfEntry(ENOENT), 76);
    EXPECT_EQ(errorOfEntry(EROFS), 70);
    EXPECT_EQ(errorOfEntry(ENOSPC), 70);
    EXPECT_EQ(errorOfRemovingFile(ENOENT), 53);
    EXPECT_EQ(errorOfRemovingFile(EISDIR), 75);
    EXPECT_EQ(errorOfRemovingFile(EBUSY), 70);
}

}  // namespace
}  // namespace velmora::linuxhost
