// The specified programs: the rows of a list and the box beside it, in the main window or in the
// setup wizard.
#pragma once

#include <string>
#include <vector>

#include "controls/list_box.h"
#include "controls/list_view.h"
#include "platform/file_system_object.h"
#include "platform/host.h"

namespace velmora {

class ProgramList {
  public:
    /// Connects the drops on both and the clicks on the columns.
    ProgramList(ListView& LVProg, ComboBox& cboProg, FileSystemObject& fso, Host& host);
    ProgramList(const ProgramList&) = delete;
    ProgramList& operator=(const ProgramList&) = delete;

    /// Whether the box's text is the path of a file. An empty text is no error; one that names no
    /// file is reported.
    bool boxNamesFile();
    /// The text of the box becomes one of its entries.
    void addEntry();
    /// The program that the box names becomes a row.
    void addRow();
    /// Puts the path of a program that is chosen into the box.
    void browse();

  private:
    void addRow(std::string text, const std::string& path);
    void drop(const std::vector<std::string>& paths);

    ListView& list_;
    ComboBox& box_;
    FileSystemObject& fso_;
    Host& host_;
};

}  // namespace velmora
