#include "platform/linux/system/memory_status.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <fstream>

#include "platform/linux/system/user_name.h"
#include "platform/platform.h"

namespace velmora::linuxhost {
namespace {

TEST(MemoryStatusOf, CountsInBytes) {
    const MemoryStatus status = memoryStatusOf(
        "MemTotal:        2048000 kB\nMemFree:          100000 kB\nMemAvailable:     512000 kB\n"
        "HugePages_Total:       0\nSwapTotal:       1024000 kB\nSwapFree:        1000000 kB\n");
    EXPECT_EQ(status.dwLength, 32U);
    EXPECT_EQ(status.dwTotalPhys, 2'048'000U * 1024);
    EXPECT_EQ(status.dwAvailPhys, 512'000U * 1024);
    EXPECT_EQ(status.dwMemoryLoad, 75U);
    EXPECT_EQ(status.dwTotalPageFile, 3'072'000U * 1024);
    EXPECT_EQ(status.dwAvailPageFile, 1'512'000U * 1024);
    EXPECT_GE(status.dwTotalVirtual, 3'221'225'472U);
}

TEST(MemoryStatusOf, StopsAtTheGreatestNumber) {
    // 4 GB less one KB, and 4 GB.
    const MemoryStatus status = memoryStatusOf(
        "MemTotal: 4194304 kB\nMemAvailable: 4194303 kB\nSwapTotal: 99999999999 kB\n");
    EXPECT_EQ(status.dwTotalPhys, 0xFFFFFFFF);
    EXPECT_EQ(status.dwAvailPhys, 4'194'303U * 1024);
    EXPECT_EQ(status.dwTotalPageFile, 0xFFFFFFFF);
    EXPECT_EQ(status.dwMemoryLoad, 0U);
}

TEST(MemoryStatusOf, WhatIsNotThereIsNothing) {
    for (const char* text : {"", "MemTotal:\n", "MemAvailable: 5 kB\n", "\n\n: :\n"}) {
        const MemoryStatus status = memoryStatusOf(text);
        EXPECT_EQ(status.dwLength, 32U);
        EXPECT_EQ(status.dwTotalPhys, 0U);
        EXPECT_EQ(status.dwMemoryLoad, 0U);
    }
}

TEST(MemoryStatusOf, TheMachineReportsWhatTheKernelDoes) {
    const auto machine = openMachine();
    MemoryStatus status{.dwLength = 32};
    machine->platform().kernel32.GlobalMemoryStatus(status);
    std::ifstream file("/proc/meminfo");
    std::string name;
    std::uint64_t kilobytes = 0;
    ASSERT_TRUE(file >> name >> kilobytes);
    ASSERT_EQ(name, "MemTotal:");
    EXPECT_EQ(status.dwTotalPhys, std::min<std::uint64_t>(kilobytes * 1024, 0xFFFFFFFF));
    EXPECT_GT(status.dwAvailPhys, 0U);
}

TEST(UserName, IsTheOneOfTheUserList) {
    const passwd* user = getpwuid(geteuid());
    EXPECT_EQ(userName(), user ? user->pw_name : "");
}

}  // namespace
}  // namespace velmora::linuxhost
