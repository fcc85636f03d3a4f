// The reports that are made of management records: their frames, lines and orders.
#include "notify/notify_rig.h"

namespace velmora::tests {
namespace {

const std::string rule = "=============\r\n";
const std::string connect = R"(GetObject winmgmts:\\\\.\root\cimv2)";

WmiValue null() {
    return {WmiValue::Kind::null, {}};
}
WmiValue array() {
    return {WmiValue::Kind::array, {}};
}

struct InventoryTest : testing::Test, NotifyRig {
    fake::FakeWmi& wmi = machine.wmi;

    /// A record in which each of these properties has its own name in angle brackets as value.
    static fake::FakeRecord namedValues(const Texts& names) {
        fake::FakeRecord record;
        for (const std::string& name : names) record[name] = WmiValue::of("<" + name + ">");
        return record;
    }
    /// The lines of such a record.
    static std::string namedLines(const Texts& names) {
        std::string lines;
        for (const std::string& name : names) lines.append(name).append(": <" + name + ">\r\n");
        return lines;
    }
    void addLogin(const std::string& path) {
        wmi.classes["Win32_LoggedOnUser"].push_back({{"Antecedent", WmiValue::of(path)}});
    }
    void addAccount(const std::string& path, const std::string& type, const std::string& domain,
                    const std::string& name) {
        wmi.objects[path] = {{"SIDType", WmiValue::of(type)},
                             {"Domain", WmiValue::of(domain)},
                             {"Name", WmiValue::of(name)}};
    }
};

const Texts eventProperties{
    "Category",        "CategoryString",   "ComputerName", "Data",    "EventCode",
    "EventIdentifier", "InsertionStrings", "Logfile",      "Message", "RecordNumber",
    "SourceName",      "TimeGenerated",    "TimeWritten",  "Type",    "User"};

const Texts memoryProperties{"CacheBytes",
                             "CacheBytesPeak",
                             "CacheFaultsPersec",
                             "CommitLimit",
                             "CommittedBytes",
                             "SystemCacheResidentBytes",
                             "SystemCodeResidentBytes",
                             "SystemCodeTotalBytes",
                             "SystemDriverResidentBytes",
                             "SystemDriverTotalBytes",
                             "WriteCopiesPersec"};

const Texts processProperties{"Caption",
                              "CreationClassName",
                              "CreationDate",
                              "CSCreationClassName",
                              "CSName",
                              "Description",
                              "ExecutablePath",
                              "ExecutionState",
                              "Handle",
                              "HandleCount",
                              "InstallDate",
                              "KernelModeTime",
                              "MaximumWorkingSetSize",
                              "MinimumWorkingSetSize",
                              "Name",
                              "OSCreationClassName",
                              "OSName",
                              "OtherOperationCount",
                              "OtherTransferCount",
                              "PageFaults",
                              "PageFileUsage",
                              "ParentProcessId",
                              "PeakPageFileUsage",
                              "PeakVirtualSize",
                              "PeakWorkingSetSize",
                              "Priority",
                              "PrivatePageCount",
                              "ProcessId",
                              "QuotaNonPagedPoolUsage",
                              "QuotaPagedPoolUsage",
                              "QuotaPeakNonPagedPoolUsage",
                              "QuotaPeakPagedPoolUsage",
                              "ReadOperationCount",
                              "ReadTransferCount",
                              "SessionId",
                              "Status",
                              "TerminationDate",
                              "ThreadCount",
                              "UserModeTime",
                              "VirtualSize",
                              "WindowsVersion",
                              "WorkingSetSize",
                              "WriteOperationCount",
                              "WriteTransferCount"};

const Texts jobProperties{"Caption",     "Command",       "DaysOfMonth",   "DaysOfWeek",
                          "Description", "ElapsedTime",   "InstallDate",   "InteractWithDesktop",
                          "JobId",       "JobStatus",     "Name",          "Notify",
                          "Owner",       "Priority",      "RunRepeatedly", "StartTime",
                          "Status",      "TimeSubmitted", "UntilTime"};

TEST_F(InventoryTest, EventsStandInTheOrderOfTheSystemWithTheirNumbers) {
    wmi.classes["Win32_NTLogEvent"] = {namedValues(eventProperties),
                                       {{"Type", WmiValue::of("Warning")}},
                                       {{"Type", WmiValue::of("not read")}}};
    EXPECT_EQ(inventory.prcWMI_NTEvt(2), "Last 2 events:\r\n" + rule + rule + "Event: 1\r\n" +
                                             namedLines(eventProperties) + rule +
                                             "Event: 2\r\nType: Warning\r\n");
    EXPECT_EQ(wmi.calls, (Texts{connect, "ExecQuery Select * from Win32_NTLogEvent WQL 48", "Next",
                                "Properties", "Next", "Properties"}));
}

TEST_F(InventoryTest, MoreEventsThanThereAreGiveThoseThatThereAre) {
    wmi.classes["Win32_NTLogEvent"] = {{{"User", WmiValue::of("a")}}};
    EXPECT_EQ(inventory.prcWMI_NTEvt(12),
              "Last 12 events:\r\n" + rule + rule + "Event: 1\r\nUser: a\r\n");
}

TEST_F(InventoryTest, NoEventIsReadForACountOfNoneOrLess) {
    wmi.classes["Win32_NTLogEvent"] = {namedValues(eventProperties)};
    EXPECT_EQ(inventory.prcWMI_NTEvt(0), "Last 0 events:\r\n" + rule);
    EXPECT_EQ(inventory.prcWMI_NTEvt(-5), "Last -5 events:\r\n" + rule);
    EXPECT_EQ(std::count(wmi.calls.begin(), wmi.calls.end(), "Next"), 0);
}

TEST_F(InventoryTest, APropertyThatIsMissingNullOrAnArrayLeavesItsLineOut) {
    wmi.classes["Win32_NTLogEvent"] = {{{"Category", null()},
                                        {"Data", array()},
                                        {"InsertionStrings", array()},
                                        {"Message", WmiValue::of("")},
                                        {"Type", WmiValue::of("Error")}}};
    EXPECT_EQ(inventory.prcWMI_NTEvt(1),
              "Last 1 events:\r\n" + rule + rule + "Event: 1\r\nMessage: \r\nType: Error\r\n");
}

// Anybody may write an event.
TEST_F(InventoryTest, FurtherLinesOfAValueCannotPassForLinesOfTheReport) {
    wmi.classes["Win32_NTLogEvent"] = {
        {{"Message", WmiValue::of("harmless\r\n.\r\nRSET\n=============\nEvent: 2")},
         {"User", WmiValue::of("ann")}}};
    EXPECT_EQ(inventory.prcWMI_NTEvt(1),
              "Last 1 events:\r\n" + rule + rule +
                  "Event: 1\r\nMessage: harmless\r\n .\r\n RSET\n =============\n Event: 2\r\n"
                  "User: ann\r\n");
    addLogin("a");
    addAccount("a", "1", "P\r\nC", "a\nb");
    EXPECT_EQ(inventory.prcWMI_LogOnUser(), "\r\n# of users logged on: 1\r\n" + rule +
                                                "Domain/Machine = P\r\n C Account = a\n b\r\n");
}

TEST_F(InventoryTest, MemoryHasALineACounterAndNoLineEndAfterTheFirstRule) {
    wmi.classes["Win32_PerfRawData_PerfOS_Memory"] = {namedValues(memoryProperties)};
    EXPECT_EQ(inventory.prcWMI_RamInfo(), "Random Access Memory Info:\r\n=============" +
                                              namedLines(memoryProperties) + "\r\n=============");
    EXPECT_EQ(wmi.calls,
              (Texts{connect, "ExecQuery Select * from Win32_PerfRawData_PerfOS_Memory WQL 48",
                     "Next", "Properties", "Next"}));
}

TEST_F(InventoryTest, MemoryYieldsAtEachRecordAndNoOtherReportYields) {
    const fake::FakeRecord one{{"CommitLimit", WmiValue::of("1")}};
    wmi.classes = {{"Win32_PerfRawData_PerfOS_Memory", {one, one}},
                   {"Win32_NTLogEvent", {one, one}},
                   {"Win32_Process", {one, one}},
                   {"Win32_ScheduledJob", {one, one}}};
    addLogin("a");
    addAccount("a", "1", "PC", "ann");
    EXPECT_EQ(inventory.prcWMI_RamInfo(),
              "Random Access Memory Info:\r\n=============CommitLimit: 1\r\nCommitLimit: 1\r\n"
              "\r\n=============");
    EXPECT_EQ(host.yields, 2);
    inventory.prcWMI_NTEvt(2);
    inventory.prcWMI_Process();
    inventory.prcWMI_SchedJob();
    inventory.prcWMI_LogOnUser();
    inventory.prcWMI_NetStat();
    inventory.prcProcessText();
    EXPECT_EQ(host.yields, 2);
}

TEST_F(InventoryTest, ProcessesAreNumberedWithARuleInFrontOfEach) {
    wmi.classes["Win32_Process"] = {namedValues(processProperties),
                                    {{"Name", WmiValue::of("b")}, {"Handle", null()}}};
    EXPECT_EQ(inventory.prcWMI_Process(), rule + "Process Count: 1\r\n" +
                                              namedLines(processProperties) + rule +
                                              "Process Count: 2\r\nName: b\r\n");
    EXPECT_EQ(wmi.calls[0], connect);
    EXPECT_EQ(wmi.calls[1], "ExecQuery Select * from Win32_Process WQL 48");
}

TEST_F(InventoryTest, JobsAreNumberedWithARuleInFrontOfEach) {
    wmi.classes["Win32_ScheduledJob"] = {namedValues(jobProperties), {}};
    EXPECT_EQ(inventory.prcWMI_SchedJob(),
              rule + "Job Count: 1\r\n" + namedLines(jobProperties) + rule + "Job Count: 2\r\n");
    EXPECT_EQ(wmi.calls[0], connect);
    EXPECT_EQ(wmi.calls[1], "ExecQuery Select * from Win32_ScheduledJob WQL 48");
}

TEST_F(InventoryTest, WithoutRecordsThereAreFramesAlone) {
    for (const char* name : {"Win32_NTLogEvent", "Win32_PerfRawData_PerfOS_Memory",
                             "Win32_LoggedOnUser", "Win32_Process", "Win32_ScheduledJob"}) {
        wmi.classes[name];
    }
    EXPECT_EQ(inventory.prcWMI_NTEvt(3), "Last 3 events:\r\n" + rule);
    EXPECT_EQ(inventory.prcWMI_RamInfo(),
              "Random Access Memory Info:\r\n=============\r\n=============");
    EXPECT_EQ(inventory.prcWMI_LogOnUser(), "\r\n# of users logged on: 0\r\n" + rule);
    EXPECT_EQ(inventory.prcWMI_Process(), "");
    EXPECT_EQ(inventory.prcWMI_SchedJob(), "");
}

TEST_F(InventoryTest, EachLoginOfAUserIsALine) {
    for (const char* path : {"a", "b", "a"}) addLogin(path);
    addAccount("a", "1", "PC", "ann");
    addAccount("b", "1", "OFFICE", "bob");
    EXPECT_EQ(inventory.prcWMI_LogOnUser(), "\r\n# of users logged on: 3\r\n" + rule +
                                                "Domain/Machine = PC Account = ann\r\n"
                                                "Domain/Machine = OFFICE Account = bob\r\n"
                                                "Domain/Machine = PC Account = ann\r\n");
    EXPECT_EQ(
        wmi.calls,
        (Texts{R"(ConnectServer . root\cimv2)", "ExecQuery Select * from Win32_LoggedOnUser WQL 32",
               "Next", "Properties", "Get a", "Properties", "Next", "Properties", "Get b",
               "Properties", "Next", "Properties", "Get a", "Properties", "Next"}));
}

TEST_F(InventoryTest, OnlyAccountsOfUsersCount) {
    for (const char* path : {"group", "gone", "user", "untyped"}) addLogin(path);
    wmi.classes["Win32_LoggedOnUser"].emplace_back();  // without an account
    addAccount("group", "2", "PC", "staff");
    addAccount("user", "1", "PC", "ann");
    wmi.objects["untyped"] = {{"Name", WmiValue::of("x")}, {"Domain", WmiValue::of("y")}};
    EXPECT_EQ(inventory.prcWMI_LogOnUser(),
              "\r\n# of users logged on: 1\r\n" + rule + "Domain/Machine = PC Account = ann\r\n");
}

TEST_F(InventoryTest, AUserWithoutADomainCountsWithoutALine) {
    for (const char* path : {"a", "b"}) addLogin(path);
    wmi.objects["a"] = {{"SIDType", WmiValue::of("1")}, {"Name", WmiValue::of("ann")}};
    wmi.objects["b"] = {
        {"SIDType", WmiValue::of("1")}, {"Domain", WmiValue::of("PC")}, {"Name", null()}};
    EXPECT_EQ(inventory.prcWMI_LogOnUser(), "\r\n# of users logged on: 2\r\n" + rule);
}

TEST_F(InventoryTest, ASourceThatFailsLeavesWhatItGaveBefore) {
    const fake::FakeRecord a{{"Name", WmiValue::of("a")}};
    wmi.classes["Win32_Process"] = {a, a};
    const std::string first = rule + "Process Count: 1\r\nName: a\r\n";
    const std::string second = rule + "Process Count: 2\r\nName: a\r\n";
    const Texts reports{
        "",                                      // GetObject fails
        "",                                      // ExecQuery
        "",                                      // the first Next
        rule + "Process Count: 1\r\n" + second,  // Properties: its lines only
        first,                                   // the second Next
        first + rule + "Process Count: 2\r\n",   // Properties
        first + second,                          // the Next after the last
    };
    for (std::size_t call = 0; call < reports.size(); ++call) {
        wmi.failCall(static_cast<int>(call) + 1);
        EXPECT_EQ(inventory.prcWMI_Process(), reports[call]) << call;
    }
}

TEST_F(InventoryTest, ALoginThatFailsIsPassedOver) {
    for (const char* path : {"a", "b"}) addLogin(path);
    addAccount("a", "1", "PC", "ann");
    addAccount("b", "1", "PC", "bob");
    const auto report = [](int count, const std::string& lines) {
        return "\r\n# of users logged on: " + std::to_string(count) + "\r\n" + rule + lines;
    };
    const std::string ann = "Domain/Machine = PC Account = ann\r\n";
    const std::string bob = "Domain/Machine = PC Account = bob\r\n";
    const Texts reports{report(0, ""),  report(0, ""),  report(0, ""),       report(1, bob),
                        report(1, bob), report(1, bob), report(1, ann),      report(1, ann),
                        report(1, ann), report(1, ann), report(2, ann + bob)};
    for (std::size_t call = 0; call < reports.size(); ++call) {
        wmi.failCall(static_cast<int>(call) + 1);
        EXPECT_EQ(inventory.prcWMI_LogOnUser(), reports[call]) << call;
    }
}

TEST_F(InventoryTest, NoManagementRecordsAtAllLeaveTheFrames) {
    // The machine knows none of the classes.
    EXPECT_EQ(inventory.prcWMI_NTEvt(1), "Last 1 events:\r\n" + rule);
    EXPECT_EQ(inventory.prcWMI_RamInfo(),
              "Random Access Memory Info:\r\n=============\r\n=============");
    EXPECT_EQ(inventory.prcWMI_LogOnUser(), "\r\n# of users logged on: 0\r\n" + rule);
    EXPECT_EQ(inventory.prcWMI_Process(), "");
}

TEST_F(InventoryTest, ConnectionsAreWhatTheProgramWrites) {
    machine.outputs["netstat"] = "Proto  Local\r\n  TCP  a\r\n";
    EXPECT_EQ(inventory.prcWMI_NetStat(), "Proto  Local\r\n  TCP  a\r\n");
    EXPECT_EQ(machine.log.calls(), Texts{"Exec netstat"});
    machine.outputs.clear();
    EXPECT_EQ(inventory.prcWMI_NetStat(), "");
}

}  // namespace
}  // namespace velmora::tests
