#include "platform/linux/inventory/linux_processes.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>

#include "made_machine.h"
#include "platform/linux/system/left_children.h"

namespace velmora::linuxhost {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

ProcessEntry32 emptyEntry() {
    ProcessEntry32 entry;
    entry.dwSize = 296;
    return entry;
}

class LinuxProcessesTest : public testing::Test {
  protected:
    std::vector<std::string> snapshotOf(LinuxProcesses& processes) {
        const auto snapshot = processes.CreateToolhelp32Snapshot(2, 0);
        std::vector<std::string> listed;
        ProcessEntry32 entry = emptyEntry();
        for (bool found = processes.Process32First(snapshot, entry); found;
             found = processes.Process32Next(snapshot, entry))
            listed.push_back(std::to_string(entry.th32ProcessID) + ' ' + entry.szExeFile);
        processes.CloseHandle(snapshot);
        return listed;
    }

    MadeMachine made_;
    LinuxProcesses processes_{made_.sources()};
};

TEST_F(LinuxProcessesTest, ASnapshotHasNumbersAndNames) {
    made_.addProgram(30, "/opt/a b");
    made_.addProcess(4, "odd\n) name");
    EXPECT_EQ(snapshotOf(processes_), (std::vector<std::string>{"4 odd?) name", "30 a b"}));
}

TEST_F(LinuxProcessesTest, NamesAreCutAtACharacterToTheFieldsSize) {
    // The name of a link's target may be longer than that of a file.
    made_.addProgram(1, "/opt/" + std::string(259, 'a'));
    made_.addProgram(2, "/opt/" + std::string(260, 'b'));
    made_.addProgram(3, "/opt/" + std::string(258, 'c') + "öd");
    EXPECT_EQ(snapshotOf(processes_),
              (std::vector<std::string>{"1 " + std::string(259, 'a'), "2 " + std::string(259, 'b'),
                                        "3 " + std::string(258, 'c')}));
}

TEST_F(LinuxProcessesTest, ASnapshotStaysAsItWasTaken) {
    made_.addProcess(1, "a");
    const auto snapshot = processes_.CreateToolhelp32Snapshot(2, 0);
    made_.addProcess(2, "b");
    std::filesystem::remove_all(made_.folderOf(1));
    ProcessEntry32 entry = emptyEntry();
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(processes_.Process32First(snapshot, entry));
        EXPECT_EQ(entry.th32ProcessID, 1u);
        EXPECT_FALSE(processes_.Process32Next(snapshot, entry));
        EXPECT_FALSE(processes_.Process32Next(snapshot, entry));
    }
}

TEST_F(LinuxProcessesTest, WhereNothingIsListedThereIsNoSnapshot) {
    EXPECT_EQ(processes_.CreateToolhelp32Snapshot(2, 0), -1);
    std::vector<std::uint32_t> ids(4, 99);
    std::uint32_t reported = 96;
    EXPECT_FALSE(processes_.EnumProcesses(ids, 16, reported));
    EXPECT_EQ(reported, 96u);
    EXPECT_EQ(ids, std::vector<std::uint32_t>(4, 99));
    made_.addProcess(1, "a");
    EXPECT_EQ(processes_.CreateToolhelp32Snapshot(4, 0), -1);
    EXPECT_EQ(processes_.CreateToolhelp32Snapshot(0, 0), -1);
    EXPECT_FALSE(processes_.EnumProcesses(ids, 3, reported));
    EXPECT_EQ(processes_.CreateToolhelp32Snapshot(2, 0), 1);
}

TEST_F(LinuxProcessesTest, NoMoreNumbersAreWrittenThanFit) {
    for (const int id : {5, 300, 20}) made_.addProcess(id, "p");
    std::uint32_t reported = 0;
    std::vector<std::uint32_t> ids(5, 99);
    EXPECT_TRUE(processes_.EnumProcesses(ids, 8, reported));
    EXPECT_EQ(reported, 8u);
    EXPECT_EQ(ids, (std::vector<std::uint32_t>{5, 20, 99, 99, 99}));
    EXPECT_TRUE(processes_.EnumProcesses(ids, 20, reported));
    EXPECT_EQ(reported, 12u);
    EXPECT_EQ(ids, (std::vector<std::uint32_t>{5, 20, 300, 99, 99}));
    std::vector<std::uint32_t> small(1, 99);
    EXPECT_TRUE(processes_.EnumProcesses(small, 4000, reported));
    EXPECT_EQ(reported, 4u);
    EXPECT_EQ(small, std::vector<std::uint32_t>{5});
}

TEST_F(LinuxProcessesTest, AProcessWithAnExecutableCanBeOpened) {
    made_.addProgram(8, "/opt/größe (deleted)");
    made_.addProcess(9, "kernel");
    EXPECT_EQ(processes_.OpenProcess(1040, 0, 9), 0);
    EXPECT_EQ(processes_.OpenProcess(1040, 0, 10), 0);
    const auto process = processes_.OpenProcess(1040, 0, 8);
    ASSERT_GT(process, 0);
    std::vector<std::uint64_t> modules(25, 0);
    std::uint32_t needed = 0;
    ASSERT_TRUE(processes_.EnumProcessModules(process, modules, 200, needed));
    EXPECT_EQ(needed, 8u);
    std::string buffer(20, '#');
    EXPECT_EQ(processes_.GetModuleFileNameExA(process, modules[0], buffer, 500), 12u);
    EXPECT_EQ(buffer, "/opt/größe########");
    buffer = "####";
    EXPECT_EQ(processes_.GetModuleFileNameExA(process, modules[0], buffer, 500), 4u);
    EXPECT_EQ(buffer, "/opt");
    buffer = std::string(20, '#');
    // "ö" takes the bytes 7 and 8.
    EXPECT_EQ(processes_.GetModuleFileNameExA(process, modules[0], buffer, 8), 7u);
    EXPECT_EQ(buffer, "/opt/gr#############");
    EXPECT_EQ(processes_.GetModuleFileNameExA(process, modules[0] + 1, buffer, 500), 0u);
}

TEST_F(LinuxProcessesTest, TooSmallARoomForModulesOnlyTellsTheSize) {
    made_.addProgram(8, "/opt/a");
    const auto process = processes_.OpenProcess(1040, 0, 8);
    std::vector<std::uint64_t> modules(1, 77);
    std::uint32_t needed = 0;
    EXPECT_TRUE(processes_.EnumProcessModules(process, modules, 7, needed));
    EXPECT_EQ(needed, 8u);
    EXPECT_EQ(modules[0], 77u);
    modules.clear();
    EXPECT_TRUE(processes_.EnumProcessModules(process, modules, 200, needed));
    EXPECT_TRUE(modules.empty());
}

TEST_F(LinuxProcessesTest, ClosedHandlesServeAgainAndKindsAreKeptApart) {
    made_.addProgram(8, "/opt/a");
    const auto snapshot = processes_.CreateToolhelp32Snapshot(2, 0);
    const auto process = processes_.OpenProcess(1040, 0, 8);
    EXPECT_EQ(snapshot, 1);
    EXPECT_EQ(process, 2);
    ProcessEntry32 entry = emptyEntry();
    EXPECT_FALSE(processes_.Process32First(process, entry));
    std::vector<std::uint64_t> modules(1);
    std::uint32_t needed = 0;
    EXPECT_FALSE(processes_.EnumProcessModules(snapshot, modules, 8, needed));
    EXPECT_TRUE(processes_.CloseHandle(snapshot));
    EXPECT_FALSE(processes_.CloseHandle(snapshot));
    EXPECT_EQ(processes_.OpenProcess(1040, 0, 8), 1);
}

TEST_F(LinuxProcessesTest, AListingThatStallsGivesWhatCameUntilThen) {
    LinuxProcesses processes(made_.sources(), 2s);
    std::filesystem::create_directory(made_.folderOf(3));
    ASSERT_EQ(mkfifo((made_.folderOf(3) + "/stat").c_str(), 0600), 0);
    const auto start = steady_clock::now();
    EXPECT_EQ(processes.CreateToolhelp32Snapshot(2, 0), -1);
    EXPECT_GE(steady_clock::now() - start, 2s);
    made_.addProcess(1, "a");
    made_.addProcess(2, "b");
    made_.addProcess(4, "d");
    EXPECT_EQ(snapshotOf(processes), (std::vector<std::string>{"1 a", "2 b"}));
    EXPECT_EQ(reapLeftChildren(), 0u);
}

TEST_F(LinuxProcessesTest, ListsLeaveNothingBehind) {
    for (int id = 1; id <= 3; ++id) made_.addProgram(id, "/opt/a");
    reapLeftChildren();
    const std::size_t children = childrenOfThisProcess();
    const std::size_t descriptors = openDescriptors();
    for (int list = 0; list < 100; ++list) ASSERT_EQ(snapshotOf(processes_).size(), 3u);
    EXPECT_EQ(reapLeftChildren(), 0u);
    EXPECT_EQ(childrenOfThisProcess(), children);
    EXPECT_EQ(openDescriptors(), descriptors);
}

}  // namespace
}  // namespace velmora::linuxhost
