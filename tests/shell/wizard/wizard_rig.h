// The setup wizard over the whole program, on a machine, a surface and a user in memory.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "fake/fake_surface.h"
#include "monitor/watch_alerts.h"
#include "notify/notify.h"
#include "persist/scramble.h"
#include "shell/shell.h"

namespace velmora::tests {

/// Loaded, with three drives, of which E: isn't ready, and the wizard open. Nothing is recorded
/// from before.
struct WizardRig {
    fake::FakeMachine machine;
    fake::FakeSurface surface;
    fake::FakeHost& host = surface.host;
    Forms forms;
    Form1& form1 = forms.form1;
    FrmNotify& mail = forms.frmNotify;
    FrmWizard& wizard = forms.frmWizard;
    ListView& watched = forms.form1.ListView1;

    Persist persist{forms, machine.platform(), host};
    Desktop desktop{forms, machine.platform(), surface.all()};
    Alerts alerts{forms,
                  machine.platform(),
                  surface.all(),
                  {.stayOnTop = desktop.windowEffects(), .translucency = desktop.windowEffects()}};
    WatchAlerts watchAlerts{alerts.list()};
    Inspect inspect{forms, machine.platform(), host, watchAlerts};
    Notify notify{forms, machine.platform(), host, alerts.list(), "1.0.0"};
    Monitor monitor{forms,
                    machine.platform(),
                    surface.all(),
                    {.alerts = alerts,
                     .persist = persist,
                     .inspect = inspect,
                     .updateCheck = notify.updateCheck()},
                    {.stayOnTop = desktop.windowEffects(),
                     .tray = desktop.tray(),
                     .rowIcons = desktop.rowIcons()}};
    Shell shell{forms,
                machine.platform(),
                surface.all(),
                {.desktop = desktop, .alerts = alerts, .persist = persist, .monitor = monitor},
                "1.0.0"};

    const std::string settingsPath = "C:\\Program Files\\Velmora\\set.dat";

    /// `settings` are plain lines besides those of an interval of a minute and 50000 KB.
    explicit WizardRig(const std::vector<std::string>& settings = {})
        : WizardRig(Opened::no, settings) {
        open();
        host.boxes.clear();
        machine.log.clear();
    }

    enum class Opened { no };
    /// The same before the wizard was ever opened.
    explicit WizardRig(Opened, const std::vector<std::string>& settings = {}) {
        machine.drives["C:"] = {100'000.0 * 1024, 200'000.0 * 1024};
        machine.drives["D:"] = {3'000.0 * 1024, 400'000.0 * 1024};
        machine.drives["E:"] = {.ready = false};
        std::string& content = machine.files[settingsPath];
        for (const char* line : {"txtTime=60\r\n", "minspace=50000\r\n"}) {
            content += prcEn(line) + "\r\n";
        }
        for (const std::string& line : settings) content += prcEn(line) + "\r\n";
        monitor.lifeCycle().Form_Load();
        alerts.afterLoad();
        notify.afterLoad();
        host.boxes.clear();
        machine.log.clear();
    }

    /// Opens the wizard by its button.
    void open() { form1.Toolbar1.userClickPart(2); }
    void apply() { wizard.cmdApply.userClick(); }
    void close() { wizard.cmdCancel.userClick(); }
    /// Opens it anew.
    void reopen() {
        close();
        open();
    }

    /// What saving writes now.
    std::string saved() {
        persist.settingsFile().prcSettings(settings_order::write);
        return machine.files[settingsPath];
    }
    /// The texts of the boxes so far.
    std::vector<std::string> said() const {
        std::vector<std::string> all;
        for (const Box& box : host.boxes) all.push_back(box.text);
        return all;
    }
    /// The paths of a watch list, those of ticked rows with a star in front.
    static std::vector<std::string> rowsOf(const ListView& list) {
        std::vector<std::string> all;
        for (int i = 1; i <= list.Count(); ++i) {
            const ListItem& row = list.ListItems(i);
            all.push_back((row.Checked() ? "*" : "") + row.Text());
        }
        return all;
    }
    static std::vector<std::string> tagsOf(const ListView& list) {
        std::vector<std::string> all;
        for (int i = 1; i <= list.Count(); ++i) all.push_back(list.ListItems(i).Tag());
        return all;
    }
    static std::vector<std::string> entriesOf(const ComboBox& box) {
        std::vector<std::string> all;
        for (int i = 0; i < box.ListCount(); ++i) all.push_back(box.List(i));
        return all;
    }
    static std::vector<int> ticksOf(const ListBox& list) {
        std::vector<int> all;
        for (int i = 0; i < list.ListCount(); ++i) {
            if (list.Selected(i)) all.push_back(i);
        }
        return all;
    }
};

/// Everything that can be read of a control, with the rows and entries of lists.
std::string contentOf(Control& control);
/// Everything of all forms but the wizard.
std::string contentBesidesWizard(Forms& forms);

using Words = std::vector<std::string>;

}  // namespace velmora::tests
