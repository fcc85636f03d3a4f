#include "platform/linux/paths/path_mapping.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

const std::vector<DriveRoot> roots{{"C:", "/"},
                                   {"D:", "/mnt/d"},
                                   {"E:", "/mnt/d/inner"},
                                   {"F:", "/mnt/net"},
                                   {"\\\\host\\Share", "/mnt/net"},
                                   {"\\\\host\\other", "/mnt/other"}};

TEST(PathMapping, AHostPathGoesToItsLongestMount) {
    EXPECT_EQ(drivePathOf("/mnt/d/foo/bar", roots), "D:\\foo\\bar");
    EXPECT_EQ(drivePathOf("/mnt/d/inner/foo", roots), "E:\\foo");
    EXPECT_EQ(drivePathOf("/mnt/data", roots), "C:\\mnt\\data");
    EXPECT_EQ(drivePathOf("/mnt/d", roots), "D:\\");
    EXPECT_EQ(drivePathOf("/mnt/d/", roots), "D:\\");
    EXPECT_EQ(drivePathOf("/", roots), "C:\\");
    EXPECT_EQ(drivePathOf("//home/./me/../you/", roots), "C:\\home\\you");
}

TEST(PathMapping, APathLiesOnTheLongestMountPoint) {
    EXPECT_EQ(mountPointOf("/mnt/d/inner/foo", roots), "/mnt/d/inner");
    EXPECT_EQ(mountPointOf("/mnt/data", roots), "/");
    EXPECT_EQ(mountPointOf("/mnt/net", roots), "/mnt/net");
    EXPECT_EQ(mountPointOf("/mnt/d/x", {{"E:", "/mnt/e"}}), "");
}

TEST(PathMapping, TheLetterIsPreferredToTheShare) {
    EXPECT_EQ(drivePathOf("/mnt/net/x", roots), "F:\\x");
    EXPECT_EQ(drivePathOf("/mnt/other/x", roots), "\\\\host\\other\\x");
    EXPECT_EQ(drivePathOf("/mnt/other", roots), "\\\\host\\other");
}

TEST(PathMapping, ADrivePathGoesBack) {
    EXPECT_EQ(hostPathOf("D:\\foo\\bar", roots), "/mnt/d/foo/bar");
    EXPECT_EQ(hostPathOf("d:/foo/bar/", roots), "/mnt/d/foo/bar");
    EXPECT_EQ(hostPathOf("D:\\", roots), "/mnt/d");
    EXPECT_EQ(hostPathOf("D:", roots), "/mnt/d");
    EXPECT_EQ(hostPathOf("C:\\", roots), "/");
    EXPECT_EQ(hostPathOf("C:\\etc", roots), "/etc");
    EXPECT_EQ(hostPathOf("\\\\HOST\\share\\x y", roots), "/mnt/net/x y");
}

TEST(PathMapping, NamesKeepTheirCase) {
    EXPECT_EQ(hostPathOf("d:\\Foo", roots), "/mnt/d/Foo");
}

TEST(PathMapping, GoingUpStaysOnTheDrive) {
    EXPECT_EQ(hostPathOf("D:\\..\\..\\x", roots), "/mnt/d/x");
}

TEST(PathMapping, APathOnADriveThatIsNotThereLeadsNowhere) {
    EXPECT_EQ(hostPathOf("Q:\\x", roots), "");
    EXPECT_EQ(hostPathOf("\\\\nohost\\share\\x", roots), "");
    EXPECT_EQ(hostPathOf("", roots), "");
    EXPECT_EQ(hostPathOf(std::string("C:\\a\0b", 6), roots), "");
}

TEST(PathMapping, APathWithoutADriveBeginsAtTheRootOrTheWorkingFolder) {
    EXPECT_EQ(hostPathOf("\\etc\\x", roots), "/etc/x");
    EXPECT_EQ(hostPathOf("/etc/x", roots), "/etc/x");
    EXPECT_EQ(hostPathOf("some\\name", roots), workingFolder() + "/some/name");
}

TEST(PathMapping, TheFullPathHasOneBackSlashBetweenNamesAndNoneAtItsEnd) {
    EXPECT_EQ(fullDrivePath("D:\\a\\\\b/c\\", roots), "D:\\a\\b\\c");
    EXPECT_EQ(fullDrivePath("D:\\a\\..\\b", roots), "D:\\b");
    EXPECT_EQ(fullDrivePath("D:", roots), "D:\\");
    EXPECT_EQ(fullDrivePath("\\\\host\\share\\", roots), "\\\\host\\share");
    EXPECT_EQ(fullDrivePath("\\\\host\\share\\a\\", roots), "\\\\host\\share\\a");
    EXPECT_EQ(fullDrivePath("/mnt/d/a", roots), "D:\\a");
}

TEST(PathMapping, EveryHostPathComesBack) {
    for (const std::string path :
         {"/", "/mnt/d", "/mnt/d/a\\b", "/mnt/d/inner/caf\xe9", "/x/\uF05C"})
        EXPECT_EQ(hostPathOf(drivePathOf(path, roots), roots), path);
}

}  // namespace
}  // namespace velmora::linuxhost
