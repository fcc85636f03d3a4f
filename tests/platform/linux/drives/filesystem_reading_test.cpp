#include "platform/linux/drives/filesystem_reading.h"

#include <gtest/gtest.h>
#include <sys/statvfs.h>

#include <cerrno>

namespace velmora::linuxhost {
namespace {

TEST(FilesystemReading, SizesAreCountedInFragments) {
    FilesystemReading reading;
    ASSERT_EQ(readFilesystem("/", reading), 0);
    struct statvfs expected {};
    ASSERT_EQ(statvfs("/", &expected), 0);
    EXPECT_EQ(reading.fragmentSize, expected.f_frsize);
    EXPECT_EQ(reading.totalBytes(),
              static_cast<double>(expected.f_blocks) * static_cast<double>(expected.f_frsize));
}

TEST(FilesystemReading, BytesAreBlocksTimesFragments) {
    const FilesystemReading reading{.fragmentSize = 512, .blocks = 10, .availableBlocks = 3};
    EXPECT_EQ(reading.freeBytes(), 1536);
    EXPECT_EQ(reading.totalBytes(), 5120);
}

TEST(FilesystemReading, SizesBeyond64BitsOfBytesAreReported) {
    const FilesystemReading reading{.fragmentSize = 1 << 20, .blocks = 1ULL << 60};
    EXPECT_EQ(reading.totalBytes(), 1.2089258196146292e24);
}

TEST(FilesystemReading, AFailureIsReportedByItsNumber) {
    FilesystemReading reading;
    EXPECT_EQ(readFilesystem("/no/such/folder", reading), ENOENT);
}

TEST(FilesystemReading, FilesystemsAreDistinguished) {
    FilesystemReading atRoot;
    FilesystemReading rootAgain;
    FilesystemReading processes;
    ASSERT_EQ(readFilesystem("/", atRoot), 0);
    ASSERT_EQ(readFilesystem("/", rootAgain), 0);
    ASSERT_EQ(readFilesystem("/proc", processes), 0);
    EXPECT_TRUE(atRoot.isSameFilesystem(rootAgain));
    EXPECT_FALSE(atRoot.isSameFilesystem(processes));
}

}  // namespace
}  // namespace velmora::linuxhost
