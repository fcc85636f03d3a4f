// The notification on a machine and a user in memory, with an account that is filled in.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "base/errors.h"
#include "fake/fake_host.h"
#include "fake/fake_machine.h"
#include "notify/notify.h"
#include "rows/alert_row.h"

namespace velmora::tests {

using Texts = std::vector<std::string>;

struct NotifyRig {
    fake::FakeMachine machine;
    fake::FakeHost host;
    fake::FakeNotifyArea notifyArea;
    Forms forms;
    Form1& form1 = forms.form1;
    FrmNotify& form = forms.frmNotify;
    Platform& platform = machine.platform();
    LogFile logFile{platform};
    AlertList alerts{forms, platform, logFile, notifyArea};
    Inventory inventory{platform, host};
    MessageContent content{forms, platform, host, inventory};

    /// Ticks these sections of the mail.
    void select(std::initializer_list<int> sections) {
        for (const int section : sections) form.lstNotContent.setSelected(section, true);
    }
    /// The texts of the alerts, newest first.
    Texts alertTexts() {
        Texts texts;
        for (int i = 1; i <= form1.LVAlert.Count(); ++i) {
            texts.push_back(ConstAlertRow(form1.LVAlert.ListItems(i)).text());
        }
        return texts;
    }
};

}  // namespace velmora::tests
