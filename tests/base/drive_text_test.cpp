#include "base/drive_text.h"

#include <gtest/gtest.h>

#include "base/regionals.h"

namespace velmora {
namespace {

TEST(GetDrive, TakesTheRootOutOfADisplayLine) {
    EXPECT_EQ(prcGetDrive("Drive: C:\t\t1,234 KB"), "C:\\");
    EXPECT_EQ(prcGetDrive("Drive: Z:\t\tN/A, drive not ready"), "Z:\\");
}

TEST(GetDrive, TakesTheTextBetweenTheFirstColonAndTheLast) {
    EXPECT_EQ(prcGetDrive("a: b :c:rest"), "b :c:\\");
    EXPECT_EQ(prcGetDrive("\u00C4\u00D6: C:\t\t1 KB"), "C:\\");
}

TEST(GetDrive, GivesABackSlashAloneForALineWithFewerThanTwoColons) {
    EXPECT_EQ(prcGetDrive(""), "\\");
    EXPECT_EQ(prcGetDrive("C"), "\\");
    EXPECT_EQ(prcGetDrive("C:\\data"), "\\");
    EXPECT_EQ(prcGetDrive("Drive: \\\\host\\share\t\t5 KB"), "\\");
}

TEST(ChkDriv, GivesTheRootOfALongerPath) {
    EXPECT_EQ(prcChkDriv("D:\\data\\more"), "D:\\");
    EXPECT_EQ(prcChkDriv("d:\\"), "d:\\");
    EXPECT_EQ(prcChkDriv("e:/data"), "e:/");
}

TEST(ChkDriv, GivesTheDefaultForABareDriveName) {
    EXPECT_EQ(prcChkDriv("D:"), "c:\\");
    EXPECT_EQ(prcChkDriv("D"), "c:\\");
}

TEST(ChkDriv, GivesTheDefaultForATextWithoutAColonOrWithOneInFront) {
    for (const char* text : {"", "data", "\\\\host\\share", ":", ":\\data"})
        EXPECT_EQ(prcChkDriv(text), "c:\\") << text;
}

TEST(ChkDriv, LooksAtTheFirstColonOnly) {
    EXPECT_EQ(prcChkDriv("C:\\a:b"), "C:\\");
    EXPECT_EQ(prcChkDriv("file:C:\\a"), "file:C");
}

TEST(ChkDriv, CountsCharactersInNonAsciiPaths) {
    EXPECT_EQ(prcChkDriv("\u00E9:\u00FCber"), "\u00E9:\u00FC");
    EXPECT_EQ(prcChkDriv("\u00E9\u00E9"), "c:\\");
    EXPECT_EQ(prcChkDriv("\u00E9:"), "c:\\");
}

std::string sized(double kb) {
    return prcSetDiskSizeDimension(kb, unitedStates);
}

TEST(DiskSizeDimension, Of999IsInKilobytes) {
    EXPECT_EQ(sized(999), "999.0 KB");
}
TEST(DiskSizeDimension, Of1000IsZero) {
    EXPECT_EQ(sized(1000), "0 KB");
}
TEST(DiskSizeDimension, Of1500IsInMegabytes) {
    EXPECT_EQ(sized(1500), "1.5 MB");
}

TEST(DiskSizeDimension, ChangesUnitAboveEachBoundary) {
    EXPECT_EQ(sized(2), "2.0 KB");
    EXPECT_EQ(sized(1001), "1.0 MB");
    EXPECT_EQ(sized(999999), "1,000.0 MB");
    EXPECT_EQ(sized(1000001), "1.0 GB");
    EXPECT_EQ(sized(999999999), "1,000.0 GB");
    EXPECT_EQ(sized(1000000001), "1.0 TB");
    EXPECT_EQ(sized(2147483647), "2.1 TB");
    EXPECT_EQ(sized(1234567890123), "1,234.6 TB");
}

TEST(DiskSizeDimension, IsZeroExactlyOnEachBoundaryAndBelowTwo) {
    for (const double kb : {1e9, 1e6, 1e3, 1.0, 0.0, -1.0, -5000.0}) {
        EXPECT_EQ(sized(kb), "0 KB") << kb;
    }
}

TEST(DiskSizeDimension, RoundsTiesAwayFromZero) {
    EXPECT_EQ(sized(1050), "1.1 MB");
    EXPECT_EQ(sized(1049), "1.0 MB");
}

TEST(DiskSizeDimension, FollowsTheRegion) {
    EXPECT_EQ(prcSetDiskSizeDimension(1500, germany), "1,5 MB");
    EXPECT_EQ(prcSetDiskSizeDimension(999999, germany), "1.000,0 MB");
}

TEST(LineEnds, AllAfterATextGoAndNoneWithinIt) {
    EXPECT_EQ(withoutLineEnds("D:\\target\\\r\n\r\n"), "D:\\target\\");
    EXPECT_EQ(withoutLineEnds("a\r\nb\n"), "a\r\nb");
    EXPECT_EQ(withoutLineEnds("\r\n"), "");
    EXPECT_EQ(withoutLineEnds(""), "");
    EXPECT_EQ(withoutLineEnds(" "), " ");
}

}  // namespace
}  // namespace velmora
