// The actions on a shortage on a machine and a user in memory: three drives, watched rows, listed
// files, and a short row to act for.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "alerts/actions/action_branch.h"
#include "base/errors.h"
#include "base/text.h"
#include "fake/fake_surface.h"
#include "rows/alert_row.h"
#include "rows/listed_file.h"
#include "rows/watch_columns.h"
#include "rows/watch_row.h"

namespace velmora::tests {

struct ActionRig {
    static constexpr double KB = 1024;
    static constexpr const char* minutes = "20260314 15:09";
    static constexpr const char* dateTime = "03/14/26 15:09:26";
    static constexpr const char* shortageText = " - ALERT";

    fake::FakeMachine machine;
    fake::FakeHost host;
    fake::FakeNotifyArea notifyArea;
    fake::FakeUser32 user32;
    Forms forms;
    Form1& form1 = forms.form1;
    ListView& list = forms.form1.ListView1;
    ListView& files = forms.form1.LVFile;
    LogFile logFile{machine.platform()};
    AlertList alerts{forms, machine.platform(), logFile, notifyArea};
    SystemActions system{form1, machine.platform(), user32};
    ActionParts parts{.forms = forms,
                      .platform = machine.platform(),
                      .host = host,
                      .alerts = alerts,
                      .system = system};
    Actions actions{parts};
    FileActions fileActions{parts};
    std::vector<std::string> done;  ///< clicks on the button that starts and pauses the watch
    std::unique_ptr<Drive> drive;
    std::unique_ptr<Shortage> shortage;

    /// The row of C: is short; D: has room. A check is running.
    ActionRig() {
        for (const char* path : {"C:", "D:", "E:"}) machine.drives[path] = {1000 * KB, 1e9};
        addWatchColumns(list);
        watch("C:\\");
        form1.txtDrive.setText("D:\\store\\old");
        form1.txtSpace.setText("5000");
        forms.globals.bChecking = true;
        form1.cmdPause.Click.connect([this] {
            done.push_back(form1.Timer1.Enabled() ? "pause, running" : "pause, stopped");
        });
        shortOf(1);
    }

    ListItem& watch(const std::string& path, const std::string& freeSpace = "1,000 KB") {
        ListItem& row = list.Add(path);
        WatchRow(row).setFreeSpace(freeSpace);
        return row;
    }
    /// That row is the short one, and its first alert has been raised.
    void shortOf(int row) {
        drive = machine.platform().fso.GetDrive("C:");
        shortage.reset(new Shortage{.row = row,
                                    .rowText = list.ListItems(row).Text(),
                                    .drive = *drive,
                                    .lngMinSpace = 5000,
                                    .strAlert = shortageText,
                                    .strStamp = "stamp",
                                    .strNote = ""});
        WatchRow(list.ListItems(row)).setFirstAlert(shortageText);
        machine.log.clear();
    }
    /// The short row watches that text.
    void shortRowWatches(const std::string& text) {
        list.ListItems(shortage->row).setText(text);
        shortage->rowText = text;
    }
    /// A row of LVFile whose path doesn't exist.
    ListItem& listMissing(const std::string& path, const std::string& size = "n/a") {
        ListItem& row = files.Add(path);
        ListedFile(row).setPath(path);
        ListedFile(row).setSize(size, "");
        return row;
    }
    /// A listed file of that many bytes.
    ListItem& listFile(const std::string& path, double bytes = 3,
                       const std::string& size = "7 KB") {
        machine.files[path] = "abc";
        machine.sizes[path] = bytes;
        return listMissing(path, size);
    }
    /// A listed folder with files of one byte in it.
    ListItem& listFolder(const std::string& path, const std::vector<std::string>& names) {
        machine.folders.insert(lowerCase(path));
        for (const std::string& name : names) machine.files[path + "\\" + name] = "x";
        return listMissing(path, "0 KB");
    }
    /// Adds an entry to the box beside the list; the action that moves depends on its entries.
    void selectFiles() { form1.cboFile.AddItem("any"); }

    void run(int action) { actions.table().run(action, *shortage); }
    /// The error's number; 0 for none.
    int errorOf(int action) {
        try {
            run(action);
            return 0;
        } catch (const RuntimeError& failure) {
            return failure.number();
        }
    }
    const std::string& strAlert() { return shortage->strAlert; }
    int alertCount() { return form1.LVAlert.Count(); }
    /// "rating | time | text", the newest first.
    std::string alert(int index) {
        const ConstAlertRow row(form1.LVAlert.ListItems(index));
        return row.rating() + " | " + row.time() + " | " + row.text();
    }
    /// The paths of LVFile from the top, with a blank between.
    std::string listed() {
        std::string all;
        for (int i = 1; i <= files.Count(); ++i) {
            all += (i > 1 ? " " : "") + ConstListedFile(files.ListItems(i)).path();
        }
        return all;
    }
    const std::string& panel(int index) { return form1.StatusBar1.Panels(index).Text; }
    bool exists(const std::string& path) { return machine.files.count(path) > 0; }
    static std::string medium(const std::string& text) {
        return "Medium | " + std::string(minutes) + " | " + text;
    }
    static std::string note(const std::string& text) {
        return "High | " + std::string(dateTime) + " | " + text;
    }
};

}  // namespace velmora::tests
