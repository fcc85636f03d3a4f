// The lists of running processes. On a real machine the test program is the one that is known to
// run.
#include <algorithm>

#include "fake/fake_machine.h"
#include "machine_under_test.h"

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

namespace velmora::contract {
namespace {

constexpr std::uint32_t entrySize = 296;
constexpr std::uint32_t snapshotFlag = 2;
constexpr std::uint32_t readAccess1040 = 1040;

class ProcessesContract : public ContractTest {
  protected:
    ProcessesContract() {
        if (auto* fake = dynamic_cast<fake::FakeMachine*>(&subject->machine())) {
            fake->processes.running = {{.id = ownId(), .name = "test_platform", .path = "own path"},
                                       {.id = ownId() + 1, .name = "other", .path = "other path"}};
        }
    }

    static std::uint32_t ownId() {
#ifdef _WIN32
        return static_cast<std::uint32_t>(_getpid());
#else
        return static_cast<std::uint32_t>(getpid());
#endif
    }
    Processes& processes() {
        return platform().processes;
    }
    static ProcessEntry32 entryOf(std::uint32_t size) {
        ProcessEntry32 entry;
        entry.dwSize = size;
        entry.szExeFile = "as before";
        return entry;
    }
    std::vector<ProcessEntry32> entriesIn(SystemHandle snapshot) {
        std::vector<ProcessEntry32> entries;
        ProcessEntry32 entry = entryOf(entrySize);
        for (bool found = processes().Process32First(snapshot, entry); found;
             found = processes().Process32Next(snapshot, entry))
            entries.push_back(entry);
        return entries;
    }
    // The numbers of all processes, with room to spare.
    std::vector<std::uint32_t> numbers() {
        std::vector<std::uint32_t> ids;
        std::uint32_t reported = 0;
        do {
            ids.assign(ids.empty() ? 64 : ids.size() * 2, 0);
            const auto bytes = static_cast<std::uint32_t>(ids.size() * 4);
            if (!processes().EnumProcesses(ids, bytes, reported)) return {};
        } while (reported == ids.size() * 4);
        ids.resize(reported / 4);
        return ids;
    }
};
TEST_P(ProcessesContract, TheVersionNeedsItsRecordSize) {
    OsVersionInfo version{.dwOSVersionInfoSize = 147, .dwMajorVersion = 77};
    EXPECT_EQ(platform().kernel32.GetVersionExA(version), 0);
    EXPECT_EQ(version.dwMajorVersion, 77u);
    version.dwOSVersionInfoSize = 148;
    EXPECT_EQ(platform().kernel32.GetVersionExA(version), 1);
    EXPECT_EQ(version.dwOSVersionInfoSize, 148u);
    EXPECT_NE(version.dwMajorVersion, 77u);
    EXPECT_TRUE(version.dwPlatformId == 1 || version.dwPlatformId == 2);
}

INSTANTIATE_TEST_SUITE_P(Machines, ProcessesContract, everyMachine(), nameOf);

TEST_P(ProcessesContract, ASnapshotHasThisProcessOnceByItsNameWithoutAFolder) {
    const auto snapshot = processes().CreateToolhelp32Snapshot(snapshotFlag, 0);
    ASSERT_GT(snapshot, 0);
    const auto entries = entriesIn(snapshot);
    const auto isOwn = [](const ProcessEntry32& each) { return each.th32ProcessID == ownId(); };
    ASSERT_EQ(std::count_if(entries.begin(), entries.end(), isOwn), 1);
    const auto own = std::find_if(entries.begin(), entries.end(), isOwn);
    EXPECT_TRUE(own->szExeFile.starts_with("test_platform")) << own->szExeFile;
    for (const auto& each : entries) EXPECT_EQ(each.dwSize, entrySize);
    EXPECT_TRUE(processes().CloseHandle(snapshot));
}

TEST_P(ProcessesContract, ASnapshotIsGoneThroughAgainFromItsBeginning) {
    const auto snapshot = processes().CreateToolhelp32Snapshot(snapshotFlag, 0);
    ASSERT_GT(snapshot, 0);
    const auto first = entriesIn(snapshot);
    const auto second = entriesIn(snapshot);
    ASSERT_EQ(first.size(), second.size());
    for (std::size_t i = 0; i < first.size(); ++i)
        EXPECT_EQ(first[i].th32ProcessID, second[i].th32ProcessID);
    ProcessEntry32 entry = entryOf(entrySize);
    EXPECT_FALSE(processes().Process32Next(snapshot, entry));
    EXPECT_EQ(entry.szExeFile, "as before");
    processes().CloseHandle(snapshot);
}

TEST_P(ProcessesContract, ARecordOfAnotherSizeStaysAsItIs) {
    const auto snapshot = processes().CreateToolhelp32Snapshot(snapshotFlag, 0);
    ASSERT_GT(snapshot, 0);
    for (const std::uint32_t size : {0U, 295U, 297U}) {
        ProcessEntry32 entry = entryOf(size);
        EXPECT_FALSE(processes().Process32First(snapshot, entry)) << size;
        EXPECT_FALSE(processes().Process32Next(snapshot, entry)) << size;
        EXPECT_EQ(entry.dwSize, size);
        EXPECT_EQ(entry.szExeFile, "as before");
        EXPECT_EQ(entry.th32ProcessID, 0u);
    }
    processes().CloseHandle(snapshot);
}

TEST_P(ProcessesContract, TheNumbersHaveThisProcessOnce) {
    const auto ids = numbers();
    EXPECT_EQ(std::count(ids.begin(), ids.end(), ownId()), 1);
}

TEST_P(ProcessesContract, NoMoreNumbersAreWrittenThanTheBytesGiven) {
    std::vector<std::uint32_t> ids(3, 0xFFFFFFFF);
    std::uint32_t reported = 96;
    ASSERT_TRUE(processes().EnumProcesses(ids, 4, reported));
    EXPECT_EQ(reported, 4u);
    EXPECT_NE(ids[0], 0xFFFFFFFF);
    EXPECT_EQ(ids[1], 0xFFFFFFFF);
    EXPECT_EQ(ids[2], 0xFFFFFFFF);
}

TEST_P(ProcessesContract, ThisProcessIsOpenedAndItsExecutableIsItsFirstModule) {
    const auto process = processes().OpenProcess(readAccess1040, 0, ownId());
    ASSERT_GT(process, 0);
    std::vector<std::uint64_t> modules(25, 0);
    std::uint32_t needed = 0;
    ASSERT_TRUE(processes().EnumProcessModules(process, modules, 200, needed));
    EXPECT_GE(needed, 8u);
    EXPECT_NE(modules[0], 0u);
    std::string path(1000, '#');
    const auto size = processes().GetModuleFileNameExA(process, modules[0], path, 1000);
    ASSERT_GT(size, 4u);
    EXPECT_EQ(path.size(), 1000u);
    EXPECT_EQ(path.substr(size), std::string(1000 - size, '#'));
    // The buffer's own size counts, too.
    std::string small(4, '#');
    EXPECT_LE(processes().GetModuleFileNameExA(process, modules[0], small, 1000), 4u);
    EXPECT_EQ(small.size(), 4u);
    EXPECT_TRUE(processes().CloseHandle(process));
}

TEST_P(ProcessesContract, AProcessThatDoesNotRunCanNotBeOpened) {
    EXPECT_EQ(processes().OpenProcess(readAccess1040, 0, 0x7FFFFFFC), 0);
}

TEST_P(ProcessesContract, AHandleThatIsNoneIsRefused) {
    ProcessEntry32 entry = entryOf(entrySize);
    std::vector<std::uint64_t> modules(25, 0);
    std::uint32_t needed = 0;
    std::string path(260, '#');
    for (const SystemHandle handle : {SystemHandle{0}, SystemHandle{0x7FFF0003}}) {
        EXPECT_FALSE(processes().Process32First(handle, entry)) << handle;
        EXPECT_FALSE(processes().Process32Next(handle, entry)) << handle;
        EXPECT_FALSE(processes().EnumProcessModules(handle, modules, 200, needed)) << handle;
        EXPECT_EQ(processes().GetModuleFileNameExA(handle, 0x400000, path, 260), 0u) << handle;
        EXPECT_FALSE(processes().CloseHandle(handle)) << handle;
    }
    EXPECT_EQ(entry.szExeFile, "as before");
    const auto snapshot = processes().CreateToolhelp32Snapshot(snapshotFlag, 0);
    EXPECT_TRUE(processes().CloseHandle(snapshot));
    EXPECT_FALSE(processes().Process32First(snapshot, entry));
}

}  // namespace
}  // namespace velmora::contract
