// The buttons of the specified programs in the main window.
#pragma once

#include "alerts/lists/program_list.h"
#include "forms/form1.h"
#include "platform/file_system_object.h"
#include "platform/host.h"
#include "platform/shell32.h"

namespace velmora {

class ProgramListButtons {
  public:
    /// Connects its handlers to the form, which must outlive it like the rest.
    ProgramListButtons(Form1& form1, ProgramList& programs, FileSystemObject& fso, Shell32& shell32,
                       Host& host);
    ProgramListButtons(const ProgramListButtons&) = delete;
    ProgramListButtons& operator=(const ProgramListButtons&) = delete;

    void Label5_Click(int index);
    /// Adds the text of the box to its own entries when it names an existing file.
    void cmdPAdd_Click();

  private:
    void runSelected();

    Form1& form1_;
    ProgramList& programs_;
    FileSystemObject& fso_;
    Shell32& shell32_;
    Host& host_;
};

}  // namespace velmora
