// The monitoring core on a machine and a user in memory, loaded or bare.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "alerts/journal/alert_list.h"
#include "fake/fake_host.h"
#include "fake/fake_machine.h"
#include "monitor/check_cycle.h"
#include "monitor/life_cycle.h"
#include "monitor/minimum_space.h"
#include "monitor/trigger_entry.h"
#include "monitor/watch_control.h"
#include "monitor/watch_list.h"
#include "monitor/watch_list_commands.h"
#include "rows/watch_row.h"

namespace velmora::tests {

inline constexpr double KB = 1024;

/// Where the user of the machine in memory has his "Send to" shortcuts.
inline constexpr const char* sendToFolder = "C:\\Users\\user\\SendTo";

/// Ports that write down what was asked of them, in order.
struct RecordedPorts {
    std::vector<std::string> calls;

    struct Events : EventDetection {
        explicit Events(RecordedPorts& all) : all_(all) {}
        void checkEvents(int row) override {
            all_.note("checkEvents", row);
            if (all_.realEvents != nullptr) all_.realEvents->checkEvents(row);
        }
        void rowNotReady(int row) override {
            all_.note("rowNotReady", row);
            if (all_.realEvents != nullptr) all_.realEvents->rowNotReady(row);
        }
        int prcSetPrevInfoLV(ListItem& row) override {
            all_.calls.push_back("prcSetPrevInfoLV " + row.Text());
            return all_.realEvents != nullptr ? all_.realEvents->prcSetPrevInfoLV(row) : 1;
        }
        RecordedPorts& all_;
    };
    struct Actions : ActionRunner {
        explicit Actions(RecordedPorts& all) : all_(all) {}
        void run(int action, Shortage& shortage) override {
            all_.note("action", action);
            if (all_.onAction) all_.onAction(action, shortage);
        }
        RecordedPorts& all_;
    };
    struct Stats : Statistics {
        explicit Stats(RecordedPorts& all) : all_(all) {}
        void updateSpaceChangeRate() override { all_.calls.push_back("rate"); }
        void prcUpdateStatistics() override { all_.calls.push_back("statistics"); }
        void prcSrvAnimation(float clip, float play) override {
            all_.calls.push_back("animation " + std::to_string(static_cast<int>(clip)) + " " +
                                 std::to_string(static_cast<int>(play)));
        }
        RecordedPorts& all_;
    };
    struct Settings : SettingsStore {
        explicit Settings(RecordedPorts& all) : all_(all) {}
        void prcSettings(std::int16_t bSet) override { all_.note("prcSettings", bSet); }
        RecordedPorts& all_;
    };
    struct Log : ActivityLog {
        explicit Log(RecordedPorts& all) : all_(all) {}
        void saveNewEntries() override {
            all_.calls.push_back("saveNewEntries");
            if (all_.onSaveLog) all_.onSaveLog();
        }
        RecordedPorts& all_;
    };
    struct Icons : RowIcons {
        explicit Icons(RecordedPorts& all) : all_(all) {}
        void prcRefreshRowIcon(ListItem& row) override {
            all_.calls.push_back("prcRefreshRowIcon " + row.Text());
        }
        RecordedPorts& all_;
    };
    struct Switch : WatchSwitch {
        explicit Switch(RecordedPorts& all) : all_(all) {}
        void cmdPause_Click() override { all_.calls.push_back("cmdPause_Click"); }
        RecordedPorts& all_;
    };
    struct OnTop : StayOnTop {
        explicit OnTop(RecordedPorts& all) : all_(all) {}
        void drop() override { all_.calls.push_back("drop"); }
        void restore() override { all_.calls.push_back("restore"); }
        RecordedPorts& all_;
    };
    struct View : DriveView {
        explicit View(RecordedPorts& all) : all_(all) {}
        void prcShowfrmIndDri(const std::string& path) override {
            all_.calls.push_back("prcShowfrmIndDri " + path);
        }
        void prcSrvMeter(ListItem& row) override {
            all_.calls.push_back("prcSrvMeter " + row.Text());
        }
        RecordedPorts& all_;
    };
    struct Dialog : AlertDialog {
        explicit Dialog(RecordedPorts& all) : all_(all) {}
        void show() override { all_.calls.push_back("alert dialog"); }
        RecordedPorts& all_;
    };

    struct TrayIcon : Tray {
        explicit TrayIcon(RecordedPorts& all) : all_(all) {}
        void modifyIcon(const std::string& form) override {
            all_.calls.push_back("modifyIcon " + form);
        }
        void prcToolTipText(const std::string& text) override {
            all_.calls.push_back("prcToolTipText " + text);
        }
        RecordedPorts& all_;
    };
    struct TabStrips : Tabs {
        explicit TabStrips(RecordedPorts& all) : all_(all) {}
        void lblTab_Click(int index) override { all_.note("lblTab", index); }
        void lblSpectab_Click(int index) override { all_.note("lblSpectab", index); }
        RecordedPorts& all_;
    };
    struct UpdateCheck : Updates {
        explicit UpdateCheck(RecordedPorts& all) : all_(all) {}
        void prcCheckUpdate() override { all_.calls.push_back("prcCheckUpdate"); }
        RecordedPorts& all_;
    };

    void note(const std::string& what, int number) {
        calls.push_back(what + " " + std::to_string(number));
    }
    MonitorPorts all() {
        return {events, actions, stats,  settings, log,  icons,  watchSwitch,
                onTop,  view,    dialog, trayIcon, tabs, updates};
    }
    int count(const std::string& call) const {
        return static_cast<int>(std::count(calls.begin(), calls.end(), call));
    }

    std::function<void(int, Shortage&)> onAction;
    std::function<void()> onSaveLog;
    /// What the events are passed on to, once they are written down; may be null.
    EventDetection* realEvents = nullptr;
    Events events{*this};
    Actions actions{*this};
    Stats stats{*this};
    Settings settings{*this};
    Log log{*this};
    Icons icons{*this};
    Switch watchSwitch{*this};
    OnTop onTop{*this};
    View view{*this};
    Dialog dialog{*this};
    TrayIcon trayIcon{*this};
    TabStrips tabs{*this};
    UpdateCheck updates{*this};
};

/// Everything wired; no row and no column yet.
struct Rig {
    fake::FakeMachine machine;
    fake::FakeHost host;
    fake::FakeNotifyArea notifyArea;
    RecordedPorts ports;
    Forms forms;
    Form1& form1 = forms.form1;
    ListView& list = forms.form1.ListView1;
    AlertList alerts{forms, machine.platform(), notifyArea, ports.dialog};
    WatchList watchList{forms, machine.platform(), alerts};
    WatchListCommands commands{forms, machine.platform(), host, alerts, watchList, ports.all()};
    MinimumSpace minimumSpace{forms, machine.platform(), host};
    TriggerEntry triggerEntry{forms, machine.platform(), host, ports.view};
    CheckCycle checkCycle{forms, machine.platform(), host, alerts, ports.all()};
    WatchControl watchControl{forms,  machine.platform(), host,
                              alerts, ports.trayIcon,     ports.dialog};
    FileList fileList{machine.platform(), host};
    ShellLinks shellLinks{machine.platform()};
    LifeCycle lifeCycle{forms,
                        machine.platform(),
                        host,
                        {checkCycle, watchList, watchControl, fileList, shellLinks, notifyArea},
                        ports.all()};

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
        ports.calls.clear();
        host.boxes.clear();
        host.dialogs.clear();
        host.yields = 0;
    }
    /// Adds a row, ticked unless told otherwise.
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
    /// Ticks until a check has run, whatever it ended in.
    void check() {
        setInterval(0, 0, 0);
        forms.form1.Timer1.Tick();
    }
    const std::string& panel(int index) { return form1.StatusBar1.Panels(index).Text; }
    /// The texts of the alerts, newest first.
    std::vector<std::string> alertTexts() {
        std::vector<std::string> texts;
        for (int i = 1; i <= form1.LVAlert.Count(); ++i) {
            texts.push_back(form1.LVAlert.ListItems(i).SubItems(2));
        }
        return texts;
    }
};

}  // namespace velmora::tests
