#include "alerts/lists/file_list_buttons.h"

#include "alerts/lists/listed_rows.h"
#include "base/resume_next.h"
#include "forms/form_numbers.h"
#include "rows/listed_file.h"

namespace velmora {

// Command2 has an empty handler.
FileListButtons::FileListButtons(Form1& form1, Host& host, FileList& files,
                                 SystemActions& systemActions)
    : form1_(form1), host_(host), files_(files), systemActions_(systemActions) {
    for (Label& label : form1_.lblSF) {
        label.Click.connect([this, index = label.Index()] { lblSF_Click(index); });
    }
    form1_.mnuFileAttr.Click.connect([this] { showAttributes(); });
    form1_.LVFile.RightClick.connect([this] {
        if (form1_.LVFile.Count() >= 1) form1_.mnuLst.PopUp();
    });
    form1_.LVFile.Drop.connect([this](const std::vector<std::string>& paths) {
        files_.drop(form1_.LVFile, form1_.cboFile, paths);
    });
    form1_.cboFile.Drop.connect(
        [this](const std::vector<std::string>& paths) { takeDroppedPaths(form1_.cboFile, paths); });
}

void FileListButtons::lblSF_Click(int index) {
    switch (index) {
        case file_button::add:
        case file_button::browse:
            return addFiles();
        case file_button::remove:
            return removeSelectedRow(form1_.LVFile, host_);
        case file_button::move:
            return form1_.cmdMove.Click();
        case file_button::deleteFile:
            return form1_.cmdDelete.Click();
        case file_button::clear:
            return form1_.LVFile.Clear();
        case file_button::deleteAll:
            return form1_.cmdDeleteAll.Click();
        case file_button::moveAll:
            return form1_.cmdMoveAll.Click();
        case file_button::attributes:
            return showAttributes();
        default:
            return;
    }
}

// The watch is paused meanwhile, so that no check changes the list while the dialog is open.
void FileListButtons::addFiles() {
    const bool rests = form1_.cmdPause.Caption() == watch_caption::pause;
    if (rests) form1_.cmdPause.Click();
    std::string strFile;
    FileDialog dialog;
    try {
        files_.GetFiles(form1_.LVFile, form1_.cboFile, strFile, dialog);
    } catch (const std::exception&) {
        if (rests) resumeNext([this] { resumeWatch(); });
        throw;
    }
    if (rests) resumeWatch();
}

// The custom watch time may have started it already: another click would pause it again.
void FileListButtons::resumeWatch() {
    if (form1_.cmdPause.Caption() != watch_caption::pause) form1_.cmdPause.Click();
}

void FileListButtons::showAttributes() {
    const ListItem* row = form1_.LVFile.SelectedItem();
    if (row == nullptr) return;
    systemActions_.prcShowProperties(ConstListedFile(*row).path(), form1_.Name());
}

}  // namespace velmora
