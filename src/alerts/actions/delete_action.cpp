#include "alerts/actions/delete_action.h"

#include "alerts/lists/listed_folder.h"
#include "base/runtime_error.h"
#include "base/scope_guard.h"
#include "base/text.h"
#include "rows/listed_file.h"

namespace velmora {

namespace {

// The walk found no file.
constexpr int none = 0;

}  // namespace

void DeleteAction::run(Shortage& shortage) {
    if (parts_.forms.form1.LVFile.Count() == 0) {
        shortage.strAlert = "- No Deleted File: no file selected.  Drive: " + shortage.drive.Path();
        return;
    }
    const int place = walk(shortage);
    if (place != none) deleteFile(shortage, place);
}

// Returns the place of the first file; folders in front of it are deleted on the way. Nothing here
// or after it asks the user or lets handlers run, as removing is done without the shell: a row
// stays at its place until it is removed here.
int DeleteAction::walk(Shortage& shortage) {
    Form1& form1 = parts_.forms.form1;
    FileSystemObject& fso = parts_.platform.fso;
    std::string rowPath;
    const int count = form1.LVFile.Count();
    for (int j = 1; j <= count; ++j) {
        if (!parts_.forms.globals.bChecking) {
            form1.StatusBar1.setPanelText(2, "Ready (e3): ");
            return none;
        }
        const ConstListedFile listed(form1.LVFile.ListItems(j));
        const std::string& path = listed.path();
        if (!isOfRow(listed.root(), shortage, rowPath)) continue;
        if (fso.FileExists(path)) return j;
        if (fso.FolderExists(path)) deleteFolder(shortage, j);
    }
    return none;
}

// The machine is asked for `rowPath` once in a walk, at the first row.
bool DeleteAction::isOfRow(const std::string& root, const Shortage& shortage,
                           std::string& rowPath) {
    if (rowPath.empty()) {
        const std::string text = parts_.row(shortage).path();
        rowPath = lowerCase(parts_.platform.fso.GetFolder(text)->Path());
    }
    return lowerCase(root) == rowPath;
}

void DeleteAction::deleteFolder(Shortage& shortage, int place) {
    ListView& files = parts_.forms.form1.LVFile;
    const std::string path = ConstListedFile(files.ListItems(place)).path();
    const auto folder = folderToDelete(parts_.platform.fso, path);
    const auto bytes = contentToDelete(*folder);
    std::string& strAlert = shortage.strAlert;
    if (bytes) {
        strAlert += pieceEnd + ("Auto Deleted Specified Folder: " + path) + " | [" +
                    folderSizeText(*bytes, parts_.platform.regional) + "]";
        folder->Delete(true);
    } else {
        strAlert += pieceEnd + ("- No Folder Found or No Content in Folder: " + path);
    }
    files.Remove(place);
    raiseRunningText(parts_, shortage);
}

void DeleteAction::deleteFile(Shortage& shortage, int place) {
    ListView& files = parts_.forms.form1.LVFile;
    const std::string path = ConstListedFile(files.ListItems(place)).path();
    attempt("delete the file", path, [&] { parts_.platform.files.remove(path); });
    const std::string deleted = "Auto Deleted Specified File: " + path;
    shortage.strAlert +=
        pieceEnd + deleted + " Size: " + ConstListedFile(files.ListItems(place)).size();
    // The file is gone: its row is removed even when the alert fails, so that no later file of that
    // path is taken for it.
    const ScopeGuard dropRow([&] { files.Remove(place); });
    raiseForRow(parts_, shortage, deleted);
}

}  // namespace velmora
