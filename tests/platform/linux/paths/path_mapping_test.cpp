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
    EXPECT_EQ(mapDrivePath("D:\\a\\\\b/c\\", roots).onDrive, "D:\\a\\b\\c");
    EXPECT_EQ(mapDrivePath("D:\\a\\..\\b", roots).onDrive, "D:\\b");
    EXPECT_EQ(mapDrivePath("D:", roots).onDrive, "D:\\");
    EXPECT_EQ(mapDrivePath("\\\\host\\share\\", roots).onDrive, "\\\\host\\share");
    EXPECT_EQ(mapDrivePath("\\\\host\\share\\a\\", roots).onDrive, "\\\\host\\share\\a");
    EXPECT_EQ(mapDrivePath("/mnt/d/a", roots).onDrive, "D:\\a");
    EXPECT_EQ(mapDrivePath("/mnt/d/a", roots).onHost, "/mnt/d/a");
}

TEST(PathMapping, EveryHostPathComesBack) {
    for (const std::string path :
         {"/", "/mnt/d", "/mnt/d/a\\b", "/mnt/d/inner/caf\xe9", "/x/\uF05C"})
        EXPECT_EQ(hostPathOf(drivePathOf(path, roots), roots), path);
}

}  // namespace
}  // namespace velmora::linuxhost
