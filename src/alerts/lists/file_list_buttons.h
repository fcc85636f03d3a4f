// The buttons of the specified files, the menu over their list, and what is dropped there.
#pragma once

#include "alerts/lists/file_list.h"
#include "alerts/system/system_actions.h"
#include "forms/form1.h"

namespace velmora {

class FileListButtons {
  public:
    /// Connects its handlers to the forms, which must outlive it like the rest. Moving and deleting
    /// go through the buttons cmdMove, cmdMoveAll, cmdDelete and cmdDeleteAll, pausing the watch
    /// through cmdPause.
    FileListButtons(Form1& form1, Host& host, FileList& files, SystemActions& systemActions);
    FileListButtons(const FileListButtons&) = delete;
    FileListButtons& operator=(const FileListButtons&) = delete;

    void lblSF_Click(int index);

  private:
    void addFiles();
    void resumeWatch();
    void showAttributes();

    Form1& form1_;
    Host& host_;
    FileList& files_;
    SystemActions& systemActions_;
};

}  // namespace velmora
