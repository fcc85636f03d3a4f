#include "alerts/lists/file_list.h"

#include "base/convert.h"
#include "base/drive_text.h"
#include "base/resume_next.h"
#include "base/text.h"

namespace velmora {

namespace {

std::string joined(const std::string& folder, const std::string& name) {
    return folder.ends_with('\\') ? folder + name : folder + '\\' + name;
}

Box questionAboutMissing(const std::string& path) {
    return {.text = "The file/folder you are attempting to add does not exists: \r\n" + path +
                    "\r\nAdd anyway?",
            .icon = BoxIcon::question,
            .buttons = BoxButtons::yesNo};
}

}  // namespace

ListedFile FileList::addBareRow(ListView& list, const std::string& path) {
    ListedFile row(list.Add(fso_.GetFileName(path)));
    row.setPath(path);
    row.setNoSize();
    return row;
}

// All but the size. A field that can't be read doesn't keep the path from being listed.
void FileList::showEntry(ListedFile row, PathEntry& entry) {
    const auto shown = [this](const DateTime& time) { return dateText(time, regional_); };
    resumeNext([&] { row.setLocation(entry.ParentFolder()); },
               [&] { row.setAccessed(shown(entry.DateLastAccessed())); },
               [&] { row.setModified(shown(entry.DateLastModified())); },
               [&] { row.setCreated(shown(entry.DateCreated())); },
               [&] { row.setType(entry.Type()); });
}

void FileList::showFile(ListedFile row, const std::string& path) {
    const auto file = fso_.GetFile(path);
    resumeNext([&] {
        const double bytes = file->Size();
        row.setSize(kilobyteText(bytes, Grouping::regional, regional_), toText(bytes, regional_));
    });
    showEntry(row, *file);
}

void FileList::showFolder(ListedFile row, const std::string& path) {
    const auto folder = fso_.GetFolder(path);
    // A whole drive may take a while to measure.
    const Busy busy(host_);
    resumeNext([&] {
        const double bytes = folder->Size();
        row.setSize(folderSizeText(bytes, regional_), toText(bytes, regional_));
    });
    showEntry(row, *folder);
}

// Runs at the start of the program too, so a failing question must not end it. A folder's size is
// left out, since measuring it means a walk through the whole tree.
void FileList::prcAllLV(ListView& list, const std::string& strPath) {
    if (strPath.empty()) return;
    const ListedFile row = addBareRow(list, strPath);
    resumeNext([&] {
        if (fso_.FileExists(strPath)) {
            showFile(row, strPath);
        } else if (fso_.FolderExists(strPath)) {
            showEntry(row, *fso_.GetFolder(strPath));
        }
    });
}

std::vector<std::string> FileList::GetFiles(ListView& lvFile, const ComboBox& cboList,
                                            std::string& strFile, FileDialog& objDlg) {
    const std::string& text = cboList.Text();
    strFile.clear();
    if (text.empty()) {
        objDlg.DialogTitle = "Choose File/Folder ";
        objDlg.Flags = file_dialog::explorer | file_dialog::allowMultiselect;
        objDlg.InitDir = "c:\\";
        objDlg.Filter = "All Files (*.*)|*.*";
        strFile = host_.OpenFileDialog(objDlg);
    } else if (const std::string bare = withoutLineEnds(text); fso_.FileExists(bare)) {
        strFile = fso_.WithoutLinks(bare);
    }
    return addChosen(lvFile, strFile);
}

std::vector<std::string> FileList::addChosen(ListView& list, const std::string& names) {
    const auto folderEnd = names.find('\0');
    if (folderEnd == std::string::npos) {
        prcAllLV(list, names);
        return names.empty() ? std::vector<std::string>{} : std::vector{names};
    }
    const std::string folder = names.substr(0, folderEnd);
    std::vector<std::string> added;
    for (const std::string& name : split(names.substr(folderEnd + 1), std::string_view("\0", 1))) {
        // With a path of its own, the chosen file isn't the one of that name in the folder.
        const std::string path = driveNameOf(name).empty() ? joined(folder, name) : name;
        if (!fso_.FileExists(path)) continue;
        prcAllLV(list, path);
        added.push_back(path);
    }
    return added;
}

void FileList::prcAddItem2LV(ListView& lv, const ComboBox& cbo) {
    std::string folder;
    for (const std::string& piece : split(cbo.Text(), ";")) {
        std::string path = trim(piece);
        if (path.empty()) continue;
        if (!contains(path, ":") && !folder.empty()) path = joined(folder, path);
        path = fso_.WithoutLinks(replaceAll(path, "\\\\", "\\"));
        addOrAsk(lv, path);
        folder = fso_.FolderExists(path) ? path : parentFolderOf(path);
    }
}

void FileList::addDropped(ListView& list, const std::vector<std::string>& paths) {
    for (const std::string& path : paths) addOrAsk(list, path);
}

void FileList::drop(ListView& list, ComboBox& box, const std::vector<std::string>& paths) {
    if (paths.empty()) return;
    addDropped(list, paths);
    box.setText(paths.front());
}

void FileList::addOrAsk(ListView& list, const std::string& path) {
    if (fso_.FileExists(path)) {
        const ListedFile row = addBareRow(list, path);
        resumeNext([&] { showFile(row, path); });
    } else if (fso_.FolderExists(path)) {
        const ListedFile row = addBareRow(list, path);
        resumeNext([&] { showFolder(row, path); });
    } else if (host_.MsgBox(questionAboutMissing(path)) == BoxAnswer::yes) {
        addBareRow(list, path);
    }
}

}  // namespace velmora
