#include <cmath>

#include "base/errors.h"
#include "machine_under_test.h"

namespace velmora::contract {
namespace {

class DrivesContract : public ContractTest {};
INSTANTIATE_TEST_SUITE_P(Machines, DrivesContract, everyMachine(), nameOf);

TEST_P(DrivesContract, TheNameOfADriveIsThePartInFrontAsItIsWritten) {
    EXPECT_EQ(fso().GetDriveName("C:\\data\\x"), "C:");
    EXPECT_EQ(fso().GetDriveName("c:\\data"), "c:");
    EXPECT_EQ(fso().GetDriveName("c:"), "c:");
    EXPECT_EQ(fso().GetDriveName("q:data"), "q:");
    EXPECT_EQ(fso().GetDriveName("\\\\host\\share\\data"), "\\\\host\\share");
    EXPECT_EQ(fso().GetDriveName("\\\\host\\share"), "\\\\host\\share");
}

TEST_P(DrivesContract, AFileNameIsWhatFollowsTheLastSeparator) {
    EXPECT_EQ(fso().GetFileName("C:\\data\\one file.txt"), "one file.txt");
    EXPECT_EQ(fso().GetFileName("C:\\data\\"), "data");
    EXPECT_EQ(fso().GetFileName("C:/data/größe"), "größe");
    EXPECT_EQ(fso().GetFileName("c:x"), "x");
    EXPECT_EQ(fso().GetFileName("x"), "x");
    EXPECT_EQ(fso().GetFileName("\\\\host\\share\\x"), "x");
    for (const char* root : {"", "C:", "C:\\", "\\\\host\\share", "\\\\host\\share\\"})
        EXPECT_EQ(fso().GetFileName(root), "") << root;
}

TEST_P(DrivesContract, APathWithoutADriveHasNoDriveName) {
    for (const char* path :
         {"", "data", "\\data", "1:\\data", "\\\\host", "\\\\host\\", "\\\\", ":"})
        EXPECT_EQ(fso().GetDriveName(path), "") << path;
}

TEST_P(DrivesContract, ADriveIsTakenByLetterLetterAndColonOrRoot) {
    for (const char* form : {"C", "c", "C:", "c:", "C:\\", "c:\\"})
        EXPECT_EQ(fso().GetDrive(form)->Path(), "C:") << form;
}

TEST_P(DrivesContract, AShareIsADriveWithItsPathAsItIsWritten) {
    EXPECT_EQ(fso().GetDrive("\\\\Host\\share")->Path(), "\\\\Host\\share");
    EXPECT_EQ(fso().GetDrive("\\\\Host\\share\\")->Path(), "\\\\Host\\share");
}

TEST_P(DrivesContract, AnyOtherTextIsNoDrive) {
    for (const char* text :
         {"", " ", "C:\\data", "C:\\data\\x", "nonsense", "1:", "1", "CC:", "C::", "C: ", "\\",
          "\\\\", "\\\\host", "\\\\host\\", "\\\\host\\share\\data", "é:", ":"}) {
        EXPECT_EQ(errorOf([&] { fso().GetDrive(text); }), error::invalidCall) << text;
        EXPECT_FALSE(fso().DriveExists(text)) << text;
    }
}

TEST_P(DrivesContract, TheSystemDriveIsReadyAndHasSpace) {
    const auto drive = fso().GetDrive("C:");
    ASSERT_TRUE(drive->IsReady());
    EXPECT_GE(drive->FreeSpace(), 0);
    EXPECT_GT(drive->TotalSize(), 0);
    EXPECT_LE(drive->FreeSpace(), drive->TotalSize());
    EXPECT_EQ(drive->FreeSpace(), std::floor(drive->FreeSpace()));
    EXPECT_TRUE(fso().DriveExists("C:"));
    EXPECT_TRUE(fso().DriveExists("c"));
    EXPECT_TRUE(fso().DriveExists("c:\\"));
}

TEST_P(DrivesContract, SpaceIsReportedWithoutAskingForReadinessFirst) {
    EXPECT_GT(fso().GetDrive("c")->TotalSize(), 0);
    EXPECT_GE(fso().GetDrive("c")->FreeSpace(), 0);
}

TEST_P(DrivesContract, ALetterWithoutADriveIsADriveThatIsNotReady) {
    const std::string letter = letterWithoutDrive();
    ASSERT_FALSE(letter.empty());
    const auto drive = fso().GetDrive(letter);
    EXPECT_EQ(drive->Path(), letter);
    EXPECT_FALSE(drive->IsReady());
    EXPECT_EQ(errorOf([&] { drive->FreeSpace(); }), error::diskNotReady);
    EXPECT_EQ(errorOf([&] { drive->TotalSize(); }), error::diskNotReady);
    EXPECT_FALSE(fso().DriveExists(letter));
    EXPECT_FALSE(fso().FolderExists(letter + '\\'));
}

TEST_P(DrivesContract, OneReadingOfADriveIsOneInstant) {
    const auto drive = fso().GetDrive("C:");
    const double before = drive->FreeSpace();
    subject->makeFile(inScratch("filler"), std::string(1 << 20, 'x'));
    EXPECT_EQ(drive->FreeSpace(), before);
    EXPECT_TRUE(drive->IsReady());
}

TEST_P(DrivesContract, LogicalDrivesAreRootsOfThreeCharactersEachClosedByNul) {
    const std::string roots = logicalDrives();
    ASSERT_GT(roots.size(), 0u);
    ASSERT_EQ(roots.size() % 4, 0u);
    char last = 0;
    for (std::size_t at = 0; at < roots.size(); at += 4) {
        EXPECT_GT(roots[at], last);
        EXPECT_TRUE(roots[at] >= 'A' && roots[at] <= 'Z');
        EXPECT_EQ(roots.substr(at + 1, 3), std::string(":\\\0", 3));
        EXPECT_TRUE(fso().DriveExists(roots.substr(at, 3)));
        last = roots[at];
    }
    EXPECT_NE(roots.find("C:\\"), std::string::npos);
}

TEST_P(DrivesContract, TheRestOfTheBufferAfterTheDrivesStays) {
    const auto used = logicalDrives().size();
    std::string buffer(200, '#');
    platform().kernel32.GetLogicalDriveStringsA(200, buffer);
    ASSERT_EQ(buffer.size(), 200u);
    EXPECT_EQ(buffer[used], '\0');
    EXPECT_EQ(buffer.substr(used + 1), std::string(200 - used - 1, '#'));
}

TEST_P(DrivesContract, TooSmallABufferIsLeftAloneAndTheNeededLengthGiven) {
    const auto used = static_cast<std::uint32_t>(logicalDrives().size());
    for (const std::uint32_t length : {0u, 3u, used}) {
        std::string buffer(length, '#');
        EXPECT_EQ(platform().kernel32.GetLogicalDriveStringsA(length, buffer), used + 1);
        EXPECT_EQ(buffer, std::string(length, '#'));
    }
    std::string buffer(used + 1, '#');
    EXPECT_EQ(platform().kernel32.GetLogicalDriveStringsA(used + 1, buffer), used);
    EXPECT_EQ(buffer, logicalDrives() + '\0');
}

}  // namespace
}  // namespace velmora::contract
