#include "alerts/lists/program_list.h"

#include <utility>

#include "alerts/lists/listed_rows.h"
#include "base/resume_next.h"
#include "forms/sort_column.h"
#include "rows/listed_program.h"

namespace velmora {

ProgramList::ProgramList(ListView& LVProg, ComboBox& cboProg, FileSystemObject& fso, Host& host)
    : list_(LVProg), box_(cboProg), fso_(fso), host_(host) {
    list_.ColumnClick.connect([this](int column) { prcSortColumn(list_, column); });
    list_.Drop.connect([this](const std::vector<std::string>& paths) { drop(paths); });
    box_.Drop.connect(
        [this](const std::vector<std::string>& paths) { takeDroppedPaths(box_, paths); });
}

bool ProgramList::boxNamesFile() {
    const std::string& text = box_.Text();
    if (text.empty()) return false;
    if (fso_.FileExists(text)) return true;
    host_.MsgBox({.text = "File does not exists.", .icon = BoxIcon::critical});
    return false;
}

void ProgramList::addEntry() {
    box_.AddItem(box_.Text());
}

void ProgramList::addRow() {
    const std::string path = box_.Text();
    addRow(fso_.GetFileName(path), path);
}

void ProgramList::addRow(std::string text, const std::string& path) {
    ListedProgram row(list_.Add(std::move(text)));
    row.setPath(path);
    row.setAction("Execute");
    // A field that can't be read doesn't keep the program from being listed.
    resumeNext([&] {
        const auto file = fso_.GetFile(path);
        row.setLocation(file->ParentFolder());
        row.setType(file->Type());
    });
}

void ProgramList::browse() {
    const std::string chosen = host_.OpenFileDialog({.DialogTitle = "Choose File/Folder ",
                                                     .InitDir = "c:\\",
                                                     .Filter = "All Files (*.*)|*.*",
                                                     .Flags = file_dialog::explorer});
    if (!chosen.empty()) box_.setText(chosen);
}

// A single path is only put into the box; "Add" lists it from there.
void ProgramList::drop(const std::vector<std::string>& paths) {
    if (paths.size() == 1) {
        box_.setText(paths.front());
        return;
    }
    for (const std::string& path : paths) {
        if (fso_.FileExists(path)) addRow(path, path);
    }
}

}  // namespace velmora
