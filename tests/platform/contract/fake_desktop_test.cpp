// What tests rely on in the machine in memory, beyond what every machine does.
#include <gtest/gtest.h>

#include "fake/fake_machine.h"

namespace velmora::contract {
namespace {

using Calls = std::vector<std::string>;

TEST(FakeDesktop, RecordsWhatItWasAskedAndAnswersAsItIsSet) {
    fake::FakeMachine machine;
    Platform& platform = machine.platform();
    machine.environment["TEMP"] = "C:\\Temp";
    EXPECT_EQ(platform.kernel32.GetEnvironmentVariableA("TEMP"), "C:\\Temp");
    machine.emptyResult = 31;
    EXPECT_EQ(platform.shell32.SHEmptyRecycleBinA("Form1", "D:\\", 7), 31);
    ASSERT_EQ(machine.emptied.size(), 1u);
    EXPECT_EQ(machine.emptied[0].owner, "Form1");
    EXPECT_EQ(machine.emptied[0].root, "D:\\");
    EXPECT_EQ(machine.emptied[0].flags, 7u);
    machine.registry[{hive::localMachine, "SOFTWARE\\Tool"}].values["Path"] = {1, "C:\\tool.exe"};
    RegistryKey key = 0;
    std::uint32_t type = 0;
    std::string data;
    platform.advapi32.RegOpenKeyExA(hive::localMachine, "software\\tool", 0, 0x20019, key);
    EXPECT_EQ(platform.advapi32.RegQueryValueExA(key, "Path", type, data), 0);
    EXPECT_EQ(data, "C:\\tool.exe");
    EXPECT_EQ(machine.log.calls(),
              (Calls{"GetEnvironmentVariableA TEMP", "SHEmptyRecycleBinA Form1 D:\\ 7",
                     "RegOpenKeyExA 2147483650 software\\tool 0 131097", "RegQueryValueExA Path"}));
}

TEST(FakeDesktop, APlannedFailureIsReportedByTheResult) {
    fake::FakeMachine machine;
    Platform& platform = machine.platform();
    machine.environment["TEMP"] = "C:\\Temp";
    machine.browsed = {"C:\\"};
    ItemIdList list;
    machine.log.failCall(1, 5);
    EXPECT_EQ(platform.kernel32.GetEnvironmentVariableA("TEMP"), "");
    machine.log.failCall(1, 5);
    EXPECT_EQ(platform.shell32.SHEmptyRecycleBinA("Form1", "", 0), 5);
    EXPECT_TRUE(machine.emptied.empty());
    machine.log.failCall(1, 5);
    EXPECT_EQ(platform.shell32.SHBrowseForFolder({}, list), Browse::dismissed);
    EXPECT_EQ(list.place, "");
    RegistryKey key = 0;
    std::uint32_t type = 0;
    std::string data;
    platform.advapi32.RegOpenKeyExA(
        hive::localMachine, R"(SOFTWARE\Microsoft\Windows\CurrentVersion\Run)", 0, 0x20019, key);
    machine.runKey().values["v"] = {1, "x"};
    machine.log.failCall(1, 8);
    EXPECT_EQ(platform.advapi32.RegQueryValueExA(key, "v", type, data), 8);
    machine.runKey().queryResult = 1012;
    EXPECT_EQ(platform.advapi32.RegQueryValueExA(key, "v", type, data), 1012);
    EXPECT_EQ(data, "");
}

}  // namespace
}  // namespace velmora::contract
