// The order in which the start builds the running state.
#include "monitor/rig.h"

#include <gtest/gtest.h>

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

const std::string readSettings = "readAll C:\\Program Files\\Velmora\\set.dat";

// Everything that the start does, in one list: calls of the machine and what becomes visible in the
// forms.
struct StartRig : Rig {
    std::function<void()> onSettings;

    StartRig() {
        machine.drives["C:"] = {40 * KB, 100 * KB};
        machine.onCall = [this](const std::string& call) {
            note(call);
            if (call == readSettings && onSettings) onSettings();
        };
        form1.DTTime1[0].setEnabled(false);
        form1.StatusBar1.PanelChanged.connect([this](int panel) {
            note("panel " + std::to_string(panel) + " with " +
                 std::to_string(form1.ListView1.ColumnCount()) + " columns");
        });
        // Switched on again, so that each run of the handler is noticed.
        form1.DTTime1[1].Changed.connect([this] {
            DatePicker& end = form1.DTTime1[1];
            if (end.Enabled()) return;
            note("chkCustTime_Click");
            end.setEnabled(true);
        });
        noteForms();
        form1.OpDriv[0].Click.connect([this] { note("OpDriv 0"); });
        form1.lblTab[0].Click.connect([this] { note("lblTab 0"); });
        form1.lblSpectab[0].Click.connect([this] { note("lblSpectab 0"); });
        form1.LVFile.RowInserted.connect(
            [this](int row) { note("LVFile row " + std::to_string(row)); });
        form1.lblAppStart.Changed.connect([this] { note("lblAppStart"); });
        form1.lblLog.Changed.connect([this] { note("lblLog " + form1.lblLog.Caption()); });
    }

    void note(const std::string& what) {
        if (calls.empty() && forms.globals.lastFileTime != 0) calls.push_back("system time");
        calls.push_back(what);
    }
    int errorOfLoad() {
        try {
            lifeCycle.Form_Load();
        } catch (const RuntimeError& failure) {
            return failure.number();
        }
        return 0;
    }

  private:
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
    rig.lifeCycle.Form_Load();
    const std::string send = sendToFolder;
    EXPECT_EQ(rig.calls, (Texts{"system time",
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
                                readSettings,
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
                                "GetFolder C:\\",
                                "GetDrive C:\\",
                                "FreeSpace C:",
                                "FilesCount C:\\",
                                "SubFoldersCount C:\\"}));
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(StartOrder, UpdatesAreAskedForBetweenTheShortcutAndTheFirstFigures) {
    StartRig rig;
    rig.onSettings = [&] { rig.form1.chkUpdate.setValue(1); };
    rig.host.onBox = [&](const Box& box) { rig.note(box.text); };
    rig.lifeCycle.Form_Load();
    const auto place = [&](const std::string& step) {
        return std::find(rig.calls.begin(), rig.calls.end(), step) - rig.calls.begin();
    };
    const auto box = place("The program is currently up to date");
    ASSERT_LT(box, static_cast<std::ptrdiff_t>(rig.calls.size()));
    EXPECT_EQ(box, place(std::string("Save ") + sendToFolder + "\\Velmora.lnk") + 1);
    EXPECT_EQ(box, place("GetFolder C:\\") - 1);
    EXPECT_EQ(rig.machine.internet.opened, Texts{"http://velmora.example/velmora/status.htm"});
    // Nobody asks whether there is a connection.
    EXPECT_EQ(rig.machine.rasapi32.askedSizes.first, 0u);
}

TEST(StartOrder, WithoutTheOptionUpdatesAreNotAskedFor) {
    StartRig rig;
    rig.lifeCycle.Form_Load();
    EXPECT_TRUE(rig.machine.internet.opened.empty());
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(StartOrder, AnErrorOfTheQuestionForUpdatesLeavesTheStartAtThatPoint) {
    StartRig rig;
    rig.onSettings = [&] { rig.form1.chkUpdate.setValue(1); };
    rig.machine.internet.failsWith = 35764;
    EXPECT_EQ(rig.errorOfLoad(), 35764);
    EXPECT_EQ(rig.calls.back(), std::string("Save ") + sendToFolder + "\\Velmora.lnk");
}

TEST(StartOrder, TheSystemTimeAndTheSettingsPathAreKept) {
    StartRig rig;
    rig.lifeCycle.Form_Load();
    EXPECT_EQ(rig.forms.globals.lastFileTime, rig.platform.clock.GetSystemTimeAsFileTime());
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

TEST(StartOrder, EveryRowGetsItsFirstFiguresInListOrder) {
    StartRig rig;
    rig.machine.drives["D:"] = {1, 2};
    rig.machine.drives["E:"] = {.ready = false};
    rig.lifeCycle.Form_Load();
    Texts measured;
    for (const std::string& call : rig.calls) {
        if (call.starts_with("GetFolder ")) measured.push_back(call);
    }
    EXPECT_EQ(measured, (Texts{"GetFolder C:\\", "GetFolder D:\\"}));
    // The program's own folder lies on C:.
    EXPECT_EQ(WatchRow(rig.list.ListItems(1)).folderCounts(), "file:0|fold:1|");
    EXPECT_EQ(WatchRow(rig.list.ListItems(2)).folderCounts(), "file:0|fold:0|");
    // A drive that isn't ready has no figures to keep.
    EXPECT_EQ(WatchRow(rig.list.ListItems(3)).folderCounts(), "");
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
    rig.onSettings = [&] { WatchRow(rig.form1.ListView1.ListItems(1)).setFreeSpace("soon"); };
    EXPECT_EQ(rig.errorOfLoad(), error::typeMismatch);
    EXPECT_EQ(rig.calls.back(), readSettings);
}

TEST(StartOrder, SettingsThatCanNotBeReadLeaveTheStartAtThatPoint) {
    for (const int number : {error::fileNotFound, error::typeMismatch}) {
        StartRig rig;
        rig.onSettings = [number] { throw RuntimeError(number); };
        EXPECT_EQ(rig.errorOfLoad(), number);
        EXPECT_EQ(rig.calls.back(), readSettings);
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
