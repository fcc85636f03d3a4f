// The order in which the start builds the running state.
#include "monitor/rig.h"

#include <gtest/gtest.h>

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

// Everything that the start does, in one list: calls of the machine, of the ports, and what
// becomes visible in the forms.
struct StartRig {
    struct Watch : Clock {
        explicit Watch(StartRig& all) : all_(all) {}
        DateTime Now() override { return all_.machine.now; }
        std::int64_t GetTickCount() override { return all_.machine.tick; }
        std::uint64_t GetSystemTimeAsFileTime() override {
            all_.note("system time");
            return 42;
        }
        StartRig& all_;
    };
    struct Settings : SettingsStore {
        explicit Settings(StartRig& all) : all_(all) {}
        void prcSettings(std::int16_t bSet) override {
            all_.note("prcSettings " + std::to_string(bSet));
            if (all_.onSettings) all_.onSettings();
        }
        StartRig& all_;
    };

    fake::FakeMachine machine;
    fake::FakeHost host;
    fake::FakeNotifyArea notifyArea;
    RecordedPorts ports;
    Watch clock{*this};
    Settings settings{*this};
    std::function<void()> onSettings;
    Platform platform = withClock(machine.platform(), clock);
    Forms forms;
    Form1& form1 = forms.form1;
    AlertList alerts{forms, platform, notifyArea, ports.dialog};
    WatchList watchList{forms, platform, alerts};
    CheckCycle checkCycle{forms, platform, host, alerts, withSettings()};
    WatchControl watchControl{forms, platform, host, alerts, ports.trayIcon, ports.dialog};
    FileList fileList{platform, host};
    ShellLinks shellLinks{platform};
    LifeCycle lifeCycle{forms,
                        platform,
                        host,
                        {checkCycle, watchList, watchControl, fileList, shellLinks, notifyArea},
                        withSettings()};

    StartRig() {
        machine.drives["C:"] = {40 * KB, 100 * KB};
        machine.onCall = [this](const std::string& call) { note(call); };
        form1.DTTime1[0].setEnabled(false);
        form1.StatusBar1.PanelChanged.connect([this](int panel) {
            note("panel " + std::to_string(panel) + " with " +
                 std::to_string(form1.ListView1.ColumnCount()) + " columns");
        });
        // Switched on again, so that each run of the handler shows.
        form1.DTTime1[1].Changed.connect([this] {
            DatePicker& end = form1.DTTime1[1];
            if (end.Enabled()) return;
            note("chkCustTime_Click");
            end.setEnabled(true);
        });
        noteForms();
        form1.OpDriv[0].Click.connect([this] { note("OpDriv 0"); });
        form1.LVFile.RowInserted.connect(
            [this](int row) { note("LVFile row " + std::to_string(row)); });
        form1.lblAppStart.Changed.connect([this] { note("lblAppStart"); });
        form1.lblLog.Changed.connect([this] { note("lblLog " + form1.lblLog.Caption()); });
    }

    void note(const std::string& what) { ports.calls.push_back(what); }
    int errorOfLoad() {
        try {
            lifeCycle.Form_Load();
        } catch (const RuntimeError& failure) {
            return failure.number();
        }
        return 0;
    }

  private:
    static Platform withClock(const Platform& other, Clock& clock) {
        return {other.fso,      other.kernel32, clock,       other.files,
                other.advapi32, other.shell32,  other.winmm, other.wscriptShell,
                other.regional, other.app};
    }
    MonitorPorts withSettings() {
        return {ports.events,   ports.actions,     ports.stats,  settings,   ports.log,
                ports.icons,    ports.watchSwitch, ports.onTop,  ports.view, ports.dialog,
                ports.trayIcon, ports.tabs,        ports.updates};
    }
    void noteForms() {
        forms.sysWorkSystray.Changed.connect([this] {
            note(forms.sysWorkSystray.Visible() ? "tray form shown" : "tray form hidden");
        });
        form1.Changed.connect([this, shown = false]() mutable {
            if (form1.Visible() && !shown) note("window shown");
            shown = form1.Visible();
            if (form1.Height() != 0) {
                note("size " + std::to_string(form1.Height()) + " " +
                     std::to_string(form1.Width()));
            }
        });
    }
};

TEST(StartOrder, EveryStepComesInItsPlace) {
    StartRig rig;
    rig.platform.app.Command = "\"C:\\one.txt\"";
    rig.onSettings = [&] { rig.form1.chkUpdate.setDesignValue(1); };
    rig.lifeCycle.Form_Load();
    const std::string send = sendToFolder;
    EXPECT_EQ(rig.ports.calls, (Texts{"system time",
                                      "panel 1 with 5 columns",
                                      "chkCustTime_Click",
                                      "tray form shown",
                                      "window shown",
                                      "GetLogicalDriveStringsA 255",
                                      "GetDriveName C:\\",
                                      "GetDrive C:",
                                      "IsReady C:",
                                      "FreeSpace C:",
                                      "TotalSize C:",
                                      "chkCustTime_Click",
                                      "prcSettings 2",
                                      "lblAppStart",
                                      "tray form hidden",
                                      "size 9100 8030",
                                      "lblLog C:\\Program Files\\Velmora\\log.dat",
                                      "lblTab 0",
                                      "lblSpectab 0",
                                      "OpDriv 0",
                                      "LVFile row 1",
                                      "FileExists C:\\one.txt",
                                      "FolderExists C:\\one.txt",
                                      "SHGetSpecialFolderLocation 9",
                                      "SHGetPathFromIDListA " + send,
                                      "FileExists " + send + "\\Velmora.lnk",
                                      "CreateShortcut " + send + "\\Velmora.lnk",
                                      "Save " + send + "\\Velmora.lnk",
                                      "prcCheckUpdate",
                                      "prcSetPrevInfoLV C:\\"}));
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(StartOrder, TheSystemTimeAndTheSettingsPathAreKept) {
    StartRig rig;
    rig.lifeCycle.Form_Load();
    EXPECT_EQ(rig.forms.globals.lastFileTime, 42u);
    EXPECT_EQ(rig.forms.globals.strSettings, "C:\\Program Files\\Velmora\\set.dat");
}

TEST(StartOrder, TheTimersOfTheWindowRunAsDesigned) {
    StartRig rig;
    rig.lifeCycle.Form_Load();
    EXPECT_EQ(rig.form1.Timer1.Interval(), 5000);
    EXPECT_EQ(rig.form1.tmrStat.Interval(), 6000);
    EXPECT_EQ(rig.form1.TimerCust.Interval(), 60000);
    for (const Timer* timer : {&rig.form1.Timer1, &rig.form1.tmrStat, &rig.form1.TimerCust}) {
        EXPECT_TRUE(timer->Enabled()) << timer->Name();
    }
}

TEST(StartOrder, UpdatesAreAskedForOnlyWhenTheSettingsSaySo) {
    StartRig rig;
    rig.lifeCycle.Form_Load();
    EXPECT_EQ(rig.ports.count("prcCheckUpdate"), 0);
}

TEST(StartOrder, EveryRowGetsItsFirstFiguresInListOrder) {
    StartRig rig;
    rig.machine.drives["D:"] = {1, 2};
    rig.machine.drives["E:"] = {.ready = false};
    rig.lifeCycle.Form_Load();
    EXPECT_EQ(Texts(rig.ports.calls.end() - 3, rig.ports.calls.end()),
              (Texts{"prcSetPrevInfoLV C:\\", "prcSetPrevInfoLV D:\\", "prcSetPrevInfoLV E:\\"}));
}

TEST(StartOrder, TheStartFiguresAreTimeAndFreeSpace) {
    StartRig rig;
    rig.machine.drives["C:"] = {5'000 * KB, 9'000 * KB};
    rig.machine.drives["D:"] = {1'234'567 * KB, 9'000'000 * KB};
    rig.machine.drives["E:"] = {.ready = false};
    rig.onSettings = [&] { rig.form1.ListView1.Add("F:\\"); };
    rig.lifeCycle.Form_Load();
    EXPECT_EQ(rig.forms.globals.lngStartFreeKB, 1'239'567);
    EXPECT_EQ(rig.form1.lblAppStart.Caption(), "2026/03/14 03:09 PM");
    EXPECT_EQ(rig.forms.globals.dtAppStart, rig.machine.now);
}

TEST(StartOrder, TheSumOfFreeSpaceStopsAtTheGreatest32BitNumber) {
    StartRig rig;
    rig.machine.drives["C:"] = {2e9 * KB, 3e9 * KB};
    rig.machine.drives["D:"] = {2e9 * KB, 3e9 * KB};
    rig.lifeCycle.Form_Load();
    EXPECT_EQ(rig.forms.globals.lngStartFreeKB, 2'147'483'647);
}

TEST(StartOrder, FiguresThatAreNoNumbersAreATypeMismatch) {
    StartRig rig;
    rig.onSettings = [&] { rig.form1.ListView1.ListItems(1).setSubItems(1, "soon"); };
    EXPECT_EQ(rig.errorOfLoad(), error::typeMismatch);
    EXPECT_EQ(rig.ports.calls.back(), "prcSettings 2");
}

TEST(StartOrder, SettingsThatCanNotBeReadLeaveTheStartAtThatPoint) {
    for (const int number : {error::fileNotFound, error::typeMismatch}) {
        StartRig rig;
        rig.onSettings = [number] { throw RuntimeError(number); };
        EXPECT_EQ(rig.errorOfLoad(), number);
        EXPECT_EQ(rig.ports.calls.back(), "prcSettings 2");
        EXPECT_EQ(rig.form1.lblAppStart.Caption(), "");
        EXPECT_EQ(rig.form1.lblLog.Caption(), "");
        EXPECT_TRUE(rig.forms.sysWorkSystray.Visible());
        EXPECT_TRUE(rig.machine.shortcuts.empty());
        EXPECT_EQ(rig.form1.ListView1.Count(), 1);
    }
}

TEST(StartOrder, AMachineWithoutDrivesStarts) {
    StartRig rig;
    rig.machine.drives.clear();
    EXPECT_EQ(rig.errorOfLoad(), 0);
    EXPECT_EQ(rig.forms.globals.lngStartFreeKB, 0);
    EXPECT_EQ(rig.form1.ListView1.Count(), 0);
}

}  // namespace
}  // namespace velmora::tests
