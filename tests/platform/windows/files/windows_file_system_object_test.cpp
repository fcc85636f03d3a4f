#include "platform/windows/files/windows_file_system_object.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cmath>
#include <fstream>
#include <string>

#include "base/runtime_error.h"
#include "platform/windows/support/scratch_folder.h"

namespace velmora::windows {
namespace {

TEST(WindowsFileSystemObject, TheSystemDriveReportsItsSpace) {
    WindowsFileSystemObject fso;
    const auto drive = fso.GetDrive("c");
    EXPECT_EQ(drive->Path(), "C:");
    ASSERT_TRUE(drive->IsReady());
    EXPECT_GT(drive->TotalSize(), 0);
    EXPECT_LE(drive->FreeSpace(), drive->TotalSize());
    EXPECT_EQ(drive->FreeSpace(), std::floor(drive->FreeSpace()));
}

TEST(WindowsFileSystemObject, ADriveThatIsNotThereIsNotReady) {
    WindowsFileSystemObject fso;
    const auto drive = fso.GetDrive(R"(q:\)");
    EXPECT_EQ(drive->Path(), "Q:");
    EXPECT_FALSE(drive->IsReady());
    try {
        drive->FreeSpace();
        FAIL() << "free space of a drive that isn't there";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), 71);
    }
    EXPECT_FALSE(fso.DriveExists("q:"));
}

TEST(WindowsFileSystemObject, AShareThatIsNotThereDoesNotExistAndIsNotReady) {
    WindowsFileSystemObject fso;
    EXPECT_FALSE(fso.DriveExists(R"(\\velmora-nowhere\share)"));
    EXPECT_FALSE(fso.GetDrive(R"(\\velmora-nowhere\share)")->IsReady());
}

TEST(WindowsFileSystemObject, FilesAndFoldersWithLettersOfAllKindsAreFound) {
    const ScratchFolder folder;
    const std::string path = folder / "\u0416 caf\u00e9 \u4e2d \U0001F4BE";
    WindowsFileSystemObject fso;
    EXPECT_FALSE(fso.FolderExists(path));
    ASSERT_TRUE(CreateDirectoryW(toUtf16(path).c_str(), nullptr));
    EXPECT_TRUE(fso.FolderExists(path));
    EXPECT_FALSE(fso.FileExists(path));
    EXPECT_EQ(fso.GetFolder(path + '\\')->Path(), path);
    std::ofstream(std::filesystem::path(toUtf16(path + "\\file"))) << "x";
    EXPECT_TRUE(fso.FileExists(path + "\\file"));
    EXPECT_FALSE(fso.FolderExists(path + "\\file"));
}

TEST(WindowsFileSystemObject, FoldersBeyondTheSystemsOldLimitAreFound) {
    const ScratchFolder folder;
    const std::string outer = folder / std::string(200, 'a');
    const std::string inner = outer + '\\' + std::string(200, 'b');
    ASSERT_TRUE(CreateDirectoryW(systemPath(outer).c_str(), nullptr));
    ASSERT_TRUE(CreateDirectoryW(systemPath(inner).c_str(), nullptr));
    WindowsFileSystemObject fso;
    EXPECT_TRUE(fso.FolderExists(inner));
    EXPECT_EQ(fso.GetFolder(inner)->Path(), inner);
    EXPECT_TRUE(RemoveDirectoryW(systemPath(inner).c_str()));
    EXPECT_TRUE(RemoveDirectoryW(systemPath(outer).c_str()));
}

TEST(WindowsFileSystemObject, TheRootKeepsItsBackSlash) {
    WindowsFileSystemObject fso;
    EXPECT_EQ(fso.GetFolder(R"(C:\)")->Path(), R"(C:\)");
}

TEST(WindowsFileSystemObject, APathIsNotReadUpToItsFirstNulOnly) {
    WindowsFileSystemObject fso;
    EXPECT_FALSE(fso.FolderExists(std::string("C:\\\0x", 5)));
    EXPECT_FALSE(fso.FolderExists(""));
}

}  // namespace
}  // namespace velmora::windows
