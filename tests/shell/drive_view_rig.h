// The view of one drive, of two that are watched.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fake/fake_host.h"
#include "fake/fake_machine.h"
#include "rows/watch_columns.h"
#include "rows/watch_row.h"
#include "shell/drive_view.h"

namespace velmora::tests {

struct DriveViewRig : testing::Test {
    fake::FakeMachine machine;
    fake::FakeHost host;
    Forms forms;
    FrmIndDri& view = forms.frmIndDri;
    Form1& form1 = forms.form1;
    DriveMeter meter{form1, view, machine.platform().fso, machine.platform().regional};
    DriveView driveView{forms, machine.platform(), host, meter};

    DriveViewRig() {
        addWatchColumns(form1.ListView1);
        machine.drives["C:"] = {600, 1000};
        machine.drives["D:"] = {0, 1000};
        addRow("C:\\", "600 KB", "1,000 KB");
        addRow("D:\\data", "0 KB", "2,000 KB");
        form1.ListView1.ListItems(1).setSelected(true);
    }
    void addRow(const std::string& path, const std::string& free, const std::string& total) {
        WatchRow row(form1.ListView1.Add(path));
        row.setFreeSpace(free);
        row.setTotalSize(total);
    }
    std::string trigger(int row) { return ConstWatchRow(form1.ListView1.ListItems(row)).trigger(); }
    void answerYes() { host.answers.push_back(BoxAnswer::yes); }
};

}  // namespace velmora::tests
