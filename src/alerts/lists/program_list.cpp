#include "alerts/lists/program_list.h"

#include <utility>

#include "alerts/lists/listed_rows.h"
#include "base/resume_next.h"
#include "base/text.h"
#include "forms/form_numbers.h"
#include "forms/sort_column.h"
#include "platform/show_window.h"
#include "rows/listed_program.h"

namespace velmora {

ProgramList::ProgramList(Form1& form1, FileSystemObject& fso, Shell32& shell32, Host& host)
    : form1_(form1), fso_(fso), shell32_(shell32), host_(host) {
    connect();
}

void ProgramList::connect() {
    for (Label& label : form1_.Label5) {
        label.Click.connect([this, index = label.Index()] { Label5_Click(index); });
    }
    form1_.cmdPAdd.Click.connect([this] { cmdPAdd_Click(); });
    form1_.LVProg.ColumnClick.connect([this](int column) { prcSortColumn(form1_.LVProg, column); });
    form1_.LVProg.Drop.connect([this](const std::vector<std::string>& paths) { drop(paths); });
    form1_.cboProg.Drop.connect(
        [this](const std::vector<std::string>& paths) { takeDroppedPaths(form1_.cboProg, paths); });
}

void ProgramList::Label5_Click(int index) {
    switch (index) {
        case program_button::add:
            return addFromBox();
        case program_button::remove:
            return removeSelectedRow(form1_.LVProg, host_);
        case program_button::clear:
            return form1_.LVProg.Clear();
        case program_button::run:
            return runSelected();
        case program_button::browse:
            return browse();
        default:
            return;
    }
}

// An empty text is no error; one that names no file is reported.
bool ProgramList::boxNamesFile() {
    const std::string& text = form1_.cboProg.Text();
    if (text.empty()) return false;
    if (fso_.FileExists(text)) return true;
    host_.MsgBox({.text = "File does not exists.", .icon = BoxIcon::critical});
    return false;
}

void ProgramList::cmdPAdd_Click() {
    if (boxNamesFile()) form1_.cboProg.AddItem(form1_.cboProg.Text());
}

void ProgramList::addFromBox() {
    if (!boxNamesFile()) return;
    const std::string path = form1_.cboProg.Text();
    addRow(fso_.GetFileName(path), path);
}

void ProgramList::addRow(std::string text, const std::string& path) {
    ListedProgram row(form1_.LVProg.Add(std::move(text)));
    row.setPath(path);
    row.setAction("Execute");
    // A field that can't be read doesn't keep the program from being listed.
    resumeNext([&] {
        const auto file = fso_.GetFile(path);
        row.setLocation(file->ParentFolder());
        row.setType(file->Type());
    });
}

void ProgramList::runSelected() {
    if (form1_.LVProg.Count() == 0) {
        host_.MsgBox({.text = "No listed item."});
        return;
    }
    const ListItem* row = form1_.LVProg.SelectedItem();
    if (row == nullptr) return;
    const std::string path = ConstListedProgram(*row).path();
    std::string outcome = " - Specified Program Execution Failed (File Does Not Exist): ";
    if (fso_.FileExists(path)) {
        shell32_.ShellExecuteA(form1_.Name(), "open", path, "", "", normalWindow);
        outcome = " - Specified Program Executed: ";
    }
    const std::string end(lineEnd);
    form1_.txtAlert.prepend(outcome + end + path + end + end + " . " + end);
}

void ProgramList::browse() {
    const std::string chosen = host_.OpenFileDialog({.DialogTitle = "Choose File/Folder ",
                                                     .InitDir = "c:\\",
                                                     .Filter = "All Files (*.*)|*.*",
                                                     .Flags = file_dialog::explorer});
    if (!chosen.empty()) form1_.cboProg.setText(chosen);
}

// A single path is only put into the box; "Add" lists it from there.
void ProgramList::drop(const std::vector<std::string>& paths) {
    if (paths.size() == 1) {
        form1_.cboProg.setText(paths.front());
        return;
    }
    for (const std::string& path : paths) {
        if (fso_.FileExists(path)) addRow(path, path);
    }
}

}  // namespace velmora
