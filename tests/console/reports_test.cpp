// The reports on the console.
#include "console/session.h"

#include <gtest/gtest.h>

#include "rows/watch_columns.h"
#include "rows/watch_row.h"

namespace velmora::tests {
namespace {

struct ConsoleReports : testing::Test, Session {
    ConsoleReports() {
        for (const char* name : {"Win32_NTLogEvent", "Win32_PerfRawData_PerfOS_Memory",
                                 "Win32_LoggedOnUser", "Win32_Process", "Win32_ScheduledJob"}) {
            machine.wmi.classes[name];
        }
    }
    // Rows that differ in nothing but their paths.
    void watchAlike(std::initializer_list<const char*> paths) {
        addWatchColumns(form1.ListView1);
        for (const char* path : paths) {
            WatchRow row(form1.ListView1.Add(path));
            row.setFreeSpace("100 KB");
            row.setTotalSize("200 KB");
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

TEST_F(ConsoleReports, ADriveHasAttributes) {
    machine.rawVolumes.volumes["C:"].space = {8, 512, 1'000'000, 4'000'000};
    const std::string text =
        "Drive Type: Fixed\nSectors per Cluster: 8\nBytes per Sector: 512\n"
        "Free Clusters: 1000000\nTotal Clusters: 4000000\nTotal Free Space: 3,906\n"
        "Total Drive Space: 15,625\n";
    EXPECT_EQ(run("report drive C:"), text);
    EXPECT_EQ(run("report drive c"), text);
    EXPECT_EQ(run("report drive C:\\"), text);
    run("json on");
    EXPECT_EQ(run("report drive C:"),
              R"({"ok":[{"Drive Type":"Fixed","Sectors per Cluster":"8","Bytes per Sector":"512",)"
              R"("Free Clusters":"1000000","Total Clusters":"4000000","Total Free Space":"3,906",)"
              R"("Total Drive Space":"15,625"}]})"
              "\n");
}

TEST_F(ConsoleReports, ABootSectorIsShownWithItsDump) {
    std::string sector(512, '\0');
    sector.replace(3, 8, "NTFS    ");
    machine.rawVolumes.volumes["C:"] = {.bytes = sector, .fileSystem = "NTFS"};
    const std::string text = run("report bootsector C:");
    EXPECT_TRUE(text.starts_with("File system: NTFS\nOEM name: NTFS    \nBytes per Sector: 0\n"));
    EXPECT_NE(text.find("\n00 00 00 4E 54 46 53 20     NTFS \n"), std::string::npos) << text;
    EXPECT_EQ(machine.rawVolumes.openHandles(), 0);
    run("json on");
    const std::string fields = run("report bootsector C:");
    EXPECT_NE(fields.find(R"("Media descriptor":"00")"), std::string::npos) << fields;
    EXPECT_NE(fields.find(R"("First 512 Bytes of partition":"00 00 00 4E)"), std::string::npos);
}

TEST_F(ConsoleReports, TheInformationBlockOfFat32FollowsAtItsPlace) {
    std::string disk(2048, '\0');
    disk[48] = 2;  // not as a number of a sector: the reader's position is in bytes
    disk[2 + 488] = 17;
    disk[2 + 492] = 18;
    machine.rawVolumes.volumes["C:"] = {.bytes = disk, .fileSystem = "FAT32"};
    const std::string block = "Last known free cluster: 17\nStarting free cluster: 18\n";
    EXPECT_NE(run("report bootsector C:").find(block), std::string::npos);
    machine.rawVolumes.volumes["C:"].fileSystem = "FAT";
    EXPECT_EQ(run("report bootsector C:").find("free cluster"), std::string::npos);
}

TEST_F(ConsoleReports, ADriveThatCannotBeReadIsAnErrorWithItsReason) {
    machine.rawVolumes.reason = "no right to read it";
    EXPECT_EQ(run("report bootsector C:"),
              "error: the drive can't be opened: no right to read it\n");
    machine.rawVolumes.volumes["C:"] = {.bytes = "short"};
    machine.rawVolumes.reason = "";
    EXPECT_EQ(run("report bootsector C:"), "error: the drive can't be read\n");
    EXPECT_EQ(machine.rawVolumes.openHandles(), 0);
    machine.rawVolumes.volumes["C:"].answers = false;
    EXPECT_EQ(run("report drive C:"), "error: the drive doesn't answer: C:\n");
    for (const char* line : {"report drive", "report drive CC:", "report drive C:\\data",
                             "report bootsector 1:", "report drive C: D:", "report chart C:"}) {
        EXPECT_TRUE(refuses(line)) << line;
    }
}

TEST_F(ConsoleReports, TheChartIsATable) {
    watchAlike({"C:\\", "D:\\data"});
    EXPECT_EQ(run("report chart"),
              "C:\\      Free Space 100 KB  Total Space 200 KB\n"
              "D:\\data  Free Space 100 KB  Total Space 200 KB\n"
              "Total Free Space Distribution (KB): 200\n");
}

TEST_F(ConsoleReports, TheLongestPathMayBeTheFirst) {
    watchAlike({"D:\\data", "C:\\"});
    EXPECT_EQ(run("report chart"),
              "D:\\data  Free Space 100 KB  Total Space 200 KB\n"
              "C:\\      Free Space 100 KB  Total Space 200 KB\n"
              "Total Free Space Distribution (KB): 200\n");
}

TEST_F(ConsoleReports, TheChartLeavesOutOfItsSumWhatIsNotAvailable) {
    addWatchColumns(form1.ListView1);
    for (const char* free : {"N/A, drive not ready", "2,500 KB"}) {
        WatchRow row(form1.ListView1.Add("C:\\"));
        row.setFreeSpace(free);
        row.setTotalSize("4,000 KB");
    }
    EXPECT_EQ(run("report chart"),
              "C:\\  Free Space N/A, drive not ready  Total Space 4,000 KB\n"
              "C:\\  Free Space 2,500 KB  Total Space 4,000 KB\n"
              "Total Free Space Distribution (MB): 2\n");
    run("json on");
    EXPECT_EQ(run("report chart"),
              R"({"ok":[{"RowLabel":"C:\\","Free Space":"N/A, drive not ready",)"
              R"("Total Space":"4,000 KB"},)"
              R"({"RowLabel":"C:\\","Free Space":"2,500 KB","Total Space":"4,000 KB"}]})"
              "\n");
    run("json off");
    WatchRow(form1.ListView1.ListItems(1)).setFreeSpace("unknown");
    EXPECT_EQ(run("report chart"),
              "C:\\  Free Space unknown  Total Space 4,000 KB\n"
              "C:\\  Free Space 2,500 KB  Total Space 4,000 KB\n");
}

TEST_F(ConsoleReports, TheWatchIsToldAsAWholeAndByRow) {
    EXPECT_EQ(run("report watch"), "Nothing is watched yet: tick a drive\n");
    addWatchColumns(form1.ListView1);
    form1.txtSpace.setText("100");
    form1.Timer1.setEnabled(true);
    for (const auto& [path, free] : {std::pair{"C:\\", "500 KB"}, {"D:\\data", "N/A"}}) {
        WatchRow row(form1.ListView1.Add(path));
        row.setFreeSpace(free);
        row.setTotalSize("4,000 KB");
        row.setLastChecked("03/14 15:09:26");
        row.item().setChecked(true);
    }
    EXPECT_EQ(run("report watch"),
              "1 of 2 not available\nC:\\      ok, 87.5 % used\nD:\\data  not available\n");
    run("json on");
    EXPECT_EQ(run("report watch"), R"({"ok":[{"Path":"C:\\","State":"ok","Used":"87.5"},)"
                                   R"({"Path":"D:\\data","State":"not available","Used":""}]})"
                                   "\n");
    run("json off");
    EXPECT_TRUE(refuses("report watch C:"));
}

TEST_F(ConsoleReports, ChartsAndPicturesHaveRows) {
    Chart& chart = forms.dlgDriveInfo.MSChart1[0];
    chart.setRowCount(1);
    chart.setColumnCount(1);
    chart.setRow(1);
    chart.setColumn(1);
    chart.setRowLabel("C:\\");
    chart.setColumnLabel("Free Space");
    chart.setData(5);
    EXPECT_EQ(run("rows dlgDriveInfo.MSChart1(0)"),
              "RowLabel C:\\ | Free Space 5 | Data 5\n1 row(s)\n");
    EXPECT_EQ(run("get dlgDriveInfo.MSChart1(0).ColumnLabel(1)"), "Free Space\n");
    EXPECT_EQ(run("rows frmIndDri.picPie"), "0 row(s)\n");
    run("json on");
    EXPECT_EQ(run("rows dlgDriveInfo.MSChart1(0)"),
              R"({"ok":[{"RowLabel":"C:\\","Free Space":"5","Data":"5"}]})"
              "\n");
}

// In JSON the second of two equal names would take the place of the first.
TEST_F(ConsoleReports, NoValueOfAChartIsLostToAnEqualLabel) {
    Chart& chart = forms.dlgDriveInfo.MSChart1[1];
    chart.setRowCount(1);
    chart.setColumnCount(2);
    chart.setRow(1);
    chart.setRowLabel("Sum");
    for (int column = 1; column <= 2; ++column) {
        chart.setColumn(column);
        chart.setColumnLabel("C:\\");
        chart.setData(column * 10);
    }
    run("json on");
    EXPECT_TRUE(run("rows dlgDriveInfo.MSChart1(1)")
                    .ends_with(R"("Data":"10 20"}]})"
                               "\n"));
}

TEST_F(ConsoleReports, AGaugeIsReadByName) {
    EXPECT_EQ(run("set frmIndDri.VMeter2.Value 20"), "ok\n");
    EXPECT_EQ(run("get frmIndDri.VMeter2"), "20\n");
    EXPECT_EQ(run("get frmIndDri.VMeter2.Value"), "20\n");
    EXPECT_EQ(run("get frmIndDri.VMeter2.Level"), "30\n");
    EXPECT_EQ(run("get frmIndDri.VMeter2.Label1"), "60%\n");
    EXPECT_TRUE(refuses("set frmIndDri.VMeter2.Level 3"));
    EXPECT_TRUE(refuses("set frmIndDri.VMeter2.Value 51"));
}

}  // namespace
}  // namespace velmora::tests
