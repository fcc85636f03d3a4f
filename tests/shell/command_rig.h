// The main window's frame on a machine and a user in memory, with the windows it calls recorded.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fake/fake_host.h"
#include "fake/fake_machine.h"
#include "shell/button_commands.h"
#include "shell/label_look.h"
#include "shell/menu_commands.h"
#include "shell/tab_selection.h"
#include "shell/tool_bar_commands.h"
#include "shell/window_layout.h"

namespace velmora::tests {

using Texts = std::vector<std::string>;

/// The windows behind the ports; they write down their calls, in order.
struct RecordedWindows : DriveView,
                         LockDialog,
                         SystrayIcon,
                         AboutDialog,
                         RecycleBinWindow,
                         AlertDialog {
    Texts calls;

    void prcShowfrmIndDri(const std::string& path) override {
        calls.push_back("prcShowfrmIndDri " + path);
    }
    void prcSrvMeter(ListItem& row) override { calls.push_back("prcSrvMeter " + row.Text()); }
    void prcSrvFrm() override { calls.push_back("prcSrvFrm"); }
    void prcAddSystray(std::int16_t action, const std::string& text) override {
        calls.push_back("prcAddSystray " + std::to_string(action) + " " + text);
    }
    void showAbout() override { calls.push_back("showAbout"); }
    void RecycleBin() override { calls.push_back("RecycleBin"); }
    void show() override { calls.push_back("alert dialog"); }
};

/// The window in its full view, with a tool bar of 600 twips and a watch list of 2700.
struct CommandRig {
    fake::FakeMachine machine;
    fake::FakeHost host;
    fake::FakeNotifyArea notifyArea;
    User32 user32;
    RecordedWindows windows;
    Forms forms;
    Form1& form1 = forms.form1;
    ListView& list = forms.form1.ListView1;
    AlertList alerts{forms, machine.platform(), notifyArea, windows};
    SystemActions systemActions{forms, machine.platform(), user32};
    ShellLinks shellLinks{machine.platform()};
    WindowLayout layout{forms};
    TabSelection tabs{forms, layout};
    LabelLook labelLook{forms};
    ToolBarCommands toolBar{forms, machine.platform(), host, layout};
    MenuCommands menus{
        forms,
        machine.platform(),
        host,
        {alerts, systemActions, shellLinks, windows, windows, windows, windows, windows}};
    ButtonCommands buttons{forms, windows};

    CommandRig() {
        for (int i = 0; i < 5; ++i) list.addColumn({});
        setHeights(600, 2700);
        form1.Show();
        form1.setSize(9000, 9100);
    }

    void setHeights(int toolBarHeight, int frameHeight) {
        form1.Toolbar1.setBounds({0, 0, 8030, toolBarHeight});
        form1.Frame8.setBounds({0, 600, 8030, frameHeight});
    }
    /// Rows of these paths; the last is selected.
    void rows(const Texts& paths) {
        for (const std::string& path : paths) list.Add(path);
        list.userSelect({list.Count()});
    }
    /// What the shell was told: the owner, the verb and the file.
    Texts orders() const {
        Texts all;
        for (const ShellExecuteInfo& info : machine.executed) {
            all.push_back(info.owner + " " + info.verb + " " + info.file);
        }
        return all;
    }
    int width(const Control& control) const { return control.bounds().Width; }
    int height(const Control& control) const { return control.bounds().Height; }
};

/// Counts how often an event fires.
template <typename Event>
int& counted(Event& event, int& count) {
    event.connect([&count](auto&&...) { ++count; });
    return count;
}

}  // namespace velmora::tests
