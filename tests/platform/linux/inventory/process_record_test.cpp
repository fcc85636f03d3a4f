#include "platform/linux/inventory/process_record.h"

#include <gtest/gtest.h>

#include <ctime>

#include "platform/linux/support/environment.h"

namespace velmora::linuxhost {
namespace {

// The fields behind the name: state 3 to rss 24, then two more.
constexpr const char* statRest =
    " S 41 42 43 0 -1 4194304 1001 1 22 1 300 45 0 0 -2 -20 6 0 12345 7000000 11 99 0\n";

std::string statText(const std::string& name) {
    return "4711 (" + name + ')' + statRest;
}

std::string valueIn(const std::optional<Record>& record, const char* property) {
    if (!record) return "no record";
    const auto found = record->find(property);
    return found == record->end() ? "missing" : found->second;
}

ProcessHost madeHost() {
    return {.name = "box",
            .system = "Some System 1",
            .bootTime = 1'234'567'890,
            .ticks = 100,
            .pageSize = 4096};
}

TEST(ProcessRecord, HasAllThatTheKernelTells) {
    const Environment zone("TZ", "UTC0");
    tzset();
    const auto record = processRecord(
        madeHost(), {.id = 4711,
                     .stat = statText("short"),
                     .status = "Name:\tshort\nVmPeak:\t  9000 kB\nVmHWM:\t 800 kB\n"
                               "RssAnon:\t 70 kB\nVmSwap:\t 6 kB\n",
                     .io = "rchar: 11\nwchar: 12\nsyscr: 13\nsyscw: 14\nread_bytes: 15\n",
                     .exe = "/usr/bin/long name",
                     .descriptors = 9});
    const Record expected{{"Caption", "long name"},
                          {"Description", "long name"},
                          {"Name", "long name"},
                          {"CSName", "box"},
                          {"OSName", "Some System 1"},
                          // 123.45 seconds after 23:31:30
                          {"CreationDate", "20090213233333.450000+000"},
                          {"ExecutablePath", "/usr/bin/long name"},
                          {"Handle", "4711"},
                          {"ProcessId", "4711"},
                          {"HandleCount", "9"},
                          {"UserModeTime", "30000000"},   // 300 hundredths of a second
                          {"KernelModeTime", "4500000"},  // 45 of them
                          {"PageFaults", "1023"},         // 1001 + 22
                          {"PageFileUsage", "6"},
                          {"ParentProcessId", "41"},
                          {"PeakVirtualSize", "9216000"},  // 9000 * 1024
                          {"PeakWorkingSetSize", "800"},
                          {"Priority", "-2"},
                          {"PrivatePageCount", "71680"},  // 70 * 1024
                          {"ReadOperationCount", "13"},
                          {"ReadTransferCount", "11"},
                          {"WriteOperationCount", "14"},
                          {"WriteTransferCount", "12"},
                          {"SessionId", "43"},
                          {"ThreadCount", "6"},
                          {"VirtualSize", "7000000"},
                          {"WorkingSetSize", "45056"}};  // 11 * 4096
    ASSERT_TRUE(record);
    EXPECT_EQ(*record, expected);
    tzset();
}

TEST(ProcessRecord, WhatCanNotBeReadIsLeftOut) {
    auto host = madeHost();
    host.bootTime = 0;
    host.system = "";
    const auto record = processRecord(host, {.id = 1, .stat = statText("init")});
    EXPECT_EQ(valueIn(record, "Name"), "init");
    EXPECT_EQ(valueIn(record, "ThreadCount"), "6");
    for (const char* property :
         {"CreationDate", "OSName", "ExecutablePath", "HandleCount", "PageFileUsage",
          "PeakVirtualSize", "PeakWorkingSetSize", "PrivatePageCount", "ReadOperationCount",
          "ReadTransferCount", "WriteOperationCount", "WriteTransferCount", "Status",
          "MaximumWorkingSetSize", "WindowsVersion"})
        EXPECT_EQ(valueIn(record, property), "missing") << property;
}

TEST(ProcessRecord, AShortNameMayContainAnything) {
    const auto nameOf = [](const std::string& shortName) {
        const auto record = processRecord(madeHost(), {.id = 4711, .stat = statText(shortName)});
        // The fields are counted behind the name in any case.
        EXPECT_EQ(valueIn(record, "ParentProcessId"), "41") << shortName;
        EXPECT_EQ(valueIn(record, "WorkingSetSize"), "45056") << shortName;
        return valueIn(record, "Name");
    };
    EXPECT_EQ(nameOf("a) R 1 2 3 (b"), "a) R 1 2 3 (b");
    EXPECT_EQ(nameOf(":)"), ":)");
    EXPECT_EQ(nameOf("(("), "((");
    EXPECT_EQ(nameOf("x\nName: y\r"), "x?Name: y?");
    EXPECT_EQ(nameOf("\xFFz"), "\xEF\xBF\xBDz");
    EXPECT_EQ(nameOf("kworker/0:1"), "kworker/0:1");
    EXPECT_EQ(nameOf(" "), " ");
}

TEST(ProcessRecord, TheExecutableGivesTheName) {
    const auto record = processRecord(
        madeHost(), {.id = 1, .stat = statText("short"), .exe = "/opt/a\nb\xFE (deleted)"});
    EXPECT_EQ(valueIn(record, "Name"), "a?b\xEF\xBF\xBD");
    EXPECT_EQ(valueIn(record, "ExecutablePath"), "/opt/a?b\xEF\xBF\xBD");
    EXPECT_EQ(processName("/opt/x (deleted) y", ""), "x (deleted) y");
    EXPECT_EQ(processName("/opt/", statText("short")), "short");
}

TEST(ProcessRecord, ATextThatIsNoStatusIsNoProcess) {
    const std::string whole = statText("short");
    EXPECT_FALSE(processRecord(madeHost(), {.id = 1, .stat = ""}));
    EXPECT_FALSE(processRecord(madeHost(), {.id = 1, .stat = "1 (x"}));
    EXPECT_FALSE(processRecord(madeHost(), {.id = 1, .stat = "1 (x) S 2 3"}));
    EXPECT_FALSE(processRecord(madeHost(), {.id = 1, .stat = whole.substr(0, 40)}));
    EXPECT_EQ(commandName("no name"), std::nullopt);
    EXPECT_EQ(commandName(")("), std::nullopt);
    EXPECT_EQ(commandName("1 ()"), "");
}

TEST(ProcessRecord, FieldsThatAreNoNumbersAreLeftOut) {
    const auto record = processRecord(
        madeHost(),
        {.id = 1,
         .stat = "1 (x) S a 42 b 0 -1 4 c 1 22 1 99999999999999999999 45 0 0 p 0 t 0 -1 v r",
         .status = "VmPeak: 18446744073709551615 kB\nRssAnon:\nVmSwap: 5 kB\nVmSwap: 6 kB\n",
         .io = "rchar: -1\nwchar: x\n"});
    for (const char* property :
         {"ParentProcessId", "SessionId", "PageFaults", "UserModeTime", "Priority", "ThreadCount",
          "CreationDate", "VirtualSize", "WorkingSetSize", "PeakVirtualSize", "PrivatePageCount",
          "ReadTransferCount", "WriteTransferCount"})
        EXPECT_EQ(valueIn(record, property), "missing") << property;
    EXPECT_EQ(valueIn(record, "KernelModeTime"), "4500000");
    EXPECT_EQ(valueIn(record, "PageFileUsage"), "5");
}

TEST(ProcessRecord, TheSystemIsNamedByItsPrettyName) {
    EXPECT_EQ(systemName("NAME=\"Short\"\nPRETTY_NAME=\"Some System 1 (\\\"one\\\")\"\nID=x\n"),
              "Some System 1 (\"one\")");
    EXPECT_EQ(systemName("PRETTY_NAME='It \\ is'\n"), "It \\ is");
    EXPECT_EQ(systemName("PRETTY_NAME=Plain"), "Plain");
    EXPECT_EQ(systemName("MY_PRETTY_NAME=Plain\n"), "");
    EXPECT_EQ(systemName("PRETTY_NAME="), "");
    EXPECT_EQ(systemName("PRETTY_NAME=\""), "");
    EXPECT_EQ(systemName(""), "");
}

}  // namespace
}  // namespace velmora::linuxhost
