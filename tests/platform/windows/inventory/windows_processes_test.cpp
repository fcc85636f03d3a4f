// The running processes, this test's own among them.
#include <gtest/gtest.h>
// After the one above, whose names the system's headers change.
#include "platform/windows/inventory/windows_processes.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/windows/programs/program_output.h"
#include "platform/windows/support/helper_program.h"
#include "platform/windows/support/scratch_folder.h"
#include "support/wait.h"

#undef Process32First
#undef Process32Next
#undef EnumProcesses
#undef EnumProcessModules
#undef GetModuleFileNameExA

namespace velmora::tests::windows {
namespace {

using velmora::windows::ProgramOutput;
using velmora::windows::ScratchFolder;
using velmora::windows::toUtf16;
using velmora::windows::toUtf8;
using velmora::windows::WindowsProcesses;

ProcessEntry32 emptyEntry() {
    return {.dwSize = process_list::entryRecord, .szExeFile = {}};
}

class WindowsProcessesTest : public testing::Test {
  protected:
    SystemHandle snapshot() {
        return processes.CreateToolhelp32Snapshot(process_list::snapshotOfProcesses, 0);
    }
    SystemHandle ownProcess() {
        return processes.OpenProcess(process_list::queryAndRead, 0, ownId);
    }

    /// The process whose executable has this name, 0 when there is none.
    std::uint32_t idOf(const std::string& name) {
        WindowsProcesses now;
        const SystemHandle list =
            now.CreateToolhelp32Snapshot(process_list::snapshotOfProcesses, 0);
        ProcessEntry32 entry = emptyEntry();
        for (bool found = now.Process32First(list, entry); found;
             found = now.Process32Next(list, entry)) {
            if (entry.szExeFile == name) return entry.th32ProcessID;
        }
        return 0;
    }

    const std::uint32_t ownId = GetCurrentProcessId();
    WindowsProcesses processes;
};

TEST_F(WindowsProcessesTest, ASnapshotHasThisProcessOnce) {
    const SystemHandle list = snapshot();
    ASSERT_GE(list, 1);
    ProcessEntry32 entry = emptyEntry();
    int own = 0;
    for (bool found = processes.Process32First(list, entry); found;
         found = processes.Process32Next(list, entry)) {
        EXPECT_EQ(entry.dwSize, 296u);
        if (entry.th32ProcessID != ownId) continue;
        ++own;
        EXPECT_EQ(entry.szExeFile, "test_platform.exe");
    }
    EXPECT_EQ(own, 1);
    EXPECT_TRUE(processes.CloseHandle(list));
}

TEST_F(WindowsProcessesTest, FirstBeginsTheSnapshotAgain) {
    const SystemHandle list = snapshot();
    ProcessEntry32 first = emptyEntry();
    ProcessEntry32 again = emptyEntry();
    ASSERT_TRUE(processes.Process32First(list, first));
    ASSERT_TRUE(processes.Process32Next(list, again));
    EXPECT_NE(again.th32ProcessID, first.th32ProcessID);
    ASSERT_TRUE(processes.Process32First(list, again));
    EXPECT_EQ(again.th32ProcessID, first.th32ProcessID);
}

TEST_F(WindowsProcessesTest, ARecordOfAnotherSizeStaysAsItIs) {
    const SystemHandle list = snapshot();
    for (const std::uint32_t size : {0u, 295u, 297u, 556u, 568u}) {
        ProcessEntry32 entry{.dwSize = size, .th32ProcessID = 7, .szExeFile = "unchanged"};
        EXPECT_FALSE(processes.Process32First(list, entry)) << size;
        EXPECT_FALSE(processes.Process32Next(list, entry)) << size;
        EXPECT_EQ(entry.dwSize, size);
        EXPECT_EQ(entry.th32ProcessID, 7u);
        EXPECT_EQ(entry.szExeFile, "unchanged");
    }
}

TEST_F(WindowsProcessesTest, NumbersOfProcessesAreListed) {
    std::vector<std::uint32_t> ids(4096, 0xABCD);
    std::uint32_t reported = 0;
    ASSERT_TRUE(processes.EnumProcesses(ids, 4096 * 4, reported));
    EXPECT_EQ(reported % 4, 0u);
    ASSERT_LT(reported / 4, 4096u);
    const auto end = ids.begin() + reported / 4;
    EXPECT_EQ(std::count(ids.begin(), end, ownId), 1);
    EXPECT_EQ(std::count(end, ids.end(), 0xABCDu), ids.end() - end);
}

TEST_F(WindowsProcessesTest, NoMoreNumbersAreWrittenThanFit) {
    std::vector<std::uint32_t> ids(4, 0xABCD);
    std::uint32_t reported = 0;
    ASSERT_TRUE(processes.EnumProcesses(ids, 8, reported));
    EXPECT_EQ(reported, 8u);
    EXPECT_EQ(ids[2], 0xABCDu);
    ids.assign(2, 0xABCD);
    ASSERT_TRUE(processes.EnumProcesses(ids, 4000, reported));
    EXPECT_EQ(reported, 8u);
    EXPECT_EQ(ids.size(), 2u);
    EXPECT_FALSE(processes.EnumProcesses(ids, 3, reported));
    EXPECT_FALSE(processes.EnumProcesses(ids, 0, reported));
    ids.clear();
    EXPECT_FALSE(processes.EnumProcesses(ids, 8, reported));
}

TEST_F(WindowsProcessesTest, TheFirstModuleOfAProcessIsItsExecutable) {
    const SystemHandle process = ownProcess();
    ASSERT_NE(process, 0);
    std::vector<std::uint64_t> modules(25, 0xABCD);
    std::uint32_t needed = 0;
    ASSERT_TRUE(processes.EnumProcessModules(process, modules, 200, needed));
    EXPECT_EQ(modules[0], reinterpret_cast<std::uintptr_t>(GetModuleHandleW(nullptr)));
    EXPECT_EQ(needed % 8, 0u);
    EXPECT_GE(needed, 3 * 8u) << "the program, and two libraries of the system";
    const std::string own = toUtf8(ownProgramPath());
    std::string path(own.size() + 10, '#');
    EXPECT_EQ(processes.GetModuleFileNameExA(process, modules[0], path, 500), own.size());
    EXPECT_EQ(path, own + "##########");
    EXPECT_TRUE(processes.CloseHandle(process));
}

TEST_F(WindowsProcessesTest, ModulesAndPathsAreCutToTheirRoom) {
    const SystemHandle process = ownProcess();
    std::vector<std::uint64_t> modules(3, 0xABCD);
    std::uint32_t needed = 0;
    ASSERT_TRUE(processes.EnumProcessModules(process, modules, 8, needed));
    EXPECT_GE(needed, 3 * 8u);
    EXPECT_NE(modules[0], 0xABCDu);
    EXPECT_EQ(modules[1], 0xABCDu);
    const std::string own = toUtf8(ownProgramPath());
    std::string path(10, '#');
    EXPECT_EQ(processes.GetModuleFileNameExA(process, modules[0], path, 500), 10u);
    EXPECT_EQ(path, own.substr(0, 10));
    path.assign(10, '#');
    EXPECT_EQ(processes.GetModuleFileNameExA(process, modules[0], path, 4), 4u);
    EXPECT_EQ(path, own.substr(0, 4) + "######");
}

// A name that no code page of the system has whole.
TEST_F(WindowsProcessesTest, NamesAreUtf8AndCutBetweenCharacters) {
    const ScratchFolder folder;
    const std::string name = "Gr\u00f6\u65e5-" + std::to_string(ownId) + ".exe";
    const std::string program = folder / name;
    ASSERT_TRUE(CopyFileW(toUtf16(helperProgram()).c_str(), toUtf16(program).c_str(), FALSE));
    std::uint32_t id = 0;
    {
        const ProgramOutput running('"' + program + "\" stay");
        EXPECT_TRUE(waitUntil([&] { return (id = idOf(name)) != 0; }));
        const SystemHandle process = processes.OpenProcess(process_list::queryAndRead, 0, id);
        std::vector<std::uint64_t> modules(1);
        std::uint32_t needed = 0;
        EXPECT_TRUE(
            waitUntil([&] { return processes.EnumProcessModules(process, modules, 8, needed); }));
        const std::string expected = program.substr(0, program.rfind('\\') + 3);
        // One byte of the character after them would fit.
        std::string path(expected.size() + 1, '#');
        EXPECT_EQ(processes.GetModuleFileNameExA(process, modules[0], path, 500), expected.size());
        EXPECT_EQ(path, expected + '#');
    }
    EXPECT_TRUE(waitUntil([&] { return idOf(name) == 0; })) << "its file is in use";
}

TEST_F(WindowsProcessesTest, AProcessThatIsNotThereIsNotOpened) {
    EXPECT_EQ(processes.OpenProcess(process_list::queryAndRead, 0, 0xFFFFFFF0), 0);
}

TEST_F(WindowsProcessesTest, OnlyItsOwnHandlesAreUsedAndClosed) {
    const HANDLE foreign = OpenProcess(PROCESS_ALL_ACCESS, FALSE, ownId);
    ASSERT_NE(foreign, nullptr);
    const auto number = reinterpret_cast<SystemHandle>(foreign);
    std::vector<std::uint64_t> modules(25);
    std::uint32_t needed = 0;
    std::string path(260, ' ');
    ProcessEntry32 entry = emptyEntry();
    for (const SystemHandle handle : {number, SystemHandle{0}, SystemHandle{-1}}) {
        EXPECT_FALSE(processes.EnumProcessModules(handle, modules, 200, needed));
        EXPECT_EQ(processes.GetModuleFileNameExA(handle, 0, path, 500), 0u);
        EXPECT_FALSE(processes.Process32First(handle, entry));
        EXPECT_FALSE(processes.CloseHandle(handle));
    }
    EXPECT_EQ(GetProcessId(foreign), ownId) << "still open";
    CloseHandle(foreign);
    const SystemHandle own = ownProcess();
    EXPECT_TRUE(processes.CloseHandle(own));
    EXPECT_FALSE(processes.CloseHandle(own));
    EXPECT_FALSE(processes.EnumProcessModules(own, modules, 200, needed));
}

TEST_F(WindowsProcessesTest, WhatIsLeftOpenIsClosedWithTheObject) {
    const auto isOpen = [](SystemHandle handle) {
        DWORD flags = 0;
        return GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags) != 0;
    };
    SystemHandle list = 0;
    SystemHandle process = 0;
    {
        WindowsProcesses others;
        list = others.CreateToolhelp32Snapshot(process_list::snapshotOfProcesses, 0);
        process = others.OpenProcess(process_list::queryAndRead, 0, ownId);
        EXPECT_TRUE(isOpen(list));
        EXPECT_TRUE(isOpen(process));
    }
    EXPECT_FALSE(isOpen(list));
    EXPECT_FALSE(isOpen(process));
}

}  // namespace
}  // namespace velmora::tests::windows
