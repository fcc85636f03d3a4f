#include "shell/wizard/wizard_rules.h"

#include "alerts/lists/listed_rows.h"
#include "alerts/lists/specified_path.h"
#include "base/resume_next.h"
#include "base/text.h"
#include "forms/sort_column.h"
#include "monitor/added_path.h"
#include "monitor/watch_times.h"
#include "rows/listed_program.h"

namespace velmora {

WizardRules::WizardRules(Forms& forms, Platform& platform, Host& host, FileList& files,
                         Monitor& monitor)
    : form_(forms.frmWizard),
      platform_(platform),
      host_(host),
      files_(files),
      monitor_(monitor),
      minimumSpace_({.space = form_.txtFreeSpace,
                     .OpDriv = form_.OpDriv,
                     .chkDrive = form_.chkDrive,
                     .Slider1 = form_.Slider1,
                     .UpDownSpace = form_.UpDownSpace,
                     .lblMB = form_.lblMB,
                     .lblGB = form_.lblGB,
                     .list = form_.ListView1},
                    platform.regional, host),
      actions_({.lstAct = form_.lstAct, .txtDrive = form_.txtDrive, .list = form_.ListView1},
               forms.frmNotify, host),
      programs_(form_.LVProg, form_.cboProg, platform.fso, host),
      recipients_(
          form_.cboNotEmail,
          {.cmdAdd = form_.cmdAdd, .cmdRemove = form_.cmdRemove, .cmdClear = form_.cmdClear}) {
    connectWatchList();
    connectPrograms();
    connectFiles();
    connectTimes();
    form_.cmdFolder.Click.connect([this] { chooseSpecifiedPath(form_.txtDrive, host_); });
}

void WizardRules::connect() {
    minimumSpace_.connect();
    actions_.connect();
    // After the rules, which enable and disable.
    for (Event<>* changed :
         {&form_.chkDrive.Click, &form_.lstAct.Click, &form_.chkCustTime.Click}) {
        reasons_.emplace_back(changed->connect([this] { showReasons(); }));
    }
    showReasons();
}

void WizardRules::disconnect() {
    minimumSpace_.disconnect();
    actions_.disconnect();
    reasons_.clear();
}

void WizardRules::showReasons() {
    form_.lblSpaceWhy.setVisible(!form_.txtFreeSpace.Enabled());
    form_.lblDriveWhy.setVisible(!form_.txtDrive.Enabled());
    form_.lblTimeWhy.setVisible(!form_.DTTime1[0].Enabled());
}

void WizardRules::connectWatchList() {
    ListView& list = form_.ListView1;
    list.ItemCheck.connect([this](ListItem&) { monitor_.watchList().prcLVBold(form_.ListView1); });
    list.ColumnClick.connect([&list](int column) { prcSortColumn(list, column); });
    list.Drop.connect([this](const std::vector<std::string>& paths) {
        DroppedFolders& dropped = monitor_.watchListCommands().droppedFolders();
        for (const std::string& path : dropped.toWatch(paths)) addPath(path);
    });
    form_.cmdLVAdd.Click.connect([this] { browseForPath(); });
    form_.cmdLVRemove.Click.connect([&list] { WatchList::removeSelected(list); });
}

void WizardRules::browseForPath() {
    const std::string path = host_.BrowseForFolder("Select Folder/Path");
    if (!path.empty()) addPath(path);
}

// Who adds a path here wants it watched. A path whose figures can't be had is listed all the same.
void WizardRules::addPath(const std::string& path) {
    if (tickListed(path)) return;
    resumeNext([&] { addWatchedPath(form_.ListView1, path, platform_, host_); });
    tickListed(path);
}

bool WizardRules::tickListed(const std::string& path) {
    for (int i = 1; i <= form_.ListView1.Count(); ++i) {
        ListItem& row = form_.ListView1.ListItems(i);
        if (lowerCase(row.Text()) != lowerCase(path)) continue;
        row.setChecked(true);
        form_.ListView1.ItemCheck(row);
        return true;
    }
    return false;
}

void WizardRules::connectPrograms() {
    form_.cmdPBrowse.Click.connect([this] { programs_.browse(); });
    form_.cmdPAdd.Click.connect([this] { addProgram(); });
    form_.cmdPRem.Click.connect([this] { removeProgram(); });
}

void WizardRules::addProgram() {
    if (!programs_.boxNamesFile()) return;
    programs_.addEntry();
    programs_.addRow();
}

// The entry goes with the row.
void WizardRules::removeProgram() {
    const ListItem* row = form_.LVProg.SelectedItem();
    const std::string path = row == nullptr ? std::string() : ConstListedProgram(*row).path();
    removeSelectedRow(form_.LVProg, host_);
    for (int i = form_.cboProg.ListCount() - 1; i >= 0 && !path.empty(); --i) {
        if (form_.cboProg.List(i) == path) return form_.cboProg.RemoveItem(i);
    }
}

void WizardRules::connectFiles() {
    ListView& list = form_.LVFile;
    list.ColumnClick.connect([&list](int column) { prcSortColumn(list, column); });
    list.Drop.connect([this](const std::vector<std::string>& paths) {
        files_.drop(form_.LVFile, form_.cboFile, paths);
    });
    form_.cboFile.Drop.connect(
        [this](const std::vector<std::string>& paths) { takeDroppedPaths(form_.cboFile, paths); });
    form_.cmdFAdd.Click.connect([this] { addFiles(); });
    form_.cmdFRem.Click.connect([this] { removeSelectedRow(form_.LVFile, host_); });
}

// Without a text the files are chosen.
void WizardRules::addFiles() {
    if (!form_.cboFile.Text().empty()) return files_.prcAddItem2LV(form_.LVFile, form_.cboFile);
    std::string strFile;
    FileDialog dialog;
    files_.GetFiles(form_.LVFile, form_.cboFile, strFile, dialog);
}

void WizardRules::connectTimes() {
    form_.chkCustTime.Click.connect([this] { enableWatchTimes(form_.chkCustTime, form_.DTTime1); });
    form_.UpDown1.UpClick.connect([this] { stepSeconds(form_.txtTime, 1, platform_.regional); });
    form_.UpDown1.DownClick.connect([this] { stepSeconds(form_.txtTime, -1, platform_.regional); });
}

}  // namespace velmora
