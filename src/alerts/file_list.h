// The specified files: the rows of LVFile, which the actions on a shortage may move or delete.
#pragma once

#include <string>

#include "controls/list_view.h"
#include "platform/file_system_object.h"

namespace velmora {

class FileList {
  public:
    explicit FileList(FileSystemObject& fso) : fso_(fso) {}

    /// Adds a row for a path, at the end: its name, and the full path as its tag, which is what
    /// all actions go by. Nothing for an empty path.
    void prcAllLV(ListView& list, const std::string& strPath);

  private:
    FileSystemObject& fso_;
};

}  // namespace velmora
