// The command line at the start: its paths come into the specified files, and the user's "Send to"
// menu gets a shortcut by which the system starts the program with such paths.
#pragma once

#include "alerts/lists/file_list.h"
#include "controls/list_view.h"
#include "persist/shell_links.h"
#include "platform/file_system_object.h"
#include "platform/platform.h"

namespace velmora {

class CommandLine {
  public:
    CommandLine(ListView& LVFile, const Application& app, FileSystemObject& fso, FileList& fileList,
                ShellLinks& shellLinks)
        : LVFile_(LVFile), app_(app), fso_(fso), fileList_(fileList), shellLinks_(shellLinks) {}
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// Takes the command line's paths into the specified files and sees to the send-to shortcut.
    int prcCommandAdd();

  private:
    void addSendToShortcut();

    ListView& LVFile_;
    const Application& app_;
    FileSystemObject& fso_;
    FileList& fileList_;
    ShellLinks& shellLinks_;
};

}  // namespace velmora
