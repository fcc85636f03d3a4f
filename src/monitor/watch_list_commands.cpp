#include "monitor/watch_list_commands.h"

#include <algorithm>

#include "alerts/journal/alert_time.h"
#include "alerts/system/question_in_front.h"
#include "base/convert.h"
#include "base/drive_text.h"
#include "base/resume_next.h"
#include "base/runtime_error.h"
#include "forms/form_numbers.h"
#include "forms/sort_column.h"
#include "monitor/added_path.h"
#include "rows/watch_row.h"

namespace velmora {

WatchListCommands::WatchListCommands(Form1& form1, Globals& globals, Platform& platform, Host& host,
                                     WatchListParts parts)
    : form1_(form1),
      globals_(globals),
      platform_(platform),
      host_(host),
      parts_(parts),
      droppedFolders_(platform.fso, host, parts.stayOnTop) {
    connect();
}

void WatchListCommands::connect() {
    for (Label& label : form1_.lblDP) {
        label.Click.connect([this, index = label.Index()] { lblDP_Click(index); });
    }
    form1_.cmdLVAdd.Click.connect([this] { cmdLVAdd_Click(); });
    form1_.cmdLVRemove.Click.connect([this] { lblDP_Click(watch_button::remove); });
    form1_.cmdClear.Click.connect([this] { lblDP_Click(watch_button::clear); });
    form1_.ListView1.ItemCheck.connect(
        [this](ListItem&) { parts_.watchList.prcLVBold(form1_.ListView1); });
    form1_.ListView1.ColumnClick.connect(
        [this](int column) { prcSortColumn(form1_.ListView1, column); });
    form1_.ListView1.RightClick.connect([this] {
        if (form1_.ListView1.Count() >= 1) form1_.mnuLstV.PopUp();
    });
    // A check disables the list; the drop asks then, as the labels do.
    form1_.ListView1.allowDropsWhileDisabled();
    form1_.ListView1.Drop.connect(
        [this](const std::vector<std::string>& paths) { ListView1_Drop(paths); });
}

void WatchListCommands::guarded(int index, const std::function<void()>& command) {
    try {
        command();
    } catch (const std::exception&) {
        reportError(index, currentRuntimeError().description());
    }
}

void WatchListCommands::lblDP_Click(int index) {
    guarded(index, [&] {
        if (!mayDisturbCheck()) return;
        form1_.ListView1.setEnabled(true);
        run(index);
    });
}

bool WatchListCommands::mayDisturbCheck() {
    if (!globals_.bChecking) return true;
    return host_.MsgBox({.text = "The program is still checking. Performing this action may cause "
                                 "errors.\r\nDo you wish to continue?",
                         .icon = BoxIcon::question,
                         .buttons = BoxButtons::yesNo}) == BoxAnswer::yes;
}

void WatchListCommands::run(int index) {
    switch (index) {
        case watch_button::add:
            return addPath();
        case watch_button::remove:
            return WatchList::removeSelected(form1_.ListView1);
        case watch_button::clear:
            return clearAll();
        case watch_button::selectDrive:
            return selectDrive();
        case watch_button::refresh:
            return parts_.watchList.RefreshDriveExisting();
        default:
            return;
    }
}

void WatchListCommands::reportError(int index, const std::string& description) {
    const std::string text =
        "Drive/Path Button Error Button Index:" + std::to_string(index) + " | " + description;
    resumeNext([&] {
        parts_.alerts.prcAlertInfo(Format(platform_.clock.Now(), alert_time::seconds),
                                   rating::medium, text, {}, nullptr);
    });
}

void WatchListCommands::addPath() {
    form1_.Timer1.setEnabled(false);
    const std::string path = host_.BrowseForFolder("Select Folder/Path");
    // Dismissing the dialog leaves the timer off.
    if (!path.empty()) addChosen(path);
}

void WatchListCommands::addChosen(const std::string& path) {
    if (addWatchedPath(form1_.ListView1, path, platform_, host_)) form1_.Timer1.setEnabled(true);
}

void WatchListCommands::add(const std::string& path) {
    guarded(watch_button::add, [&] {
        form1_.ListView1.setEnabled(true);
        form1_.Timer1.setEnabled(false);
        addChosen(path);
    });
}

void WatchListCommands::ListView1_Drop(const std::vector<std::string>& paths) {
    guarded(watch_button::add, [&] {
        if (!mayDisturbCheck()) return;
        form1_.ListView1.setEnabled(true);
        const std::vector<std::string> folders = droppedFolders_.toWatch(paths);
        for (const std::string& folder : folders) {
            if (!isListed(folder)) add(folder);
        }
        selectListed(folders);
    });
}

bool WatchListCommands::isListed(const std::string& path) const {
    const ListView& list = form1_.ListView1;
    for (int i = 1; i <= list.Count(); ++i) {
        if (ConstWatchRow(list.ListItems(i)).path() == path) return true;
    }
    return false;
}

// The new rows are at the end of the list and not ticked yet: the selection shows which they are.
void WatchListCommands::selectListed(const std::vector<std::string>& paths) {
    if (paths.empty()) return;
    ListView& list = form1_.ListView1;
    for (int i = 1; i <= list.Count(); ++i) {
        WatchRow row(list.ListItems(i));
        row.setSelected(std::find(paths.begin(), paths.end(), row.path()) != paths.end());
    }
}

void WatchListCommands::clearAll() {
    ListView& list = form1_.ListView1;
    if (list.Count() == 0) {
        host_.MsgBox({.text = "No drives listed to clear.", .icon = BoxIcon::information});
        return;
    }
    const BoxAnswer answer =
        askInFront(parts_.stayOnTop, host_,
                   {.text = "Clearing the listed drives with pause Velmora timer. Proceed?",
                    .icon = BoxIcon::question,
                    .buttons = BoxButtons::yesNo});
    if (answer != BoxAnswer::yes) return;
    form1_.cmdPause.Click();
    list.Clear();
}

void WatchListCommands::selectDrive() {
    ListItem* row = form1_.ListView1.SelectedItem();
    if (row == nullptr) throw RuntimeError(error::objectRequired);
    parts_.driveMeter.prcShowfrmIndDri(ConstWatchRow(*row).path());
    parts_.driveMeter.prcSrvMeter(*row);
}

void WatchListCommands::cmdLVAdd_Click() {
    const std::string path =
        host_.OpenFileDialog({.DialogTitle = "Folder/Path ", .InitDir = platform_.app.Path});
    if (!path.empty()) form1_.ListView1.Add(path);
}

}  // namespace velmora
