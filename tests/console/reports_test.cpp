// The reports on the console.
#include "console/session.h"

#include <gtest/gtest.h>

namespace velmora::tests {
namespace {

struct ConsoleReports : testing::Test, Session {
    ConsoleReports() {
        for (const char* name : {"Win32_NTLogEvent", "Win32_PerfRawData_PerfOS_Memory",
                                 "Win32_LoggedOnUser", "Win32_Process", "Win32_ScheduledJob"}) {
            machine.wmi.classes[name];
        }
    }
};

TEST_F(ConsoleReports, AReportIsPrintedLineByLine) {
    machine.wmi.classes["Win32_NTLogEvent"] = {{{"Type", WmiValue::of("Error")}}};
    EXPECT_EQ(run("report ntevents 10"),
              "Last 10 events:\n=============\n=============\nEvent: 1\nType: Error\n");
}

TEST_F(ConsoleReports, UnderJsonAReportIsOneText) {
    run("json on");
    EXPECT_EQ(run("report users"), R"({"ok":"\r\n# of users logged on: 0\r\n=============\r\n"})"
                                   "\n");
}

TEST_F(ConsoleReports, EachNameHasItsReport) {
    machine.wmi.classes["Win32_PerfRawData_PerfOS_Memory"] = {{{"CommitLimit", WmiValue::of("7")}}};
    machine.wmi.classes["Win32_Process"] = {{{"Name", WmiValue::of("a.exe")}}};
    machine.wmi.classes["Win32_ScheduledJob"] = {{{"Command", WmiValue::of("b.exe")}}};
    machine.outputs["netstat"] = "TCP 1\r\nTCP 2\r\n";
    EXPECT_EQ(run("report ram"),
              "Random Access Memory Info:\n=============CommitLimit: 7\n\n=============\n");
    EXPECT_EQ(run("report processes"), "=============\nProcess Count: 1\nName: a.exe\n");
    EXPECT_EQ(run("report jobs"), "=============\nJob Count: 1\nCommand: b.exe\n");
    EXPECT_EQ(run("report netstat"), "TCP 1\nTCP 2\n");
    EXPECT_EQ(run("report processlist"),
              "Currently Running Processes: 1\n==============\n===============\n");
    EXPECT_EQ(run("REPORT Users"), "\n# of users logged on: 0\n=============\n");
}

TEST_F(ConsoleReports, TheMessageIsWhatAMailWouldSay) {
    forms.frmNotify.txtCustMsg.setText("Room 5");
    forms.frmNotify.lstNotContent.setSelected(1, true);
    EXPECT_EQ(run("report message"),
              "Alerts\n=============\nno info\n\n\nCustom Message: \nRoom 5\n");
}

// A number of events that is none would end the program elsewhere.
TEST_F(ConsoleReports, AMessageThatFailsIsEmpty) {
    forms.frmNotify.txtCustMsg.setText("40000");
    forms.frmNotify.lstNotContent.setSelected(9, true);
    EXPECT_EQ(run("report message"), "\n");
}

// A process or an event must not send control sequences to the terminal.
TEST_F(ConsoleReports, ControlCharactersAreEscaped) {
    machine.outputs["netstat"] = "plain\r\n\x1B[2Jnasty\r\n";
    EXPECT_EQ(run("report netstat"), "plain\n$\"\\u001b[2Jnasty\"\n");
}

TEST_F(ConsoleReports, OtherWordsAreRefused) {
    EXPECT_EQ(run("report weather"), "error: unknown report: weather\n");
    for (const char* line : {"report", "report ntevents", "report ntevents -1",
                             "report ntevents 32768", "report ntevents 1.5", "report ntevents ten",
                             "report ntevents 1 2", "report ram 1", "report message now"}) {
        EXPECT_TRUE(refuses(line)) << line;
    }
    EXPECT_EQ(machine.wmi.calls.size(), 0U);
}

}  // namespace
}  // namespace velmora::tests
