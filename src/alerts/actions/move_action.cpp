#include "alerts/actions/move_action.h"

#include "base/drive_text.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "rows/listed_file.h"

namespace velmora {

void MoveAction::run(Shortage& shortage) {
    Form1& form1 = parts_.forms.form1;
    // "No file selected" means that the box has no entries; the rows aren't looked at.
    if (form1.cboFile.ListCount() == 0) {
        shortage.strAlert = "- No Moved File: no file selected.  Drive: " + shortage.drive.Path();
        return;
    }
    const std::string strPath = prcChkDriv(form1.txtDrive.Text());
    for (int j = form1.LVFile.Count(); j >= 1; --j) {
        const std::string strRoot = ConstListedFile(form1.LVFile.ListItems(j)).root();
        if (lowerCase(strRoot) == lowerCase(parts_.row(shortage).path())) {
            take(shortage, j, strPath);
        }
    }
}

// Nothing in here asks the user or lets handlers run, so the row stays at its place.
void MoveAction::take(Shortage& shortage, int place, const std::string& strPath) {
    ListView& files = parts_.forms.form1.LVFile;
    const std::string path = ConstListedFile(files.ListItems(place)).path();
    std::string& strAlert = shortage.strAlert;
    if (!parts_.platform.fso.FileExists(path)) {
        strAlert += "Failed Moved File; file does not exist: " + path + strPath + pieceEnd;
    } else if (hasRoomFor(path, strPath)) {
        // The target is the bare root, which is no name for a file: the call fails and loses
        // nothing. Its result is ignored, and the row is removed.
        parts_.platform.kernel32.MoveFileA(path, strPath);
        strAlert += "Auto Moved File: " + path + " to " + strPath +
                    " Size: " + ConstListedFile(files.ListItems(place)).size() + pieceEnd;
        files.Remove(place);
    } else {
        strAlert += "Not enough free space: " + strPath + " to move file: " + path + pieceEnd;
        files.Remove(place);
    }
    raiseRunningText(parts_, shortage);
}

bool MoveAction::hasRoomFor(const std::string& file, const std::string& strPath) {
    const double available = parts_.platform.fso.GetDrive(strPath)->AvailableSpace();
    return available >
           attempt("measure the file", file, [&] { return parts_.platform.files.FileLen(file); });
}

}  // namespace velmora
