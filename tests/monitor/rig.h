// The monitoring core on a machine and a user in memory, loaded or bare.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "alerts/journal/alert_list.h"
#include "alerts/journal/journal_log.h"
#include "fake/alert_ports.h"
#include "fake/fake_surface.h"
#include "fake/monitor_ports.h"
#include "monitor/check_cycle.h"
#include "monitor/command_line.h"
#include "monitor/life_cycle.h"
#include "monitor/minimum_space.h"
#include "monitor/row_check.h"
#include "monitor/trigger_entry.h"
#include "monitor/watch_alerts.h"
#include "monitor/watch_control.h"
#include "monitor/watch_list.h"
#include "monitor/watch_list_commands.h"
#include "persist/scramble.h"
#include "rows/alert_row.h"
#include "rows/watch_row.h"

namespace velmora::tests {

inline constexpr double KB = 1024;

/// Where the user of the machine in memory has his "Send to" shortcuts.
inline constexpr const char* sendToFolder = "C:\\Users\\user\\SendTo";

/// All parts connected, without rows and columns yet. The actions only record their runs.
struct Rig {
    fake::FakeMachine machine;
    fake::FakeHost host;
    fake::FakeNotifyArea notifyArea;
    fake::FakeUser32 user32;
    fake::FakeWorkArea screen;
    /// What happened, in order: what the ports were asked, "action 3", "alert dialog"
    /// and "drive view C:\".
    std::vector<std::string> calls;
    /// What an action does besides being recorded.
    std::function<void(int, Shortage&)> onAction;

    fake::RecordedStayOnTop onTop{calls};
    fake::RecordedTray tray{calls};
    fake::RecordedRowIcons rowIcons{calls};
    Forms forms;
    Form1& form1 = forms.form1;
    ListView& list = forms.form1.ListView1;
    Platform& platform = machine.platform();

    LogFile logFile{platform};
    AlertList alerts{forms, platform, logFile, notifyArea};
    AlertDialogWindow alertDialog{form1, forms.dlgAlert, screen};
    JournalLog log{form1, platform, logFile, host, onTop};
    SystemActions systemActions{form1, platform, user32};
    FileList fileList{platform.fso, platform.regional, host};
    ActionTable actions = recordingActions();
    SettingsFile settings{forms, platform, host};
    ShellLinks shellLinks{platform.shell32, platform.wscriptShell};
    UpdateCheck updateCheck{forms, platform, host, "1.2.0"};
    WatchAlerts watchAlerts{alerts};
    WaitTest waitTest{forms.frmWaitTest, forms.globals, platform, host, watchAlerts};

    SpaceStatistics statistics{form1, forms.globals, platform, host};
    DriveMeter driveMeter{form1, forms.frmIndDri, platform.fso, platform.regional};
    EventPass events{forms,
                     platform,
                     {.alerts = alerts,
                      .waitTest = waitTest,
                      .systemActions = systemActions,
                      .alertDialog = alertDialog}};
    WatchList watchList{form1, forms.globals, platform, alerts};
    WatchListCommands commands{
        form1,
        forms.globals,
        platform,
        host,
        {.watchList = watchList, .driveMeter = driveMeter, .alerts = alerts, .stayOnTop = onTop}};
    MinimumSpace minimumSpace{form1, platform.regional, host};
    TriggerEntry triggerEntry{form1, forms.frmIndDri, platform.regional, host, driveMeter};
    RowCheck rowCheck{forms,
                      platform,
                      host,
                      {.alerts = alerts,
                       .alertDialog = alertDialog,
                       .actions = actions,
                       .events = events,
                       .statistics = statistics}};
    HistoryView historyView{forms, platform, host};
    CheckCycle checkCycle{forms,
                          platform.clock,
                          platform.regional,
                          host,
                          {.rowCheck = rowCheck,
                           .alerts = alerts,
                           .log = log,
                           .settings = settings,
                           .statistics = statistics,
                           .history = historyView,
                           .rowIcons = rowIcons,
                           .options = platform.app.Options}};
    WatchControl watchControl{forms,
                              platform.clock,
                              platform.regional,
                              host,
                              {.alerts = alerts, .alertDialog = alertDialog, .tray = tray}};
    CommandLine commandLine{form1.LVFile, platform.app, platform.fso, fileList, shellLinks};
    LifeCycle lifeCycle{forms,
                        platform,
                        host,
                        {.checkCycle = checkCycle,
                         .watchList = watchList,
                         .watchControl = watchControl,
                         .events = events,
                         .commandLine = commandLine,
                         .settings = settings,
                         .updateCheck = updateCheck,
                         .stayOnTop = onTop,
                         .notifyArea = notifyArea}};

    const std::string settingsPath = machine.platform().app.Path + "\\set.dat";

    Rig() {
        // A minute's interval, which is the design value too.
        machine.files[settingsPath] = prcEn("txtTime=60\r\n") + "\r\n";
        forms.dlgAlert.Raised.connect([this] { calls.push_back("alert dialog"); });
        forms.frmIndDri.Raised.connect(
            [this] { calls.push_back("drive view " + forms.frmIndDri.lblP.Caption()); });
    }

    int count(const std::string& call) const {
        return static_cast<int>(std::count(calls.begin(), calls.end(), call));
    }
    /// A drive of that free and total space in KB.
    void drive(const std::string& path, double freeKB, double totalKB) {
        machine.drives[path] = {freeKB * KB, totalKB * KB};
    }
    /// The start of the program; then nothing is recorded yet.
    void load() {
        lifeCycle.Form_Load();
        clearRecords();
    }
    void clearRecords() {
        machine.log.clear();
        calls.clear();
        host.boxes.clear();
        host.dialogs.clear();
        host.yields = 0;
    }
    /// Adds a row, ticked by default.
    ListItem& row(const std::string& path, bool ticked = true) {
        ListItem& added = list.Add(path);
        added.setChecked(ticked);
        return added;
    }
    void setInterval(int hour, int minute, int second) {
        form1.DTPInterval.setHour(hour);
        form1.DTPInterval.setMinute(minute);
        form1.DTPInterval.setSecond(second);
    }
    /// Ticks until a check has run, however it ended.
    void check() {
        setInterval(0, 0, 0);
        forms.form1.Timer1.Tick();
    }
    const std::string& panel(int index) { return form1.StatusBar1.Panels(index).Text; }
    /// The texts of the alerts, newest first.
    std::vector<std::string> alertTexts() {
        std::vector<std::string> texts;
        for (int i = 1; i <= form1.LVAlert.Count(); ++i) {
            texts.push_back(ConstAlertRow(form1.LVAlert.ListItems(i)).text());
        }
        return texts;
    }

  private:
    ActionTable recordingActions() {
        ActionTable table;
        for (int place = 0; place < form1.lstAct.ListCount(); ++place) {
            table.set(place, [this, place](Shortage& shortage) {
                calls.push_back("action " + std::to_string(place));
                if (onAction) onAction(place, shortage);
            });
        }
        return table;
    }
};

}  // namespace velmora::tests
