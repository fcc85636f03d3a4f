// The activity log on a machine and a user in memory, with a record of all calls in their order.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "alerts/journal/journal_log.h"
#include "base/errors.h"
#include "base/text.h"
#include "fake/alert_ports.h"
#include "fake/fake_host.h"
#include "fake/fake_machine.h"
#include "forms/forms.h"

namespace velmora::tests {

struct LogRig {
    using Steps = std::vector<std::string>;

    Steps steps;  ///< boxes, calls of the machine, and changes of the main window's staying on top
    fake::FakeMachine machine;
    fake::FakeHost host;
    fake::RecordedStayOnTop onTop{steps};
    Forms forms;
    Form1& form1 = forms.form1;
    TextBox& journal = forms.form1.txtAlert;
    LogFile logFile{machine.platform()};
    JournalLog log{forms.form1, machine.platform(), logFile, host, onTop};
    const std::string path = "C:\\Program Files\\Velmora\\log.dat";

    LogRig() {
        machine.onCall = [this](const std::string& call) { steps.push_back(call); };
        host.onBox = [this](const Box&) { steps.push_back("box"); };
        form1.lblLog.setCaption(path);
        form1.chkAutoSave.setValue(1);
    }

    /// An entry as the check and the buttons write them.
    void enter(const std::string& text) { journal.prepend(text + "\r\n . \r\n"); }
    /// Clicks the button of that caption on the log page.
    void click(const std::string& caption) {
        for (Label& label : form1.lblAl) {
            if (label.Caption() == caption) return label.userClick();
        }
        FAIL() << "no button " << caption;
    }
    void answer(BoxAnswer one) { host.answers.push_back(one); }

    bool hasFile() const { return machine.files.count(path) > 0; }
    std::string file() const { return hasFile() ? machine.files.at(path) : "no file"; }
    const std::string& mark() const { return journal.Tag(); }
};

}  // namespace velmora::tests
