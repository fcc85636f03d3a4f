// The main window's frame on a machine, a surface and a user in memory.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fake/fake_surface.h"
#include "rows/watch_columns.h"
#include "shell/button_commands.h"
#include "shell/label_look.h"
#include "shell/menu_commands.h"
#include "shell/tab_selection.h"
#include "shell/tool_bar_commands.h"
#include "shell/window_layout.h"

namespace velmora::tests {

using Texts = std::vector<std::string>;

/// The window in its full view, with a tool bar of 600 twips and a watch list of 2700.
struct CommandRig {
    fake::FakeMachine machine;
    fake::FakeSurface surface;
    fake::FakeHost& host = surface.host;
    Forms forms;
    Form1& form1 = forms.form1;
    ListView& list = forms.form1.ListView1;
    Texts shown;  ///< the forms that were shown, in order
    LogFile logFile{machine.platform()};
    AlertList alerts{forms, machine.platform(), logFile, surface.notifyArea};
    SystemActions systemActions{form1, machine.platform(), surface.user32};
    DriveMeter driveMeter{form1, forms.frmIndDri, machine.platform().fso,
                          machine.platform().regional};
    SettingsFile settings{forms, machine.platform(), host};
    TrayIcon tray{forms, machine.platform().clock, surface.host, surface.notifyArea,
                  surface.user32};
    AboutBox aboutBox{forms.frmAbout, machine.platform(), host, "1.0.0"};
    RecycleBinView recycleBin{forms.icon1, machine.platform().shell32};
    WindowLayout layout{form1};
    TabSelection tabs{form1, forms.frmNotify, layout};
    LabelLook labelLook{form1, forms.dlgAlert};
    ToolBarCommands toolBar{form1, forms.frmWizard, machine.platform(), host, layout};
    MenuCommands menus{forms,
                       machine.platform(),
                       host,
                       {.alerts = alerts,
                        .systemActions = systemActions,
                        .driveMeter = driveMeter,
                        .tray = tray,
                        .aboutBox = aboutBox,
                        .recycleBin = recycleBin}};
    ButtonCommands buttons{form1, forms.dlgDriveInfo, aboutBox, settings};

    CommandRig() {
        addWatchColumns(list);
        setHeights(600, 2700);
        form1.Show();
        form1.setSize(9000, 9100);
        for (Form* form : forms.all()) {
            form->Raised.connect([this, form] { shown.push_back(form->Name()); });
        }
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
    /// What the shell was asked to run: the owner, the verb and the file.
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
