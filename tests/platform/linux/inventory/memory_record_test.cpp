#include "platform/linux/inventory/memory_record.h"

#include <gtest/gtest.h>

namespace velmora::linuxhost {
namespace {

constexpr std::string_view memoryText =
    "MemTotal:       16303412 kB\n"
    "Buffers:            100 kB\n"
    "Cached:            2000 kB\n"
    "SwapCached:           7 kB\n"
    "CommitLimit:       3000 kB\n"
    "Committed_AS:      4000 kB\n"
    "HugePages_Total:       0\n";

TEST(MemoryRecord, GivesBytesAndTheCountOfFaults) {
    const Record expected{{"CacheBytes", "2150400"},  // (2000 + 100) * 1024
                          {"CacheFaultsPersec", "77"},
                          {"CommitLimit", "3072000"},
                          {"CommittedBytes", "4096000"},
                          {"SystemCacheResidentBytes", "2048000"},
                          {"SystemDriverResidentBytes", "12345"},
                          {"SystemDriverTotalBytes", "12345"}};
    EXPECT_EQ(memoryRecord(memoryText, "pgfault 5\npgmajfault 77\npgmajfault_x 9\n", 12345),
              expected);
}

TEST(MemoryRecord, WhatIsNotReportedIsLeftOut) {
    EXPECT_EQ(memoryRecord("", "", std::nullopt), Record{});
    EXPECT_EQ(memoryRecord("Cached: 2 kB\n", "", std::nullopt),
              (Record{{"SystemCacheResidentBytes", "2048"}}));
    EXPECT_EQ(memoryRecord("Buffers: 2 kB\nCached: x kB\nCommitLimit:", "pgmajfault\n", 0),
              (Record{{"SystemDriverResidentBytes", "0"}, {"SystemDriverTotalBytes", "0"}}));
}

TEST(MemoryRecord, NumbersBeyondAllMemoryAreLeftOut) {
    EXPECT_EQ(memoryRecord("CommitLimit: 18446744073709551615 kB\n"
                           "Committed_AS: 18446744073709551616 kB\n"
                           "Cached: -5 kB\n",
                           "", std::nullopt),
              Record{});
}

TEST(MemoryRecord, ModulesAreSummedUp) {
    EXPECT_EQ(modulesSize("ext4 1000 2 - Live 0x0\nfuse 234 1 - Live 0x0\n"), 1234u);
    EXPECT_EQ(modulesSize("one 5"), 5u);
    EXPECT_EQ(modulesSize("\nodd\nname x 7\n"), 0u);
    EXPECT_EQ(modulesSize(""), 0u);
}

}  // namespace
}  // namespace velmora::linuxhost
