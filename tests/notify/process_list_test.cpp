// The list of running processes: its two ways by the system's version, and its text.
#include "notify/notify_rig.h"

namespace velmora::tests {
namespace {

const std::string heading = "Currently Running Processes: ";
const std::string headingRule = "\r\n==============\r\n";  // fourteen
const std::string closingRule = "===============";         // fifteen

OsVersionInfo versionOf(std::uint32_t platform, std::uint32_t major, std::uint32_t minor) {
    return {.dwMajorVersion = major, .dwMinorVersion = minor, .dwPlatformId = platform};
}

struct ProcessListTest : testing::Test, NotifyRig {
    fake::FakeProcesses& processes = machine.processes;

    ProcessListTest() {
        processes.running = {{4, "SYSTEM", "\\SystemRoot\\smss.exe"},
                             {120, "Explorer.EXE", "C:\\WINNT\\Explorer.EXE"},
                             {3000, "notepad.exe", "C:\\WINNT\\system32\\notepad.exe"}};
    }
    void beWindows98() { machine.version = versionOf(1, 4, 10); }
    void beWindows2000() { machine.version = versionOf(2, 5, 0); }
    /// So many processes, "p0" and on, with the numbers 1000 and on.
    void run(int count) {
        processes.running.clear();
        for (int i = 0; i < count; ++i) {
            processes.running.push_back(
                {static_cast<std::uint32_t>(1000 + i), "p" + std::to_string(i)});
        }
    }
};

TEST_F(ProcessListTest, TheClassOfAVersion) {
    EXPECT_EQ(versionClassOf(versionOf(1, 4, 0)), 3);
    EXPECT_EQ(versionClassOf(versionOf(1, 4, 10)), 4);
    EXPECT_EQ(versionClassOf(versionOf(1, 4, 90)), 0);
    EXPECT_EQ(versionClassOf(versionOf(2, 3, 51)), 1);
    EXPECT_EQ(versionClassOf(versionOf(2, 3, 50)), 0);
    EXPECT_EQ(versionClassOf(versionOf(2, 4, 51)), 0);
    EXPECT_EQ(versionClassOf(versionOf(2, 4, 0)), 2);
    EXPECT_EQ(versionClassOf(versionOf(2, 4, 10)), 0);
    EXPECT_EQ(versionClassOf(versionOf(2, 5, 0)), 5);
    EXPECT_EQ(versionClassOf(versionOf(2, 5, 1)), 0);
    EXPECT_EQ(versionClassOf(versionOf(2, 6, 0)), 0);
    EXPECT_EQ(versionClassOf(versionOf(2, 10, 0)), 0);
    EXPECT_EQ(versionClassOf(versionOf(0, 4, 0)), 0);
    EXPECT_EQ(versionClassOf(versionOf(3, 5, 0)), 0);
    // The first platform is known by its minor version alone.
    EXPECT_EQ(versionClassOf(versionOf(1, 9, 0)), 3);
    EXPECT_EQ(versionClassOf(versionOf(1, 9, 10)), 4);
}

TEST_F(ProcessListTest, TheVersionIsAskedForWithItsRecordSize) {
    inventory.prcProcessText();
    EXPECT_EQ(machine.log.calls(), Texts{"GetVersionExA 148"});
}

TEST_F(ProcessListTest, OtherSystemsListNothing) {
    for (const OsVersionInfo& version : {versionOf(2, 10, 0), versionOf(2, 3, 51)}) {
        machine.version = version;
        EXPECT_EQ(inventory.prcProcessText(), heading + "1" + headingRule + closingRule);
    }
    EXPECT_TRUE(processes.calls.empty());
}

TEST_F(ProcessListTest, ASnapshotListsNamesNumbersAndTheRecordSizeWithoutTheFirst) {
    for (const std::uint32_t minor : {0U, 10U}) {
        machine.version = versionOf(1, 4, minor);
        EXPECT_EQ(inventory.prcProcessText(), heading + "3" + headingRule +
                                                  "explorer.exe 120 296\r\n"
                                                  "notepad.exe 3000 296\r\n" +
                                                  closingRule);
    }
    EXPECT_EQ(processes.calls, Texts(2, "CreateToolhelp32Snapshot 2 0"));
    EXPECT_EQ(processes.openHandles, 0);
}

TEST_F(ProcessListTest, AnEmptySnapshotAndNoneListNothing) {
    beWindows98();
    processes.running.clear();
    EXPECT_EQ(inventory.prcProcessText(), heading + "1" + headingRule + closingRule);
    run(3);
    for (const SystemHandle none : {-1, 0}) {
        processes.snapshot = none;
        EXPECT_EQ(inventory.prcProcessText(), heading + "1" + headingRule + closingRule) << none;
    }
    processes.snapshot = 1;
    EXPECT_EQ(inventory.prcProcessText(),
              heading + "3" + headingRule + "p1 1001 296\r\np2 1002 296\r\n" + closingRule);
    EXPECT_EQ(processes.openHandles, 0);
}

TEST_F(ProcessListTest, OpenedProcessesAreListedFromTheSecondPlaceOnWithTheirHandles) {
    for (const OsVersionInfo& version : {versionOf(2, 4, 0), versionOf(2, 5, 0)}) {
        machine.version = version;
        processes.calls.clear();
        EXPECT_EQ(inventory.prcProcessText(), heading + "4" + headingRule +
                                                  "\\systemroot\\smss.exe 500 \r\n"
                                                  "c:\\winnt\\explorer.exe 501 \r\n"
                                                  "c:\\winnt\\system32\\notepad.exe 502 \r\n" +
                                                  closingRule);
        EXPECT_EQ(processes.calls,
                  (Texts{"EnumProcesses 16 of 16, 96", "OpenProcess 1040 0 4",
                         "EnumProcessModules 200", "GetModuleFileNameExA 500 in 260",
                         "OpenProcess 1040 0 120", "EnumProcessModules 200",
                         "GetModuleFileNameExA 500 in 260", "OpenProcess 1040 0 3000",
                         "EnumProcessModules 200", "GetModuleFileNameExA 500 in 260"}));
        EXPECT_EQ(processes.openHandles, 0);
    }
}

TEST_F(ProcessListTest, AProcessThatCannotBeOpenedOrReadIsLeftOut) {
    beWindows2000();
    processes.running[0].opens = false;
    processes.running[1].hasModules = false;
    EXPECT_EQ(
        inventory.prcProcessText(),
        heading + "2" + headingRule + "c:\\winnt\\system32\\notepad.exe 502 \r\n" + closingRule);
    EXPECT_EQ(processes.openHandles, 0);
}

TEST_F(ProcessListTest, APathIsTrimmedAndMayBeEmpty) {
    beWindows2000();
    processes.running[0].path = "  C:\\a b.exe  ";
    processes.running[1].path = "";
    EXPECT_EQ(inventory.prcProcessText(), heading + "4" + headingRule +
                                              "c:\\a b.exe 500 \r\n 501 \r\n"
                                              "c:\\winnt\\system32\\notepad.exe 502 \r\n" +
                                              closingRule);
}

TEST_F(ProcessListTest, TheBufferGrowsUntilThereIsRoomToSpare) {
    beWindows2000();
    const auto sizes = [this](int count) {
        run(count);
        processes.calls.clear();
        inventory.prcProcessText();
        Texts asked;
        for (const std::string& call : processes.calls) {
            if (call.starts_with("EnumProcesses")) asked.push_back(call);
        }
        return asked;
    };
    EXPECT_EQ(sizes(3), (Texts{"EnumProcesses 16 of 16, 96"}));
    // Four fill the buffer of sixteen bytes: there may be more.
    EXPECT_EQ(sizes(4), (Texts{"EnumProcesses 16 of 16, 96", "EnumProcesses 32 of 32, 16"}));
    EXPECT_EQ(sizes(9), (Texts{"EnumProcesses 16 of 16, 96", "EnumProcesses 32 of 32, 16",
                               "EnumProcesses 64 of 64, 32"}));
}

TEST_F(ProcessListTest, ASystemThatEnumeratesNothingIsAskedUntilTheBufferIsTooLarge) {
    beWindows2000();
    processes.enumerates = false;
    EXPECT_EQ(inventory.prcProcessText(), heading + "1" + headingRule + closingRule);
    // 96 bytes stay reported, 24 numbers of 0, which no process has.
    EXPECT_EQ(std::count(processes.calls.begin(), processes.calls.end(), "OpenProcess 1040 0 0"),
              24);
    EXPECT_EQ(processes.calls[3], "EnumProcesses 128 of 128, 96");
    EXPECT_EQ(processes.calls.size(), 28U);
}

TEST_F(ProcessListTest, TheReportStopsAtTwoHundred) {
    beWindows98();
    const auto lineOf = [](int i) {
        return "p" + std::to_string(i) + " " + std::to_string(1000 + i) + " 296\r\n";
    };
    run(201);  // one of them isn't shown
    const std::string all = inventory.prcProcessText();
    EXPECT_TRUE(all.starts_with(heading + "201" + headingRule + lineOf(1))) << all.substr(0, 80);
    EXPECT_TRUE(all.ends_with(lineOf(200) + closingRule));
    run(200);
    EXPECT_TRUE(inventory.prcProcessText().starts_with(heading + "200" + headingRule));
    run(5000);
    EXPECT_EQ(inventory.prcProcessText(), all);
}

TEST_F(ProcessListTest, AListThatFailsMakesAnEmptyReport) {
    for (const OsVersionInfo& version : {versionOf(1, 4, 10), versionOf(2, 5, 0)}) {
        machine.version = version;
        processes.failsWith = 70;
        EXPECT_EQ(inventory.prcProcessText(), "");
        processes.failsWith = 0;
        machine.log.failCall(1, 5);
        EXPECT_EQ(inventory.prcProcessText(), "");
        EXPECT_NE(inventory.prcProcessText(), "");
    }
}

TEST_F(ProcessListTest, AnObjectKeepsTheListUntilItListsAnew) {
    beWindows98();
    clsRunProc list(platform);
    EXPECT_TRUE(list.RunningProcs().names.empty());
    list.prcRunningProcs();
    run(1);
    EXPECT_EQ(list.RunningProcs().ids, (Texts{"4", "120", "3000"}));
    list.prcRunningProcs();
    EXPECT_EQ(list.RunningProcs().names, Texts{"p0"});
    EXPECT_EQ(list.RunningProcs().sizes, Texts{"296"});
}

TEST_F(ProcessListTest, TheArraysGrowByOneWhereThereIsNoRoom) {
    beWindows98();
    ProcessArrays arrays;
    inventory.prcEnumProcesses(arrays);
    EXPECT_EQ(arrays.names, (Texts{"SYSTEM", "Explorer.EXE", "notepad.exe"}));
    EXPECT_EQ(arrays.ids, (Texts{"4", "120", "3000"}));
    EXPECT_EQ(arrays.sizes, (Texts{"296", "296", "296"}));
    beWindows2000();
    arrays = {};
    inventory.prcEnumProcesses(arrays);
    EXPECT_EQ(arrays.names, (Texts{"", "\\SystemRoot\\smss.exe", "C:\\WINNT\\Explorer.EXE",
                                   "C:\\WINNT\\system32\\notepad.exe"}));
    EXPECT_EQ(arrays.ids, (Texts{"", "500", "501", "502"}));
    EXPECT_EQ(arrays.sizes, Texts(4));
}

}  // namespace
}  // namespace velmora::tests
