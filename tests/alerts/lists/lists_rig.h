// The specified files and programs with all their buttons, on a machine and a user in memory.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "alerts/lists/file_list_buttons.h"
#include "alerts/lists/manual_operations.h"
#include "alerts/lists/program_list_buttons.h"
#include "base/text.h"
#include "fake/alert_ports.h"
#include "fake/fake_surface.h"
#include "rows/alert_row.h"
#include "rows/listed_file.h"

namespace velmora::tests {

struct ListsRig {
    fake::FakeMachine machine;
    fake::FakeHost host;
    fake::FakeNotifyArea notifyArea;
    fake::FakeUser32 user32;
    /// What happened, in order: calls of the machine, boxes, ticks of the check, starts and pauses
    /// of the watch, showings of the alert dialog, and the main window's staying in front.
    std::vector<std::string> order;
    fake::RecordedStayOnTop onTop{order};
    fake::FakeWorkArea screen;
    Forms forms;
    Form1& form1 = forms.form1;
    ListView& list = forms.form1.LVFile;
    ListView& programRows = forms.form1.LVProg;
    LogFile logFile{machine.platform()};
    AlertList alerts{forms, machine.platform(), logFile, notifyArea};
    SystemActions systemActions{form1, machine.platform(), user32};
    FileList files{machine.platform().fso, machine.platform().regional, host};
    FileListButtons buttons{form1, host, files, systemActions};
    ProgramList programs{form1.LVProg, form1.cboProg, machine.platform().fso, host};
    ProgramListButtons programButtons{form1, programs, machine.platform().fso,
                                      machine.platform().shell32, host};
    AlertDialogWindow dialog{form1, forms.dlgAlert, screen};
    ManualOperations manual{{.form1 = form1,
                             .dlgAlert = forms.dlgAlert,
                             .platform = machine.platform(),
                             .host = host,
                             .alerts = alerts,
                             .systemActions = systemActions,
                             .alertDialog = dialog,
                             .stayOnTop = onTop,
                             .hints = forms.hints}};

    ListsRig() {
        machine.drives["C:"] = {1e9, 2e9};
        machine.drives["E:"] = {1e9, 2e9};
        machine.folders.insert("c:\\data");
        machine.folders.insert("e:\\spare");
        form1.txtDrive.setText("E:\\spare\\");
        form1.cmdPause.Click.connect([this] {
            CommandButton& button = form1.cmdPause;
            button.setCaption(button.Caption() == "Pause Watch" ? "Start Watch" : "Pause Watch");
            order.push_back("watch: " + button.Caption());
        });
        form1.Timer1.Tick.connect([this] { order.push_back("tick"); });
        forms.dlgAlert.Raised.connect([this] { order.push_back("dialog shown"); });
        machine.onCall = [this](const std::string& call) { order.push_back(call); };
        host.onBox = [this](const Box& box) { order.push_back("box: " + box.text); };
        host.onDialog = [this](const std::string& title) { order.push_back("browse: " + title); };
    }

    /// A file of that many bytes.
    void file(const std::string& path, std::size_t bytes = 3) {
        machine.files[path] = std::string(bytes, 'x');
    }
    /// A folder with one file of that many bytes in it.
    void fullFolder(const std::string& path, std::size_t bytes = 1536) {
        machine.folders.insert(lowerCase(path));
        file(path + "\\inside.bin", bytes);
    }
    /// A row as the actions see it.
    ListItem& row(const std::string& tag, bool selected = false) {
        ListItem& added = list.Add(fileNameOf(tag));
        ListedFile(added).setPath(tag);
        added.setSelected(selected);
        return added;
    }
    /// An existing file with its row.
    void listedFile(const std::string& path, bool selected = false) {
        file(path);
        row(path, selected);
    }
    /// Forgets the calls so far.
    void forget() {
        order.clear();
        machine.log.clear();
        host.boxes.clear();
    }

    std::vector<std::string> tags() const { return tagsOf(list); }
    static std::vector<std::string> tagsOf(const ListView& rows) {
        std::vector<std::string> all;
        for (int i = 1; i <= rows.Count(); ++i) all.push_back(rows.ListItems(i).Tag());
        return all;
    }
    /// The texts of the boxes.
    std::vector<std::string> said() const {
        std::vector<std::string> all;
        for (const Box& box : host.boxes) all.push_back(box.text);
        return all;
    }
    /// The alerts from the top: time, rating and text.
    std::vector<std::string> alertRows() const {
        std::vector<std::string> all;
        const ListView& rows = forms.form1.LVAlert;
        for (int i = 1; i <= rows.Count(); ++i) {
            const ConstAlertRow each(rows.ListItems(i));
            all.push_back(each.time() + " | " + each.rating() + " | " + each.text());
        }
        return all;
    }
    static std::string mediumAlert(const std::string& text) {
        return "20260314 15:09 | Medium | " + text;
    }
    static std::string entry(const std::string& text) {
        return "03/14/26 15:09:26" + text + "\r\n . \r\n";
    }
    const std::string& journal() const { return forms.form1.txtAlert.Text(); }
    const std::string& dialogText() const { return forms.dlgAlert.Label1.Text(); }
    int count(const std::string& call) const {
        int found = 0;
        for (const std::string& each : order) found += each == call ? 1 : 0;
        return found;
    }
    /// The file system's paths, files with their content.
    std::map<std::string, std::string> disk() const {
        std::map<std::string, std::string> all(machine.files.begin(), machine.files.end());
        for (const std::string& folder : machine.folders) all[folder + "\\"] = "";
        return all;
    }
};

inline const std::string missingQuestion =
    "The file/folder you are attempting to add does not exists: \r\nC:\\gone.txt\r\nAdd anyway?";

}  // namespace velmora::tests
