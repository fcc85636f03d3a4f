// The specified files: the rows of LVFile, which the actions on a shortage may move or delete.
#pragma once

#include <string>
#include <vector>

#include "base/regional.h"
#include "controls/list_box.h"
#include "controls/list_view.h"
#include "platform/file_system_object.h"
#include "platform/host.h"
#include "rows/listed_file.h"

namespace velmora {

class FileList {
  public:
    FileList(FileSystemObject& fso, const Regional& regional, Host& host)
        : fso_(fso), regional_(regional), host_(host) {}
    FileList(const FileList&) = delete;
    FileList& operator=(const FileList&) = delete;

    /// Adds a row for a path, at the end, with what the machine knows of the file. What isn't a
    /// file has "n/a" for its size; what can't be read stays empty. Nothing for an empty path.
    void prcAllLV(ListView& list, const std::string& strPath);

    /// Adds the existing file that the box's text names, without line ends after it; with an empty
    /// text opens the file dialog and adds what was chosen. `strFile` takes the answer as the
    /// dialog gives it. The full paths of the rows added, in their order.
    std::vector<std::string> GetFiles(ListView& lvFile, const ComboBox& cboList,
                                      std::string& strFile, FileDialog& objDlg);

    /// Adds the paths of the box's text, which may hold several with ";" between. Asks about each
    /// that doesn't exist.
    void prcAddItem2LV(ListView& lv, const ComboBox& cbo);

    /// Adds each dropped path, folders with their size. Asks about each that doesn't exist.
    void addDropped(ListView& list, const std::vector<std::string>& paths);

    /// The same for paths dropped on the list, of which the first becomes the box's text, whatever
    /// became of it.
    void drop(ListView& list, ComboBox& box, const std::vector<std::string>& paths);

    /// Does nothing; kept in the interface.
    void prcGetFileSize() {}

  private:
    ListedFile addBareRow(ListView& list, const std::string& path);
    void addOrAsk(ListView& list, const std::string& path);
    void showFile(ListedFile row, const std::string& path);
    void showFolder(ListedFile row, const std::string& path);
    void showEntry(ListedFile row, PathEntry& entry);
    std::vector<std::string> addChosen(ListView& list, const std::string& names);

    FileSystemObject& fso_;
    const Regional& regional_;
    Host& host_;
};

}  // namespace velmora
