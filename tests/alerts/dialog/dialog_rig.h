// The alert dialog on a machine, a user and a screen in memory.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "alerts/dialog/alert_dialog_hiding.h"
#include "alerts/dialog/alert_dialog_options.h"
#include "alerts/dialog/alert_dialog_window.h"
#include "base/errors.h"
#include "fake/alert_ports.h"
#include "fake/fake_host.h"
#include "fake/fake_machine.h"
#include "forms/forms.h"
#include "rows/watch_columns.h"
#include "rows/watch_row.h"

namespace velmora::tests {

struct DialogRig {
    struct Screen : WorkArea {
        int Width() override { return 20000; }
        int Height() override { return 15000; }
    };
    fake::FakeMachine machine;
    fake::FakeHost host;
    std::vector<std::string> steps;
    fake::RecordedStayOnTop onTop{steps};
    Screen screen;
    fake::RecordedTranslucency glass;
    Forms forms;
    Form1& form1 = forms.form1;
    DlgAlert& dialog = forms.dlgAlert;
    LogFile logFile{machine.platform()};
    JournalLog log{form1, machine.platform(), logFile, host, onTop};
    AlertDialogWindow window{form1, dialog, screen};
    AlertDialogHiding hiding{dialog, glass, log};
    AlertDialogOptions options{form1, dialog, machine.platform(), host};
    const std::string logPath = "C:\\Program Files\\Velmora\\log.dat";
    const std::string cleanerFile = "C:\\Program Files\\Velmora\\clen.dat";

    DialogRig() { addWatchColumns(form1.ListView1); }

    void tick(int times = 1) {
        for (int i = 0; i < times; ++i) dialog.Timer1.Tick();
    }
    /// Clicks the label of that caption, among the options or the buttons.
    void click(const std::string& caption) {
        for (auto* labels : {&dialog.lblAct, &dialog.lblAl}) {
            for (Label& label : *labels) {
                if (label.Caption() == caption) return label.userClick();
            }
        }
        FAIL() << "no label " << caption;
    }
    const std::string& pending() { return dialog.lblAl[alert_button::wizard].Tag(); }
    /// A row of the watch list with that state.
    void row(const std::string& path, const std::string& state) {
        WatchRow(form1.ListView1.Add(path)).setStateIcon(state);
    }
    std::vector<int> tickedActions() {
        std::vector<int> ticked;
        for (int i = 0; i < form1.lstAct.ListCount(); ++i) {
            if (form1.lstAct.Selected(i)) ticked.push_back(i);
        }
        return ticked;
    }
    void tickAllActions() {
        for (int i = 0; i < form1.lstAct.ListCount(); ++i) form1.lstAct.setSelected(i, true);
    }
};

}  // namespace velmora::tests
