#include "platform/windows/volumes/windows_raw_volumes.h"

#include <gtest/gtest.h>
#include <tlhelp32.h>
#include <winternl.h>

#include <chrono>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/windows/entries/opened_entry.h"
#include "platform/windows/system/system_errors.h"
#include "platform/windows/system/utf16.h"
#include "platform/windows/volumes/scripted_volume.h"
#include "support/wait.h"

namespace velmora::windows {
namespace {

using namespace std::chrono_literals;

// As in the tests of questions: no answer misses the first, and each hung one the others.
constexpr auto volumeAmple = 30s;
constexpr auto volumeMiddling = 700ms;
constexpr auto volumeBrief = 1ms;

constexpr const char* volumeC = R"(\\.\C:)";

VolumeHandle openForReading(RawVolumes& volumes, const std::string& path) {
    return volumes.CreateFileA(path, raw_volume::genericRead, raw_volume::shareReadAndWrite,
                               raw_volume::openExisting);
}

class ScriptedVolumes : public testing::Test {
  protected:
    ~ScriptedVolumes() override { calls->release(); }

    void useDeadline(std::chrono::milliseconds deadline) {
        volumes.emplace(std::make_shared<DriveQuestions>(deadline), calls);
    }
    VolumeHandle open(const std::string& path = volumeC) { return openForReading(*volumes, path); }

    std::shared_ptr<ScriptedVolume> calls = std::make_shared<ScriptedVolume>();
    std::optional<WindowsRawVolumes> volumes{std::in_place,
                                             std::make_shared<DriveQuestions>(volumeAmple), calls};
};

TEST_F(ScriptedVolumes, AreReadFromTheFrontOnAndOverTheFrontOfTheBuffer) {
    calls->bytes = "abcdefgh";
    const VolumeHandle volume = open();
    ASSERT_NE(volume, raw_volume::invalid);
    std::string buffer = "......";
    std::uint32_t read = 0;
    EXPECT_TRUE(volumes->ReadFile(volume, buffer, 3, read));
    EXPECT_EQ(buffer, "abc...");
    EXPECT_EQ(read, 3U);
    EXPECT_TRUE(volumes->ReadFile(volume, buffer, 3, read));
    EXPECT_EQ(buffer, "def...");
    EXPECT_TRUE(volumes->ReadFile(volume, buffer, 3, read));
    EXPECT_EQ(buffer, "ghf...");
    EXPECT_EQ(read, 2U);
    EXPECT_EQ(volumes->failure(), "");
    EXPECT_TRUE(calls->isQuiet());
}

TEST_F(ScriptedVolumes, NoMoreIsReadThanTheBufferHolds) {
    calls->bytes = "abcdefgh";
    std::string buffer = "....";
    std::uint32_t read = 0;
    EXPECT_TRUE(volumes->ReadFile(open(), buffer, 8, read));
    EXPECT_EQ(buffer, "abcd");
    EXPECT_EQ(read, 4U);
}

TEST_F(ScriptedVolumes, ThePositionIsMadeOfTwoHalves) {
    const VolumeHandle volume = open();
    EXPECT_EQ(volumes->SetFilePointer(volume, 512, 0, raw_volume::fromStart), 512U);
    EXPECT_EQ(calls->positionOf(1), 512U);
    EXPECT_EQ(volumes->SetFilePointer(volume, -512, 1, raw_volume::fromStart), 0xFFFFFE00U);
    EXPECT_EQ(calls->positionOf(1), 0x1FFFFFE00U);
    EXPECT_EQ(volumes->SetFilePointer(volume, 0, 0, 1), 0xFFFFFFFFU);
    calls->error = ERROR_INVALID_PARAMETER;
    EXPECT_EQ(volumes->SetFilePointer(volume, 1, 0, raw_volume::fromStart), 0xFFFFFFFFU);
}

TEST_F(ScriptedVolumes, AreOpenedForReadingOnly) {
    constexpr std::uint32_t createAlways = 2;
    const auto attempt = [&](std::uint32_t access, std::uint32_t disposition) {
        return volumes->CreateFileA(volumeC, access, 3, disposition);
    };
    const std::uint32_t others[] = {GENERIC_WRITE, GENERIC_READ | GENERIC_WRITE, GENERIC_ALL, 0};
    for (const std::uint32_t access : others)
        EXPECT_EQ(attempt(access, raw_volume::openExisting), raw_volume::invalid) << access;
    EXPECT_EQ(attempt(raw_volume::genericRead, createAlways), raw_volume::invalid);
    EXPECT_EQ(volumes->failure(), "a volume is opened for reading only");
    EXPECT_EQ(calls->asked(), 0);
}

TEST_F(ScriptedVolumes, NoOtherPathsAreOpened) {
    for (const std::string path :
         {R"(C:)", R"(C:\x)", R"(\\.\C:\)", R"(\\.\C:\x)", R"(\\.\pipe\x)", R"(\\.\PhysicalDrive0)",
          R"(\\.\1:)", R"(\\?\C:)", R"(\\.\)", ""})
        EXPECT_EQ(open(path), raw_volume::invalid) << path;
    EXPECT_EQ(open(std::string("\\\\.\\C\0", 6)), raw_volume::invalid);
    EXPECT_EQ(calls->asked(), 0);
    EXPECT_NE(open(R"(\\.\x:)"), raw_volume::invalid);
    EXPECT_EQ(calls->names(), std::vector<std::wstring>{LR"(\\.\x:)"});
}

TEST_F(ScriptedVolumes, OnlyTheirOwnHandlesAreUsed) {
    std::string buffer = "....";
    std::uint32_t read = 0;
    for (const VolumeHandle foreign :
         {VolumeHandle{-1}, VolumeHandle{0}, VolumeHandle{0x70000001}}) {
        EXPECT_FALSE(volumes->CloseHandle(foreign));
        EXPECT_FALSE(volumes->ReadFile(foreign, buffer, 4, read));
        EXPECT_EQ(volumes->SetFilePointer(foreign, 0, 0, 0), 0xFFFFFFFFU);
    }
    EXPECT_NE(volumes->failure(), "");
    EXPECT_EQ(calls->asked(), 0);
    const VolumeHandle first = open();
    EXPECT_TRUE(volumes->CloseHandle(first));
    EXPECT_EQ(calls->closed(), 1);
    EXPECT_FALSE(volumes->CloseHandle(first));
    EXPECT_NE(open(), first);
    EXPECT_FALSE(volumes->ReadFile(first, buffer, 4, read));
    EXPECT_EQ(calls->closed(), 1);
}

TEST_F(ScriptedVolumes, WhatIsOpenIsClosedAtTheEnd) {
    open();
    open();
    volumes.reset();
    EXPECT_EQ(calls->closed(), 2);
    EXPECT_EQ(calls->faults(), 0);
}

TEST_F(ScriptedVolumes, AFailureIsSaidInWords) {
    calls->error = ERROR_ACCESS_DENIED;
    EXPECT_EQ(open(), raw_volume::invalid);
    EXPECT_EQ(volumes->failure(),
              "the right to read C: is missing: start the program as administrator");
    calls->error = ERROR_FILE_NOT_FOUND;
    EXPECT_EQ(open(), raw_volume::invalid);
    EXPECT_EQ(volumes->failure(), textOf(ERROR_FILE_NOT_FOUND));
    calls->error = ERROR_SUCCESS;
    const VolumeHandle volume = open();
    EXPECT_EQ(volumes->failure(), "");
    calls->error = ERROR_INVALID_PARAMETER;
    std::string buffer = "....";
    std::uint32_t read = 7;
    EXPECT_FALSE(volumes->ReadFile(volume, buffer, 4, read));
    EXPECT_EQ(volumes->failure(), textOf(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(buffer, "....");
    EXPECT_EQ(read, 7U);
}

TEST(SystemErrorText, IsOneLine) {
    const std::string text = textOf(ERROR_FILE_NOT_FOUND);
    EXPECT_NE(text, "");
    EXPECT_NE(text, textOf(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos);
    EXPECT_FALSE(text.ends_with(' '));
    constexpr DWORD ofPrograms = 0x20000001;  // such codes are left to programs
    EXPECT_EQ(textOf(ofPrograms), "error 536870913");
}

TEST_F(ScriptedVolumes, AHandleThatComesTooLateIsClosed) {
    useDeadline(volumeBrief);
    calls->hold();
    EXPECT_EQ(open(), raw_volume::invalid);
    EXPECT_EQ(volumes->failure(), "C: doesn't answer");
    calls->release();
    ASSERT_TRUE(waitUntil([&] { return calls->opened() == 1; }));
    EXPECT_TRUE(waitUntil([&] { return calls->closed() == 1; }));
    EXPECT_EQ(calls->faults(), 0);
}

TEST_F(ScriptedVolumes, AReadThatHangsChangesNothingAndLeavesTheVolumeToBeClosed) {
    useDeadline(volumeMiddling);
    calls->bytes = "abcd";
    const VolumeHandle volume = open();
    const VolumeHandle other = open();
    ASSERT_NE(other, raw_volume::invalid);
    calls->hold();
    std::string buffer = "....";
    std::uint32_t read = 7;
    EXPECT_FALSE(volumes->ReadFile(volume, buffer, 4, read));
    EXPECT_EQ(volumes->failure(), "C: doesn't answer");
    EXPECT_TRUE(volumes->CloseHandle(volume));
    EXPECT_TRUE(volumes->CloseHandle(other));
    EXPECT_EQ(calls->closed(), 0) << "a drive that hangs may keep who closes waiting, too";
    calls->release();
    EXPECT_TRUE(waitUntil([&] { return calls->closed() == 2; }));
    EXPECT_EQ(calls->faults(), 0);
    EXPECT_EQ(buffer, "....");
    EXPECT_EQ(read, 7U);
}

TEST_F(ScriptedVolumes, AfterAReadThatHungThePositionIsUnknownSoNothingIsRead) {
    useDeadline(volumeMiddling);
    calls->bytes = "abcdefgh";
    const VolumeHandle volume = open();
    calls->hold();
    std::string buffer = "....";
    std::uint32_t read = 7;
    EXPECT_FALSE(volumes->ReadFile(volume, buffer, 4, read));
    calls->release();
    // Once it answers again, a new handle reads.
    VolumeHandle fresh = raw_volume::invalid;
    ASSERT_TRUE(waitUntil([&] { return (fresh = open()) != raw_volume::invalid; }));
    const int asked = calls->asked();
    EXPECT_FALSE(volumes->ReadFile(volume, buffer, 4, read));
    EXPECT_EQ(volumes->failure(), "C: doesn't answer");
    EXPECT_EQ(volumes->SetFilePointer(volume, 0, 0, raw_volume::fromStart), 0xFFFFFFFFU);
    EXPECT_EQ(calls->asked(), asked);
    EXPECT_TRUE(volumes->ReadFile(fresh, buffer, 4, read));
    EXPECT_EQ(buffer, "abcd");
}

TEST_F(ScriptedVolumes, AreAskedForNoLongerThanTheyLive) {
    useDeadline(volumeBrief);
    calls->hold();
    EXPECT_EQ(open(), raw_volume::invalid);
    volumes.reset();
    calls->release();
    EXPECT_TRUE(waitUntil([&] { return calls->closed() == 1; }));
    // The last reference is the test's own: no thread keeps one.
    EXPECT_TRUE(waitUntil([&] { return calls.use_count() == 1; }));
}

TEST_F(ScriptedVolumes, LabelAndNameAreClosedByANulOverTheFrontOfTheirBuffers) {
    calls->label = L"D\u00E4ta";
    calls->fileSystem = L"FAT32";
    std::string label = "........";
    std::string name = "........";
    EXPECT_TRUE(volumes->GetVolumeInformationA(R"(F:\)", label, name));
    EXPECT_EQ(label, std::string("D\xC3\xA4ta\0..", 8));
    EXPECT_EQ(name, std::string("FAT32\0..", 8));
    EXPECT_EQ(calls->names(), std::vector<std::wstring>{LR"(F:\)"});
}

TEST_F(ScriptedVolumes, ALabelIsCutToWholeCharactersAndANameIsNot) {
    calls->label = L"ab\u00E4";
    calls->fileSystem = L"NTFS";
    std::string label = "....";
    std::string name = ".....";
    EXPECT_TRUE(volumes->GetVolumeInformationA(R"(F:\)", label, name));
    EXPECT_EQ(label, std::string("ab\0.", 4));
    EXPECT_EQ(name, std::string("NTFS\0", 5));
    label = "....";
    name = "....";
    EXPECT_FALSE(volumes->GetVolumeInformationA(R"(F:\)", label, name));
    EXPECT_EQ(label, "....");
    EXPECT_EQ(name, "....");
}

TEST_F(ScriptedVolumes, ThatFailLeaveBuffersAndRecordsAsTheyAre) {
    calls->error = ERROR_NOT_READY;
    calls->fileSystem = L"NTFS";
    std::string label = "....";
    std::string name = ".....";
    EXPECT_FALSE(volumes->GetVolumeInformationA(R"(F:\)", label, name));
    EXPECT_EQ(label + name, ".........");
    DiskFreeSpace space{1, 2, 3, 4};
    EXPECT_FALSE(volumes->GetDiskFreeSpaceA(R"(F:\)", space));
    EXPECT_EQ(space.totalNumberOfClusters, 4U);
}

TEST_F(ScriptedVolumes, AreAskedByTheirRootHoweverItIsSpelt) {
    calls->type = DRIVE_CDROM;
    EXPECT_EQ(volumes->GetDriveTypeA("F:"), 5U);
    EXPECT_EQ(volumes->GetDriveTypeA(R"(F:\)"), 5U);
    EXPECT_EQ(volumes->GetDriveTypeA(R"(\\host\share\)"), 5U);
    EXPECT_EQ(calls->names(),
              (std::vector<std::wstring>{LR"(F:\)", LR"(F:\)", LR"(\\host\share\)"}));
    EXPECT_EQ(volumes->GetDriveTypeA(""), 1U);
    EXPECT_EQ(volumes->GetDriveTypeA(std::string("F:\0\\", 4)), 1U);
    EXPECT_EQ(calls->asked(), 3);
}

TEST_F(ScriptedVolumes, AllClustersAreCounted) {
    calls->clusters = {8, 512, 0xFFFFFFFF, 0xFFFFFFFF};
    calls->size = {.free = 1ULL << 44, .total = 1ULL << 45};
    DiskFreeSpace space;
    EXPECT_TRUE(volumes->GetDiskFreeSpaceA("F:", space));
    EXPECT_EQ(space.sectorsPerCluster, 32U);
    EXPECT_EQ(space.numberOfFreeClusters, 1U << 30);
    EXPECT_EQ(space.totalNumberOfClusters, 1U << 31);
}

TEST_F(ScriptedVolumes, ThatDoNotAnswerAreOfAnUnknownKind) {
    useDeadline(volumeBrief);
    calls->hold();
    EXPECT_EQ(volumes->GetDriveTypeA("F:"), 0U);
    DiskFreeSpace space;
    EXPECT_FALSE(volumes->GetDiskFreeSpaceA("F:", space));
}

int ownThreads() {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 thread{};
    thread.dwSize = sizeof thread;
    int count = 0;
    for (BOOL more = Thread32First(snapshot, &thread); more; more = Thread32Next(snapshot, &thread))
        count += thread.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
    CloseHandle(snapshot);
    return count;
}

// The system's table of all open handles, as NtQuerySystemInformation gives it; headers leave it
// out.
struct HandleEntry {
    void* object;
    ULONG_PTR process;
    ULONG_PTR handle;
    ULONG access;
    USHORT trace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};
struct HandleTable {
    ULONG_PTR count;
    ULONG_PTR reserved;
};

// Wine's GetProcessHandleCount says 0. Nothing where the table can't be had.
std::optional<int> ownHandles() {
    constexpr auto extendedHandles = static_cast<SYSTEM_INFORMATION_CLASS>(64);
    std::vector<char> content(16 * 1024 * 1024);
    if (NtQuerySystemInformation(extendedHandles, content.data(),
                                 static_cast<ULONG>(content.size()), nullptr) != 0)
        return std::nullopt;
    HandleTable table{};
    std::memcpy(&table, content.data(), sizeof table);
    int own = 0;
    for (ULONG_PTR i = 0; i < table.count; ++i) {
        HandleEntry entry{};
        std::memcpy(&entry, content.data() + sizeof table + i * sizeof entry, sizeof entry);
        own += entry.process == GetCurrentProcessId() ? 1 : 0;
    }
    return own;
}

TEST_F(ScriptedVolumes, AThousandOpensThatHangLeaveNoHandleAndNoThread) {
    constexpr int times = 1000;
    const int threads = ownThreads();
    useDeadline(volumeBrief);
    for (int i = 1; i <= times; ++i) {
        calls->hold();
        // While the last open is pending, none is made.
        ASSERT_TRUE(waitUntil([&] {
            EXPECT_EQ(open(), raw_volume::invalid);
            return calls->asked() == i;
        }));
        calls->release();
        ASSERT_TRUE(waitUntil([&] { return calls->closed() == i; }));
    }
    EXPECT_EQ(calls->opened(), times);
    EXPECT_EQ(calls->faults(), 0);
    volumes.reset();
    EXPECT_TRUE(waitUntil([&] { return ownThreads() <= threads; })) << ownThreads();
}

class RealVolumes : public testing::Test {
  protected:
    WindowsRawVolumes volumes{std::make_shared<DriveQuestions>(volumeAmple)};
};

TEST_F(RealVolumes, TheClustersMakeTheSpaceOfTheDrive) {
    DiskFreeSpace space;
    ULARGE_INTEGER freeToCaller{};
    ULARGE_INTEGER total{};
    ASSERT_TRUE(volumes.GetDiskFreeSpaceA("C:", space));
    ASSERT_TRUE(GetDiskFreeSpaceExW(LR"(C:\)", &freeToCaller, &total, nullptr));
    const std::uint64_t cluster = std::uint64_t{space.sectorsPerCluster} * space.bytesPerSector;
    ASSERT_GT(cluster, 0U);
    EXPECT_EQ(space.totalNumberOfClusters, total.QuadPart / cluster);
    EXPECT_LE(space.numberOfFreeClusters, space.totalNumberOfClusters);
    EXPECT_FALSE(volumes.GetDiskFreeSpaceA(R"(C:\no such folder)", space));
}

TEST_F(RealVolumes, TheDriveOfTheSystemHasAKindAndAFileSystem) {
    EXPECT_EQ(volumes.GetDriveTypeA("C:"), 3U);
    std::string label(261, ' ');
    std::string name(261, ' ');
    ASSERT_TRUE(volumes.GetVolumeInformationA(R"(C:\)", label, name));
    EXPECT_GT(name.find('\0'), 0U);
    EXPECT_LT(name.find('\0'), 261U);
}

TEST_F(RealVolumes, ALetterWithoutADriveIsNotThere) {
    const DWORD letters = GetLogicalDrives();
    std::string drive = "Y:";
    while (drive[0] > 'D' && (letters >> (drive[0] - 'A') & 1U) != 0) --drive[0];
    EXPECT_EQ(volumes.GetDriveTypeA(drive), 1U);
    std::string label = "....";
    EXPECT_FALSE(volumes.GetVolumeInformationA(drive + '\\', label, label));
    EXPECT_EQ(openForReading(volumes, R"(\\.\)" + drive), raw_volume::invalid);
    EXPECT_EQ(volumes.failure(), textOf(ERROR_FILE_NOT_FOUND));
}

TEST_F(RealVolumes, AVolumeThatIsAFolderOfTheHostOpensAndCannotBeRead) {
    if (!isUnderWine()) GTEST_SKIP() << "the drives of this system are volumes";
    const VolumeHandle volume = openForReading(volumes, volumeC);
    ASSERT_NE(volume, raw_volume::invalid);
    std::string buffer(512, '.');
    std::uint32_t read = 0;
    EXPECT_FALSE(volumes.ReadFile(volume, buffer, 512, read));
    EXPECT_EQ(volumes.failure(), textOf(ERROR_INVALID_FUNCTION));
    EXPECT_EQ(buffer, std::string(512, '.'));
    EXPECT_TRUE(volumes.CloseHandle(volume));
}

TEST_F(RealVolumes, AThousandOpensLeaveNoHandle) {
    constexpr int times = 1000;
    if (!ownHandles()) GTEST_SKIP() << "the system doesn't list handles";
    const VolumeHandle first = openForReading(volumes, volumeC);
    if (first == raw_volume::invalid)
        GTEST_SKIP() << "no volume can be opened: " << volumes.failure();
    const int withOne = *ownHandles();
    ASSERT_TRUE(volumes.CloseHandle(first));
    const int before = *ownHandles();
    ASSERT_LT(before, withOne);
    for (int i = 0; i < times; ++i) {
        const VolumeHandle volume = openForReading(volumes, volumeC);
        ASSERT_NE(volume, raw_volume::invalid) << i;
        ASSERT_TRUE(volumes.CloseHandle(volume)) << i;
    }
    EXPECT_LE(*ownHandles(), before);
}

}  // namespace
}  // namespace velmora::windows
