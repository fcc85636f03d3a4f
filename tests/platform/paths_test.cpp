#include "platform/file_system_object.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(Paths, BeginAtARootWithASlashOrADrive) {
    for (const char* path : {"\\a", "/a", "\\", "/", "\\\\host\\share\\a", "C:", "C:\\a", "C:/a"})
        EXPECT_TRUE(beginsAtRoot(path)) << path;
    for (const char* path : {"", "a", "a\\b", ".\\a", "C:a", ":\\a"})
        EXPECT_FALSE(beginsAtRoot(path)) << path;
}

TEST(Paths, EndInASlashOfEitherKind) {
    EXPECT_TRUE(endsInSeparator("a\\") && endsInSeparator("a/"));
    EXPECT_FALSE(endsInSeparator("a") || endsInSeparator(""));
}

TEST(Paths, ANameIsWhatStandsBehindTheLastSlash) {
    EXPECT_EQ(fileNameOf("C:\\a\\b.txt"), "b.txt");
    EXPECT_EQ(fileNameOf("C:/a/b.txt"), "b.txt");
    EXPECT_EQ(fileNameOf("C:\\a\\b\\\\"), "b");
    EXPECT_EQ(fileNameOf("C:b"), "b");
    EXPECT_EQ(fileNameOf("b"), "b");
    EXPECT_EQ(fileNameOf("C:\\"), "");
}

}  // namespace
}  // namespace velmora
