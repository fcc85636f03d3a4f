// The machine that the Windows programs open.
#include <gtest/gtest.h>
#include <windows.h>

#include "base/text.h"
#include "platform/platform.h"
#include "platform/windows/programs/command_line.h"
#include "platform/windows/settings/windows_regional.h"
#include "platform/windows/system/utf16.h"
#include "support/wait.h"

namespace velmora::windows {
namespace {

TEST(WindowsMachine, KnowsWhereTheProgramLies) {
    const auto machine = openMachine();
    const Application app = machine->platform().app;
    EXPECT_EQ(app.EXEName, "test_platform");
    EXPECT_FALSE(app.Path.ends_with('\\'));
    EXPECT_EQ(app.DataPath, app.Path);
    EXPECT_EQ(app.FolderKey, lowerCase(app.Path));
    EXPECT_TRUE(machine->platform().fso.FileExists(app.Path + '\\' + app.EXEName + ".exe"));
}

TEST(WindowsMachine, AsksForNoMedium) {
    const auto machine = openMachine();
    EXPECT_NE(GetErrorMode() & SEM_FAILCRITICALERRORS, 0U);
}

TEST(WindowsMachine, PathsOfTheHostAreDrivePathsButForTheirSpelling) {
    const auto machine = openMachine();
    EXPECT_EQ(machine->toDrivePath("C:/data/x"), R"(C:\data\x)");
    EXPECT_EQ(machine->toDrivePath(R"(\\?\C:\data)"), R"(C:\data)");
    EXPECT_EQ(machine->toDrivePath(R"(\\?\UNC\host\share\x)"), R"(\\host\share\x)");
    EXPECT_EQ(machine->toHostPath(R"(C:\data)"), R"(C:\data)");
}

TEST(WindowsMachine, NamesLogicalDrivesOverTheFrontOfTheBuffer) {
    const auto machine = openMachine();
    auto& kernel32 = machine->platform().kernel32;
    std::string buffer(200, ' ');
    const auto used = kernel32.GetLogicalDriveStringsA(200, buffer);
    ASSERT_GE(used, 4U);
    ASSERT_LT(used, 200U);
    EXPECT_EQ(used % 4, 0U);
    EXPECT_NE(buffer.find(std::string("C:\\\0", 4)), std::string::npos);
    EXPECT_EQ(buffer.size(), 200U);
    EXPECT_EQ(buffer[used], '\0');
    EXPECT_EQ(buffer[used + 1], ' ');
}

TEST(WindowsMachine, WritesNoDrivesIntoABufferThatIsTooShort) {
    const auto machine = openMachine();
    std::string buffer = "   ";
    EXPECT_GT(machine->platform().kernel32.GetLogicalDriveStringsA(3, buffer), 3U);
    EXPECT_EQ(buffer, "   ");
    EXPECT_GT(machine->platform().kernel32.GetLogicalDriveStringsA(0, buffer), 3U);
    EXPECT_EQ(buffer, "   ");
}

TEST(WindowsMachine, TheClockGivesADateThatExistsAndATickThatDoesNotGoBack) {
    const auto machine = openMachine();
    auto& clock = machine->platform().clock;
    EXPECT_TRUE(isValid(clock.Now()));
    const auto tick = clock.GetTickCount();
    EXPECT_GE(clock.GetTickCount(), tick);
}

TEST(WindowsMachine, TheFileTimeIsTheSystemsAndGrows) {
    const auto machine = openMachine();
    auto& clock = machine->platform().clock;
    FILETIME system{};
    GetSystemTimeAsFileTime(&system);
    const auto before = std::uint64_t{system.dwHighDateTime} << 32 | system.dwLowDateTime;
    EXPECT_GE(clock.GetSystemTimeAsFileTime(), before);
    EXPECT_TRUE(waitUntil([&] { return clock.GetSystemTimeAsFileTime() > before; }));
    EXPECT_LT(clock.GetSystemTimeAsFileTime() - before, 600'000'000U);
}

TEST(WindowsMachine, TheSystemsOwnFolderIsThere) {
    const auto machine = openMachine();
    const std::string folder = machine->platform().kernel32.GetWindowsDirectoryA();
    EXPECT_TRUE(machine->platform().fso.FolderExists(folder)) << folder;
}

TEST(WindowsMachine, TheCommandIsWhatFollowsTheProgramsName) {
    EXPECT_EQ(afterName(LR"("C:\two words\x.exe"  "C:\a b" /c)"), LR"("C:\a b" /c)");
    EXPECT_EQ(afterName(LR"(C:\x.exe C:\a)"), LR"(C:\a)");
    EXPECT_EQ(afterName(L"x.exe\t/a "), L"/a ");
    EXPECT_EQ(afterName(L"x.exe"), L"");
    EXPECT_EQ(afterName(L"x.exe  "), L"");
    EXPECT_EQ(afterName(L"\"x.exe\""), L"");
    EXPECT_EQ(afterName(L"\"unclosed /a"), L"");
    EXPECT_EQ(afterName(L""), L"");
    const std::string own = openMachine()->platform().app.Command;
    EXPECT_TRUE(toUtf8(GetCommandLineW()).ends_with(own));
    EXPECT_EQ(own.find("test_platform"), std::string::npos) << own;
}

TEST(WindowsRegional, HasADecimalPointAndSeparators) {
    const Regional regional = userRegional();
    EXPECT_FALSE(regional.decimalPoint.empty());
    EXPECT_FALSE(regional.dateSeparator.empty());
    EXPECT_FALSE(regional.timeSeparator.empty());
    EXPECT_NE(regional.decimalPoint, regional.digitGroup);
}

}  // namespace
}  // namespace velmora::windows
