// The drive information dialog: its views, charts and figures.
#include "inspect/drive_info.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "fake/fake_host.h"
#include "fake/fake_machine.h"
#include "rows/watch_columns.h"
#include "rows/watch_row.h"

namespace velmora::tests {
namespace {

using Names = std::vector<std::string>;

struct DriveInfoTest : testing::Test {
    fake::FakeMachine machine;
    fake::FakeHost host;
    Forms forms;
    DlgDriveInfo& form = forms.dlgDriveInfo;
    ListView& list = forms.form1.ListView1;
    DriveInfo info{forms, machine.platform(), host};

    DriveInfoTest() {
        addWatchColumns(list);
        for (const char* drive : {"C:", "D:"}) {
            machine.drives[drive] = {1, 2};
            machine.rawVolumes.volumes[drive] = {};
        }
    }
    void addRow(const std::string& path, const std::string& free, const std::string& total) {
        WatchRow row(list.Add(path));
        row.setFreeSpace(free);
        row.setTotalSize(total);
    }
    std::string caption() { return form.MSChart1[1].rowLabel(1); }
    Names visible() {
        Names names;
        const auto note = [&names](const Control& control, const char* name) {
            if (control.Visible()) names.emplace_back(name);
        };
        note(form.MSChart1[0], "bars");
        note(form.MSChart1[1], "pie");
        note(form.frmPart, "partition");
        note(form.frmAD, "attributes");
        return names;
    }
};

TEST_F(DriveInfoTest, OpensWithTheBarsOfTheWatchList) {
    addRow("C:\\", "100 KB", "1,000 KB");
    addRow("\\\\host\\share", "N/A not ready", "500 KB");
    addRow("D:\\data", "2,500 KB", "5,000 KB");
    form.Show();
    EXPECT_EQ(form.Combo1.ListIndex(), 0);
    EXPECT_EQ(visible(), Names{"bars"});
    const Chart& chart = form.MSChart1[0];
    ASSERT_EQ(chart.RowCount(), 3);
    ASSERT_EQ(chart.ColumnCount(), 2);
    EXPECT_EQ(chart.chartType(), 1);
    EXPECT_TRUE(chart.ShowLegend());
    EXPECT_EQ(chart.LegendLocation(), 6);
    EXPECT_EQ(chart.AxisTitle(1), "Free Space MB");
    EXPECT_EQ(chart.AxisTitle(0), "Drive/Path");
    EXPECT_EQ(chart.columnLabel(1), "Free Space");
    EXPECT_EQ(chart.columnLabel(2), "Total Space");
    const struct {
        const char* label;
        double free, total;
    } expected[] = {{"C:\\", 100, 1000}, {"\\\\host\\share", 0, 0}, {"D:\\data", 2500, 5000}};
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(chart.rowLabel(i), expected[i - 1].label);
        EXPECT_EQ(chart.data(i, 1), expected[i - 1].free);
        EXPECT_EQ(chart.data(i, 2), expected[i - 1].total);
    }
    EXPECT_EQ(chart.bounds().Width, form.Width() - 2500);
    EXPECT_EQ(chart.bounds().Height, form.Height() - 1800);
    EXPECT_EQ(form.lblDesc.Caption(),
              "Illustrates each system aware drive/paths' free and total memory size.");
}

TEST_F(DriveInfoTest, ThePieHasAColumnARowAndTheSumInItsCaption) {
    addRow("C:\\", "600 KB", "1,000 KB");
    addRow("E:\\", "n/a", "");
    addRow("D:\\", "400 KB", "1,000 KB");
    form.Show();
    form.Combo1.userChoose(1);
    EXPECT_EQ(visible(), Names{"pie"});
    const Chart& chart = form.MSChart1[1];
    EXPECT_EQ(chart.RowCount(), 1);
    ASSERT_EQ(chart.ColumnCount(), 3);
    EXPECT_EQ(chart.chartType(), 14);
    EXPECT_TRUE(chart.ShowLegend());
    EXPECT_EQ(chart.columnLabel(1), "C:\\");
    EXPECT_EQ(chart.data(1, 1), 600);
    EXPECT_EQ(chart.columnLabel(2), "E:\\");
    EXPECT_EQ(chart.data(1, 2), 0);
    EXPECT_EQ(chart.data(1, 3), 400);
    EXPECT_EQ(caption(), "Total Free Space Distribution (KB): 1000");
    EXPECT_EQ(chart.bounds().Width, form.Width() - 2500);
    EXPECT_EQ(form.lblDesc.Caption(),
              "Illustrates the total free drive/paths' memory distribution.");
}

TEST_F(DriveInfoTest, TheCaptionChangesToMBAbove1000) {
    const std::string begin = "Total Free Space Distribution ";
    EXPECT_EQ(distributionCaption(0), begin + "(KB): 0");
    EXPECT_EQ(distributionCaption(1000), begin + "(KB): 1000");
    EXPECT_EQ(distributionCaption(1001), begin + "(MB): 1");
    EXPECT_EQ(distributionCaption(1501), begin + "(MB): 2");
    // Halves go to the even number; GB are never reached.
    EXPECT_EQ(distributionCaption(2500), begin + "(MB): 2");
    EXPECT_EQ(distributionCaption(1'000'000), begin + "(MB): 1000");
    EXPECT_EQ(distributionCaption(2147483647), begin + "(MB): 2147484");
}

TEST_F(DriveInfoTest, MoreThan2TBOfFreeSpaceStopTheSum) {
    addRow("C:\\", "2,000,000,000 KB", "3,000,000,000 KB");
    addRow("D:\\", "2,000,000,000 KB", "3,000,000,000 KB");
    form.Show();
    form.Combo1.userChoose(1);
    EXPECT_EQ(caption(), "Total Free Space Distribution (MB): 2147484");
    EXPECT_EQ(form.MSChart1[1].data(1, 2), 2e9);
}

TEST_F(DriveInfoTest, TheSumIsOfWholeNumbers) {
    const auto captionFor = [this](const char* first, const char* second) {
        list.Clear();
        addRow("C:\\", first, "10 KB");
        addRow("D:\\", second, "10 KB");
        form.Show();
        form.Combo1.userChoose(1);
        return caption();
    };
    const std::string begin = "Total Free Space Distribution (KB): ";
    EXPECT_EQ(captionFor("1.7 KB", "1.7 KB"), begin + "4");
    EXPECT_EQ(captionFor("1.4 KB", "1.4 KB"), begin + "2");
    EXPECT_EQ(captionFor("2.5 KB", "3.5 KB"), begin + "6");  // halves go to the even number
    EXPECT_EQ(form.MSChart1[1].data(1, 2), 3.5);
}

TEST_F(DriveInfoTest, AnEmptyWatchListHasNoRowsAndNoColumns) {
    form.Show();
    EXPECT_EQ(form.MSChart1[0].RowCount(), 0);
    form.Combo1.userChoose(1);
    EXPECT_EQ(form.MSChart1[1].ColumnCount(), 0);
    EXPECT_EQ(caption(), "Total Free Space Distribution (KB): 0");
}

TEST_F(DriveInfoTest, ARowThatIsNoNumberIsARunTimeError) {
    addRow("C:\\", "100 KB", "1,000 KB");
    form.Show();
    addRow("D:\\", "unknown", "1,000 KB");
    EXPECT_EQ(errorOf([this] { form.Combo1.userChoose(0); }), error::typeMismatch);
    EXPECT_EQ(errorOf([this] { form.Combo1.userChoose(1); }), error::typeMismatch);
}

TEST_F(DriveInfoTest, ATotalThatIsNoNumberIsOneForTheBars) {
    form.Show();
    addRow("C:\\", "100 KB", "unknown");
    EXPECT_EQ(errorOf([this] { form.Combo1.userChoose(0); }), error::typeMismatch);
    EXPECT_EQ(errorOf([this] { form.Combo1.userChoose(1); }), 0);
    EXPECT_EQ(caption(), "Total Free Space Distribution (KB): 100");
}

TEST_F(DriveInfoTest, ThePanelsTakeTheirPlaceFromTheDialog) {
    form.Show();
    form.setSize(9000, 7000);
    form.Combo1.userChoose(2);
    EXPECT_EQ(visible(), Names{"partition"});
    EXPECT_EQ(form.lblDesc.Caption(),
              "The control provides a system aware drive/paths attributes.");
    const Bounds chart = form.MSChart1[0].bounds();
    const Bounds expected{chart.Left + 550, chart.Top, 6200, 5000};
    EXPECT_EQ(form.frmPart.bounds(), expected);
    EXPECT_TRUE(machine.rawVolumes.calls.empty());  // nothing is read before a choice
    form.Combo1.userChoose(3);
    EXPECT_EQ(visible(), Names{"attributes"});
    EXPECT_EQ(form.lblDesc.Caption(),
              "The control provides a system aware drive/paths attributes.");
    EXPECT_EQ(form.frmAD.bounds(), expected);
}

TEST_F(DriveInfoTest, SelectingAViewAgainComputesIt) {
    addRow("C:\\", "100 KB", "1,000 KB");
    form.Show();
    addRow("D:\\", "300 KB", "1,000 KB");
    EXPECT_EQ(form.MSChart1[0].RowCount(), 1);
    form.Combo1.userChoose(0);
    EXPECT_EQ(form.MSChart1[0].RowCount(), 2);
}

TEST_F(DriveInfoTest, EachSelectionOfTheAttributesAppendsTheDrives) {
    const auto entries = [this] {
        Names names;
        for (int i = 0; i < form.cboDrives.ListCount(); ++i)
            names.push_back(form.cboDrives.List(i));
        return names;
    };
    form.Show();
    EXPECT_TRUE(entries().empty());
    form.Combo1.userChoose(3);
    EXPECT_EQ(entries(), (Names{"C:", "D:"}));
    EXPECT_EQ(form.cboDrives.ListIndex(), 1);
    form.cboDrives.userChoose(0);
    form.Combo1.userChoose(3);
    EXPECT_EQ(entries(), (Names{"C:", "D:", "C:", "D:"}));
    EXPECT_EQ(form.cboDrives.ListIndex(), 1);
    EXPECT_EQ(machine.rawVolumes.calls,
              (Names{"GetDriveTypeA D:", "GetDiskFreeSpaceA D:", "GetDriveTypeA C:",
                     "GetDiskFreeSpaceA C:", "GetDriveTypeA D:", "GetDiskFreeSpaceA D:"}));
    EXPECT_EQ(machine.log.countOf("GetLogicalDriveStringsA 105"), 3);  // the first for drvDrive
}

TEST_F(DriveInfoTest, ThePanelsStandBesideTheFirstChart) {
    form.Show();
    Bounds chart = form.MSChart1[0].bounds();
    chart.Left += 100;
    chart.Top += 70;
    form.MSChart1[0].setBounds(chart);
    form.Combo1.userChoose(3);
    EXPECT_EQ(form.frmAD.bounds().Left, chart.Left + 550);
    EXPECT_EQ(form.frmAD.bounds().Top, chart.Top);
}

TEST_F(DriveInfoTest, DrivesAreListedInUpperCaseUpToTheLastLetter) {
    for (const int count : {2, 24, 25, 26}) {
        machine.drives.clear();
        Names expected;
        for (int i = 0; i < count; ++i) {
            machine.drives[{static_cast<char>('a' + i), ':'}] = {1, 2};
            expected.push_back({static_cast<char>('A' + i), ':'});
        }
        form.Show();
        form.Combo1.userChoose(3);
        Names listed;
        for (int i = 0; i < form.cboDrives.ListCount(); ++i) {
            listed.push_back(form.cboDrives.List(i));
        }
        EXPECT_EQ(listed, expected);
        form.cmdOK.userClick();
    }
}

TEST_F(DriveInfoTest, AMachineWithOneDriveHasNoSecondEntry) {
    machine.drives.erase("D:");
    form.Show();
    EXPECT_EQ(errorOf([this] { form.Combo1.userChoose(3); }), error::invalidPropertyValue);
    EXPECT_EQ(form.cboDrives.ListCount(), 1);
}

TEST_F(DriveInfoTest, TheAttributesOfADrive) {
    machine.rawVolumes.volumes["D:"].space = {8, 512, 1'000'000, 4'000'000};
    form.Show();
    form.Combo1.userChoose(3);
    const Names expected{"Fixed", "8", "512", "1000000", "4000000",
                         "3,906",  // 8 x 512 x 1,000,000 bytes are 3906.25 MB
                         "15,625"};
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(form.lblInfo[i].Caption(), expected[i]) << i;
    }
}

TEST_F(DriveInfoTest, TheKindOfADriveIsNamedByItsNumber) {
    form.Show();
    form.Combo1.userChoose(3);
    const Names names{"Unknown", "Not Found", "Removable", "Fixed", "Remote", "CD-ROM", "Ram Disk"};
    for (std::uint32_t type = 0; type < names.size(); ++type) {
        machine.rawVolumes.volumes["D:"].type = type;
        form.cboDrives.userChoose(1);
        EXPECT_EQ(form.lblInfo[0].Caption(), names[type]);
    }
    machine.rawVolumes.volumes["D:"].type = 7;
    form.cboDrives.userChoose(1);
    EXPECT_EQ(form.lblInfo[0].Caption(), "Ram Disk");
}

TEST_F(DriveInfoTest, ADriveThatDoesNotAnswerLeavesTheLastNumbers) {
    machine.rawVolumes.volumes["D:"].space = {1, 512, 2048, 4096};
    machine.rawVolumes.volumes["C:"].answers = false;
    machine.rawVolumes.volumes["C:"].type = 5;
    form.Show();
    form.Combo1.userChoose(3);
    form.cboDrives.userChoose(0);
    EXPECT_EQ(form.lblInfo[0].Caption(), "CD-ROM");
    EXPECT_EQ(form.lblInfo[3].Caption(), "2048");
    EXPECT_EQ(form.lblInfo[5].Caption(), "1");
    EXPECT_EQ(form.lblInfo[6].Caption(), "2");
}

TEST_F(DriveInfoTest, BeforeTheFirstAnswerThereAreNoNumbers) {
    machine.rawVolumes.volumes["D:"].answers = false;
    form.Show();
    form.Combo1.userChoose(3);
    EXPECT_EQ(form.lblInfo[0].Caption(), "Fixed");
    for (std::size_t i = 1; i < form.lblInfo.size(); ++i) {
        EXPECT_EQ(form.lblInfo[i].Caption(), "") << i;
    }
}

TEST_F(DriveInfoTest, TheDialogClosesTheVolumeWhenItUnloads) {
    machine.rawVolumes.volumes["C:"].bytes = std::string(512, 'x');
    const auto readAndClose = [this](const auto& close) {
        form.Show();
        form.cmdEnter.userClick();
        EXPECT_EQ(machine.rawVolumes.openHandles(), 1);
        close();
        EXPECT_EQ(machine.rawVolumes.openHandles(), 0);
        EXPECT_FALSE(form.Visible());
    };
    readAndClose([this] { form.cmdOK.userClick(); });
    readAndClose([this] { form.userClose(); });
}

TEST_F(DriveInfoTest, OkHidesTheDialogBeforeItUnloads) {
    machine.rawVolumes.volumes["C:"].bytes = std::string(512, 'x');
    form.Show();
    form.cmdEnter.userClick();
    int openWhenHidden = -1;
    ScopedConnection hidden = form.Changed.connect([&] {
        if (!form.Visible() && openWhenHidden < 0)
            openWhenHidden = machine.rawVolumes.openHandles();
    });
    form.cmdOK.userClick();
    EXPECT_EQ(openWhenHidden, 1);
}

TEST_F(DriveInfoTest, AFailingOpenUnloadsTheDialog) {
    machine.rawVolumes.volumes["C:"].bytes = std::string(512, 'x');
    machine.rawVolumes.volumes["D:"].opens = false;
    form.Show();
    form.cmdEnter.userClick();
    form.drvDrive.userChoose(1);
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(machine.rawVolumes.openHandles(), 0);
}

TEST_F(DriveInfoTest, ALoadedDialogIsNew) {
    machine.rawVolumes.volumes["C:"] = {.bytes = std::string(512, 'x'), .fileSystem = "NTFS"};
    form.Show();
    form.Combo1.userChoose(3);
    form.cmdEnter.userClick();
    EXPECT_GT(form.lvInfo.Count(), 0);
    form.cmdOK.userClick();
    form.Show();
    EXPECT_EQ(form.Combo1.ListIndex(), 0);
    EXPECT_EQ(visible(), Names{"bars"});
    EXPECT_EQ(form.cboDrives.ListCount(), 0);
    EXPECT_EQ(form.lblInfo[0].Caption(), "");
    EXPECT_EQ(form.txtBytes.Text(), "");
    EXPECT_EQ(form.txtChar.Text(), "");
    EXPECT_EQ(form.lvInfo.Count(), 0);
    EXPECT_EQ(form.drvDrive.ListCount(), 2);
    form.cmdOK.userClick();
    form.Show();
    EXPECT_EQ(visible(), Names{"bars"}) << "also with the same view";
}

TEST_F(DriveInfoTest, TheTextsOfTheDialog) {
    EXPECT_EQ(form.Caption(), "Advance Data Display - Velmora");
    EXPECT_EQ(form.Label6.Caption(), "Advance Data Display");
    EXPECT_EQ(form.Label5.Caption(),
              "The information visualized here provides a different perspective into the current "
              "free space and drive settings.  The information can help the user in make better "
              "informed decisions into managing their free space.");
    EXPECT_EQ(form.lblHelp.Caption(), "Press F1 for help.");
    EXPECT_EQ(form.cmdEnter.Caption(), "&Enter");
    EXPECT_EQ(form.lblDrive.Caption(), "Partition:");
    EXPECT_EQ(form.Label3.Caption(), "First 512 Bytes of partition:");
    EXPECT_EQ(form.frmPart.Caption(), "Drive Partition Info.");
    EXPECT_EQ(form.fraPartInfo.Caption(), "Partition Info, obtained directly from boot record");
    EXPECT_EQ(form.lvInfo.ColumnHeaders(1).Text, "");
    EXPECT_EQ(form.Combo1.List(0), "Free Space By Drive(s)");
    EXPECT_EQ(form.lvInfo.ColumnHeaders(2).Text, "");
    EXPECT_EQ(form.Combo1.ListCount(), 4);
    EXPECT_EQ(form.Combo1.List(1), "Total Free Space Distribution");
    EXPECT_EQ(form.Combo1.List(2), "Drive Partition Info.");
    EXPECT_EQ(form.Combo1.List(3), "Drive Attribute Info.");
    const char* const captions[] = {
        "Available Drives:", "Drive Type:",     "Sectors per Cluster:", "Bytes per Sector:",
        "Free Clusters:",    "Total Clusters:", "Total Free Space:",    "Total Drive Space:"};
    for (std::size_t i = 0; i < form.lblCaption.size(); ++i) {
        EXPECT_EQ(form.lblCaption[i].Caption(), captions[i]);
    }
    EXPECT_EQ(form.Frame1.Caption(), "Free Space Data");
    EXPECT_EQ(form.Frame2.Caption(), "Top 10");
    EXPECT_EQ(form.lblTime.Caption(), "Elapsed Time:");
    EXPECT_EQ(form.Label2.Caption(), "Rate of Change:");
    EXPECT_EQ(form.Label1.Caption(), "Free Space on First Start:");
    EXPECT_EQ(form.lblFreeSpNow.Caption(), "Free Space Now:");
    for (const Label* value :
         {&form.lblNTime, &form.lblNRate, &form.lblNFreeStart, &form.lblNFreeSpaceNow}) {
        EXPECT_EQ(value->Caption(), ":") << value->Name();
    }
    EXPECT_EQ(form.lblSpaceChangeOpen.Caption(), "Label1");
    EXPECT_EQ(form.lblSpaceLastUpdate.Caption(), "Label1");
    EXPECT_FALSE(form.Frame2.Visible());
}

TEST_F(DriveInfoTest, RatesAreTakenFromTheSecondsOfTheMinute) {
    addRow("C:\\", "5,000 KB", "9,000 KB");
    addRow("D:\\", "n/a", "9,000 KB");
    addRow("E:\\", "1,000 KB", "9,000 KB");
    forms.globals.lngStartFreeKB = 1000;
    forms.globals.lngRefreshedKB = 7000;
    machine.now = {2026, 3, 14, 15, 10, 30};
    forms.globals.dtAppStart = {2026, 3, 14, 14, 10, 20};   // an hour and 10 s ago
    forms.globals.dtRefreshed = {2026, 3, 14, 15, 10, 26};  // 4 s ago
    info.prcSpaceChangeRates();
    EXPECT_EQ(form.lbl0.Caption(), "Change Rate Since Open (KB/sec.) :500");
    EXPECT_EQ(form.lbl1.Caption(), "Change Rate Since Last Update (KB/sec.) :-250");
    EXPECT_EQ(form.lblSpaceChangeOpen.Caption(), "5000");
    EXPECT_EQ(form.lblSpaceLastUpdate.Caption(), "-1000");
}

TEST_F(DriveInfoTest, RatesAreWholeNumbers) {
    addRow("C:\\", "110 KB", "9,000 KB");
    forms.globals.lngStartFreeKB = 100;  // 10 KB in 4 s
    forms.globals.lngRefreshedKB = 96;   // 14 KB in 4 s
    machine.now = {2026, 3, 14, 15, 10, 30};
    forms.globals.dtAppStart = {2026, 3, 14, 15, 10, 26};
    forms.globals.dtRefreshed = {2026, 3, 14, 15, 10, 26};
    info.prcSpaceChangeRates();
    EXPECT_EQ(form.lbl0.Caption(), "Change Rate Since Open (KB/sec.) :2");
    EXPECT_EQ(form.lbl1.Caption(), "Change Rate Since Last Update (KB/sec.) :4");
}

TEST_F(DriveInfoTest, AWholeMinuteIsADivisionByZero) {
    machine.now = {2026, 3, 14, 15, 10, 30};
    forms.globals.dtAppStart = {2026, 3, 14, 15, 8, 30};
    forms.globals.dtRefreshed = {2026, 3, 14, 15, 10, 29};
    EXPECT_EQ(errorOf([this] { info.prcSpaceChangeRates(); }), error::divisionByZero);
}

}  // namespace
}  // namespace velmora::tests
