// The alert list on a machine in memory, with a watch list of one row.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "alerts/journal/alert_list.h"
#include "base/errors.h"
#include "fake/fake_machine.h"
#include "rows/alert_row.h"
#include "rows/watch_columns.h"
#include "rows/watch_row.h"

namespace velmora::tests {

struct AlertRig {
    fake::FakeMachine machine;
    fake::FakeNotifyArea notifyArea;
    Forms forms;
    Form1& form1 = forms.form1;
    ListView& list = forms.form1.LVAlert;
    LogFile logFile{machine.platform()};
    AlertList alerts{forms, machine.platform(), logFile, notifyArea};
    ListItem& row;

    AlertRig() : row(watchRow()) {}

    void raise(const std::string& text, const std::string& rating = "High",
               ListItem* item = nullptr, AlertFlags flags = {}) {
        alerts.prcAlertInfo("20260314 15:09", rating, text, flags, item);
    }
    void raiseMany(int count) {
        for (int i = 1; i <= count; ++i) raise(std::to_string(i), "Medium");
    }
    std::string text(int index) { return ConstAlertRow(list.ListItems(index)).text(); }
    /// The alerts' texts from the top, with a blank between.
    std::string texts() {
        std::string all;
        for (int i = 1; i <= list.Count(); ++i) all += (i > 1 ? " " : "") + text(i);
        return all;
    }
    const std::string& stamp() { return ConstWatchRow(row).firstAlert(); }
    bool blinks() { return forms.sysWorkSystray.tmrSystray.Enabled(); }
    int raised() { return forms.globals.lngAlertsRaised; }
    int high() { return forms.globals.lngHighRatedAlerts; }

    /// Auto save on, with a log file that is there and empty.
    void keepLog() {
        form1.lblLog.setCaption(path);
        form1.chkAutoSave.setValue(1);
        machine.files[path] = "";
    }
    const std::string path = "C:\\Program Files\\Velmora\\log.dat";
    const std::string& log() { return machine.files[path]; }

  private:
    ListItem& watchRow() {
        addWatchColumns(form1.ListView1);
        return form1.ListView1.Add("C:\\");
    }
};

}  // namespace velmora::tests
