#include "alerts/lists/file_list.h"

#include <utility>

#include "base/convert.h"
#include "base/drive_text.h"
#include "base/format_number.h"
#include "base/resume_next.h"
#include "base/text.h"

namespace velmora {

namespace {

constexpr const char* noSize = "n/a";

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

std::string folderSizeText(double bytes, const Regional& regional) {
    return Format(bytes / 1024, "##.##", regional) + " KB";
}

ListItem& FileList::addBareRow(ListView& list, const std::string& path) {
    ListItem& row = list.Add(platform_.fso.GetFileName(path));
    row.setTag(path);
    row.setSubItems(file_column::size, noSize);
    return row;
}

// All but the size. A field that can't be read doesn't keep the path from being listed.
void FileList::showEntry(ListItem& row, PathEntry& entry) {
    const auto show = [&](int column, const DateTime& time) {
        row.setSubItems(column, dateText(time, platform_.regional));
    };
    resumeNext([&] { row.setSubItems(file_column::location, entry.ParentFolder()); },
               [&] { show(file_column::accessed, entry.DateLastAccessed()); },
               [&] { show(file_column::modified, entry.DateLastModified()); },
               [&] { show(file_column::created, entry.DateCreated()); },
               [&] { row.setSubItems(file_column::type, entry.Type()); });
}

void FileList::showSize(ListItem& row, double bytes, std::string text) {
    row.setSubItems(file_column::size, std::move(text));
    row.setSubTag(file_column::size, toText(bytes, platform_.regional));
}

void FileList::showFile(ListItem& row, const std::string& path) {
    const auto file = platform_.fso.GetFile(path);
    resumeNext([&] {
        const double bytes = file->Size();
        showSize(row, bytes, kilobyteText(bytes, Grouping::regional, platform_.regional));
    });
    showEntry(row, *file);
}

void FileList::showFolder(ListItem& row, const std::string& path) {
    const auto folder = platform_.fso.GetFolder(path);
    resumeNext([&] {
        const double bytes = folder->Size();
        showSize(row, bytes, folderSizeText(bytes, platform_.regional));
    });
    showEntry(row, *folder);
}

// The start of the program comes through here: whatever is asked may fail. A folder's size is left
// out, as it takes a walk through the whole tree.
void FileList::prcAllLV(ListView& list, const std::string& strPath) {
    if (strPath.empty()) return;
    ListItem& row = addBareRow(list, strPath);
    resumeNext([&] {
        if (platform_.fso.FileExists(strPath)) {
            showFile(row, strPath);
        } else if (platform_.fso.FolderExists(strPath)) {
            showEntry(row, *platform_.fso.GetFolder(strPath));
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
    } else if (const std::string bare = withoutLineEnds(text); platform_.fso.FileExists(bare)) {
        strFile = bare;
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
        // Whatever lies in the folder under that name isn't what was chosen.
        const std::string path = driveNameOf(name).empty() ? joined(folder, name) : name;
        if (!platform_.fso.FileExists(path)) continue;
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
        path = replaceAll(path, "\\\\", "\\");
        addOrAsk(lv, path);
        folder = platform_.fso.FolderExists(path) ? path : parentFolderOf(path);
    }
}

void FileList::addDropped(ListView& list, const std::vector<std::string>& paths) {
    for (const std::string& path : paths) addOrAsk(list, path);
}

void FileList::addOrAsk(ListView& list, const std::string& path) {
    if (platform_.fso.FileExists(path)) {
        ListItem& row = addBareRow(list, path);
        resumeNext([&] { showFile(row, path); });
    } else if (platform_.fso.FolderExists(path)) {
        ListItem& row = addBareRow(list, path);
        resumeNext([&] { showFolder(row, path); });
    } else if (host_.MsgBox(questionAboutMissing(path)) == BoxAnswer::yes) {
        addBareRow(list, path);
    }
}

}  // namespace velmora
