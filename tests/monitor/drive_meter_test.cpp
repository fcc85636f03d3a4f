// The gauges of the individual drive view.
#include "monitor/drive_meter.h"

#include "monitor/check_rig.h"
#include "rows/watch_columns.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

struct MeterRig : Rig {
    DriveMeter meter{forms.form1, forms.frmIndDri, machine.platform().fso,
                     machine.platform().regional};
    FrmIndDri& view = forms.frmIndDri;

    MeterRig() {
        addWatchColumns(list);
        drive("C:", 0, 1);
        form1.txtSpace.setText("200");
    }
    /// A row of that free and total space, as the rows show them.
    ListItem& measured(const std::string& freeKB, const std::string& totalKB,
                       const std::string& path = "C:\\") {
        WatchRow added(row(path));
        added.setFreeSpace(freeKB);
        added.setTotalSize(totalKB);
        return added.item();
    }
    void show(const std::string& freeKB, const std::string& totalKB) {
        meter.prcSrvMeter(measured(freeKB, totalKB));
    }
    /// Gauge, trigger needle, free needle.
    std::vector<int> values() {
        return {view.VScroll1.Value(), view.VMeter1.Value(), view.VMeter2.Value()};
    }
    /// "property=value" of each line of the view's list.
    Texts lines() {
        Texts all;
        for (int i = 1; i <= view.ListView1.Count(); ++i) {
            const ListItem& line = view.ListView1.ListItems(i);
            all.push_back(line.Text() + "=" + line.SubItems(1));
        }
        return all;
    }
};

using Values = std::vector<int>;

TEST(DriveMeter, TheGaugeHasARangeTo100AndTheNeedlesTo50) {
    MeterRig rig;
    EXPECT_EQ(rig.view.VScroll1.Min(), 0);
    EXPECT_EQ(rig.view.VScroll1.Max(), 100);
    for (const Meter2* needle : {&rig.view.VMeter1, &rig.view.VMeter2}) {
        EXPECT_EQ(needle->Min(), 0);
        EXPECT_EQ(needle->Max(), 50);
    }
    EXPECT_EQ(rig.view.ListView1.ColumnHeaders(1).Text, "Properties");
    EXPECT_EQ(rig.view.ListView1.ColumnHeaders(2).Text, "Value");
    EXPECT_EQ(rig.view.ListView1.ColumnCount(), 2);
}

TEST(DriveMeter, ShowsTriggerAndFreeSpaceAgainstTheTotal) {
    MeterRig rig;
    rig.show("500 KB", "1,000 KB");  // 100 - 20, 50 - 10, 50 - 25
    EXPECT_EQ(rig.values(), (Values{80, 40, 25}));
}

TEST(DriveMeter, WholeNumbersOfHalvesGoToTheEvenOne) {
    MeterRig rig;
    rig.form1.txtSpace.setText("5");
    rig.show("10 KB", "1,000 KB");  // 99.5, 49.75, 49.5
    EXPECT_EQ(rig.values(), (Values{100, 50, 50}));
    rig.form1.txtSpace.setText("15");
    rig.show("30 KB", "1,000 KB");  // 98.5, 49.25, 48.5
    EXPECT_EQ(rig.values(), (Values{98, 49, 48}));
}

TEST(DriveMeter, AFullAndAnEmptyDriveAreAtTheEndsOfTheRange) {
    MeterRig rig;
    rig.form1.txtSpace.setText("1000");
    rig.show("0 KB", "1000 KB");
    EXPECT_EQ(rig.values(), (Values{0, 0, 50}));
    rig.form1.txtSpace.setText("0");
    rig.show("1000 KB", "1000 KB");
    EXPECT_EQ(rig.values(), (Values{100, 50, 0}));
}

TEST(DriveMeter, AValueLargerThanTheDriveIsAtTheEndOfTheRange) {
    MeterRig rig;
    for (const char* trigger : {"1001", "50000", "2147483647", "1E300"}) {
        rig.form1.txtSpace.setText(trigger);
        rig.show("2000 KB", "1000 KB");
        EXPECT_EQ(rig.values(), (Values{0, 0, 0})) << trigger;
    }
    rig.form1.txtSpace.setText("-1E300");
    rig.show("-5 KB", "1000 KB");
    EXPECT_EQ(rig.values(), (Values{100, 50, 50}));
}

TEST(DriveMeter, IndividualTriggersAreTheRowsOwn) {
    MeterRig rig;
    rig.form1.chkDrive.setValue(1);
    ListItem& row = rig.measured("500 KB", "1,000 KB");
    WatchRow(row).setTrigger("600");
    rig.meter.prcSrvMeter(row);
    EXPECT_EQ(rig.values(), (Values{40, 20, 25}));
}

TEST(DriveMeter, ARowsTriggerIsLeftOutWhileTriggersAreNotIndividual) {
    MeterRig rig;
    ListItem& row = rig.measured("500 KB", "1,000 KB");
    WatchRow(row).setTrigger("600");
    rig.meter.prcSrvMeter(row);
    EXPECT_EQ(rig.values(), (Values{80, 40, 25}));
}

TEST(DriveMeter, APercentageIsTakenOfTheTotal) {
    MeterRig rig;
    rig.form1.txtSpace.setText("30");
    rig.form1.OpDriv[1].choose();
    rig.show("500 KB", "1,000,000,000 KB");
    EXPECT_EQ(rig.values(), (Values{70, 35, 50}));
}

TEST(DriveMeter, ARowsOwnPercentageIsTakenOfTheTotalToo) {
    MeterRig rig;
    rig.form1.OpDriv[1].choose();
    rig.form1.chkDrive.setValue(1);
    ListItem& row = rig.measured("500 KB", "2,000 KB");
    WatchRow(row).setTrigger("40");
    rig.meter.prcSrvMeter(row);
    EXPECT_EQ(rig.values(), (Values{60, 30, 38}));  // 37.5
}

TEST(DriveMeter, ATriggerThatIsNotSetCountsAsZero) {
    MeterRig rig;
    rig.form1.chkDrive.setValue(1);
    for (const char* trigger : {"", "soon"}) {
        ListItem& row = rig.measured("500 KB", "1,000 KB");
        WatchRow(row).setTrigger(trigger);
        rig.meter.prcSrvMeter(row);
        EXPECT_EQ(rig.values(), (Values{100, 50, 25})) << trigger;
    }
}

TEST(DriveMeter, ListsSizesAndCountsOfTheFolder) {
    MeterRig rig;
    rig.machine.folders = {"c:\\data", "c:\\data\\a", "c:\\data\\a\\deep", "c:\\data\\b"};
    rig.machine.files = {{"C:\\data\\1", ""},
                         {"C:\\Data\\2", ""},
                         {"C:\\data\\3", ""},
                         {"C:\\data\\a\\4", ""},
                         {"C:\\5", ""}};
    rig.meter.prcSrvMeter(rig.measured("500 KB", "1,000 KB", "C:\\data"));
    EXPECT_EQ(rig.lines(), (Texts{"Size=1,000 KB", "Free Space=500 KB", "Folders=2", "Files=3"}));
}

TEST(DriveMeter, ListsTheFiguresAgainEachTime) {
    MeterRig rig;
    rig.machine.folders = {};
    rig.machine.files = {};
    rig.show("500 KB", "1,000 KB");
    rig.machine.files = {{"C:\\1", ""}};
    rig.show("400 KB", "1,000 KB");
    EXPECT_EQ(rig.lines(), (Texts{"Size=1,000 KB", "Free Space=400 KB", "Folders=0", "Files=1"}));
}

TEST(DriveMeter, AFolderThatIsGoneHasNoCounts) {
    MeterRig rig;
    rig.meter.prcSrvMeter(rig.measured("500 KB", "1,000 KB", "C:\\gone"));
    EXPECT_EQ(rig.lines(),
              (Texts{"Size=1,000 KB", "Free Space=500 KB", "Folders=N/A", "Files=N/A"}));
    EXPECT_EQ(rig.values(), (Values{80, 40, 25}));
}

TEST(DriveMeter, AFolderThatCanNotBeReadHasNoCounts) {
    MeterRig rig;
    rig.machine.log.failCall(2, error::pathNotFound);  // after GetFolder
    rig.show("500 KB", "1,000 KB");
    EXPECT_EQ(rig.lines(),
              (Texts{"Size=1,000 KB", "Free Space=500 KB", "Folders=N/A", "Files=N/A"}));
}

TEST(DriveMeter, DrawsNothingForARowThatIsNotReady) {
    MeterRig rig;
    rig.show("500 KB", "1,000 KB");
    const Texts before = rig.lines();
    rig.machine.log.clear();
    rig.form1.txtSpace.setText("900");
    for (const char* text : {"N/A, drive not ready", "N/A, drive not ready.", "Drive Not Ready"}) {
        rig.show(text, "1,000 KB");
    }
    EXPECT_EQ(rig.values(), (Values{80, 40, 25}));
    EXPECT_EQ(rig.lines(), before);
    EXPECT_EQ(rig.machine.log.count(), 0);
}

// Its first check leaves a folder without a free space of its own.
TEST(DriveMeter, ShowsAFolderAfterItsFirstCheckWithoutItsFreeSpace) {
    MeterRig rig;
    rig.show("500 KB", "1,000 KB");
    rig.machine.folders = {"c:\\data", "c:\\data\\a"};
    rig.machine.files = {{"C:\\data\\1", ""}};
    for (const char* text : {"N/A check drive or media", "n/a", "", "soon"}) {
        rig.view.VMeter2.setValue(25);
        rig.meter.prcSrvMeter(rig.measured(text, "400 KB", "C:\\data"));
        EXPECT_EQ(rig.values(), (Values{50, 25, 50})) << text;
        EXPECT_EQ(rig.view.VMeter2.Label1(), "0%") << text;
        EXPECT_EQ(rig.lines(), (Texts{"Size=400 KB", std::string("Free Space=") + text, "Folders=1",
                                      "Files=1"}));
    }
}

TEST(DriveMeter, WithoutATotalSizeAllGaugesAreClear) {
    MeterRig rig;
    for (const char* total : {"0 KB", "", "unknown", "-5 KB"}) {
        rig.show("500 KB", "1,000 KB");
        rig.show("700 KB", total);
        EXPECT_EQ(rig.values(), (Values{100, 50, 50})) << total;
        EXPECT_EQ(rig.lines()[0], std::string("Size=") + total);
        EXPECT_EQ(rig.lines()[1], "Free Space=700 KB");
    }
}

struct VisibleMeter : MeterRig {
    VisibleMeter() {
        measured("100 KB", "1,000 KB", "C:\\");
        measured("500 KB", "1,000 KB", "D:\\Data");
        measured("900 KB", "1,000 KB", "D:\\data");
        view.Combo1.setText("d:\\DATA");
        view.Show();
    }
};

TEST(DriveMeterPreset, ShowsTheFirstRowOfTheViewsDriveInAnyLetterCase) {
    VisibleMeter rig;
    rig.meter.prcSrvMeterPreSet("C:\\");
    EXPECT_EQ(rig.values(), (Values{80, 40, 25}));
}

TEST(DriveMeterPreset, DoesNothingWhileTheViewIsHidden) {
    VisibleMeter rig;
    rig.view.Hide();
    rig.meter.prcSrvMeterPreSet("");
    EXPECT_EQ(rig.view.ListView1.Count(), 0);
}

TEST(DriveMeterPreset, DoesNothingForADriveThatIsNotListed) {
    VisibleMeter rig;
    for (const char* shown : {"D:\\", "D:\\Data ", ""}) {
        rig.view.Combo1.setText(shown);
        rig.meter.prcSrvMeterPreSet("C:\\");
        EXPECT_EQ(rig.view.ListView1.Count(), 0) << shown;
    }
}

}  // namespace
}  // namespace velmora::tests
